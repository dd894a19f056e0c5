#include "archive/datasplitter.h"

#include <cstring>

namespace
{
// Bytes that one step of the search for a four-byte value covers.
constexpr qsizetype SEARCH_STEP = 64;

// Whether a or b begins at one of the SEARCH_STEP bytes at p. Reads three bytes more than that.
// There are no branches, so the compiler can use vector instructions and the time does not depend
// on the bytes.
bool _beginsWithin(const char *p, quint32 a, quint32 b)
{
    const auto byte = [](quint32 value, int i) { return char(value >> (8 * i)); };
    const char a0 = byte(a, 0), a1 = byte(a, 1), a2 = byte(a, 2), a3 = byte(a, 3);
    const char b0 = byte(b, 0), b1 = byte(b, 1), b2 = byte(b, 2), b3 = byte(b, 3);
    unsigned char hit = 0;
    for (qsizetype i = 0; i < SEARCH_STEP; ++i) {
        const auto isA = static_cast<unsigned char>((p[i] == a0) & (p[i + 1] == a1) &
                                                    (p[i + 2] == a2) & (p[i + 3] == a3));
        const auto isB = static_cast<unsigned char>((p[i] == b0) & (p[i + 1] == b1) &
                                                    (p[i + 2] == b2) & (p[i + 3] == b3));
        hit |= static_cast<unsigned char>(isA | isB);
    }
    return hit != 0;
}
} // namespace

void cDataSplitter::append(const QByteArray &a)
{
    // Consumed bytes are removed once they make up at least half of the buffer. The bytes moved are
    // then never more than the bytes consumed.
    if (m_head >= size()) {
        const qsizetype rest = size();
        if (rest > 0)
            std::memmove(m_buffer.data(), _front(), size_t(rest));
        m_buffer.resize(rest);
        m_removed += m_head;
        m_head = 0;
    }
    m_buffer.append(a);
}

QByteArray cDataSplitter::peek_block(int pos, int len) const
{
    require(qsizetype(pos) + len);
    return {_front() + pos, len};
}

QByteArray cDataSplitter::get_block(int &pos, int len) const
{
    QByteArray block = peek_block(pos, len);
    pos += len;
    return block;
}

void cDataSplitter::get_block(int &pos, int len, QByteArray &block) const
{
    require(qsizetype(pos) + len);
    if (!block.isDetached())
        block = QByteArray(len, Qt::Uninitialized);
    else
        block.resize(len);
    std::memcpy(block.data(), _front() + pos, size_t(len));
    pos += len;
}

QByteArray cDataSplitter::get_block(int len)
{
    QByteArray block = peek_block(len);
    skip(len);
    return block;
}

QByteArray cDataSplitter::peek_string(int pos) const
{
    const qsizetype zero = bytes().indexOf('\0', pos);
    require(zero < 0 ? size() + 1 : zero + 1);
    return {_front() + pos, zero + 1 - pos};
}

QByteArray cDataSplitter::get_string(int &pos) const
{
    QByteArray string = peek_string(pos);
    pos += int(string.size());
    return string;
}

QByteArray cDataSplitter::get_string()
{
    QByteArray string = peek_string();
    skip(string.size());
    return string;
}

qsizetype cDataSplitter::find_quint32(quint32 a, quint32 b, char mark, qsizetype limit) const
{
    const char *const p = _front();
    // Every offset below this one is followed by four bytes.
    const qsizetype end = qBound<qsizetype>(0, limit, qMax<qsizetype>(0, size() - 3));
    qsizetype i = 0;
    while (i < end) {
        // memchr is the fastest search through bytes without a mark. Each mark it finds is followed
        // by a whole step, so that it is not called for every byte of an input full of marks.
        const void *const found = std::memchr(p + i, mark, size_t(end + 3 - i));
        if (!found)
            return end;
        i = qMax(i, static_cast<const char *>(found) - p - 3);
        const qsizetype next = qMin(end, i + SEARCH_STEP);
        if (next - i < SEARCH_STEP || _beginsWithin(p + i, a, b)) {
            for (; i < next; ++i) {
                const auto value = qFromLittleEndian<quint32>(p + i);
                if (value == a || value == b)
                    return i;
            }
        }
        i = next;
    }
    return end;
}
