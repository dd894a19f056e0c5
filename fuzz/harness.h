#ifndef HARNESS_H
#define HARNESS_H

#include <QByteArray>

#include <cstdio>
#include <cstdlib>

// Functions for all harnesses.

// Aborts with a message unless the condition holds. The fuzzer then stores the input.
inline void require(bool condition, const char *message)
{
    if (condition)
        return;
    std::fprintf(stderr, "does not hold: %s\n", message);
    std::abort();
}

// Cuts an input into chunks of up to 200 bytes, or up to about 70,000 if the input is large. The
// first byte of each chunk decides its length, so the fuzzer controls the cuts.
template <typename F>
void inChunks(const QByteArray &input, F &&feed)
{
    constexpr qsizetype large = 65536;
    const qsizetype longest = input.size() > large ? large + 4000 : 200;
    for (qsizetype pos = 0; pos < input.size();) {
        const qsizetype n =
            1 + (qsizetype(static_cast<unsigned char>(input.at(pos))) * 7919 + pos) % longest;
        feed(input.mid(pos, n));
        pos += n;
    }
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size);

inline QByteArray inputOf(const unsigned char *data, size_t size)
{
    return {reinterpret_cast<const char *>(data), qsizetype(size)};
}

#endif
