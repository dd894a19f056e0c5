#include "track/fixwriter.h"

#include <array>
#include <charconv>
#include <limits>

QByteArray cFixWriter::number(double value, int decimals)
{
    // Room for the digits of the largest number, a sign, a point and nine decimals.
    std::array<char, std::numeric_limits<double>::max_exponent10 + 16> text{};
    const std::to_chars_result result =
        std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed, decimals);
    const char *end = result.ptr;
    if (decimals > 0) {
        while (end[-1] == '0')
            --end;
        if (end[-1] == '.')
            --end;
    }
    const QByteArrayView shortest(text.data(), end);
    return shortest == "-0" ? QByteArray("0") : shortest.toByteArray();
}

QByteArray cFixWriter::kind(const FIX_T &fix)
{
    switch (fix.kind) {
    case FIX_KIND::TWO_D:
        return "2d";
    case FIX_KIND::THREE_D:
        return "3d";
    case FIX_KIND::DIFFERENTIAL:
        return "dgps";
    case FIX_KIND::PRECISE:
        return "pps";
    case FIX_KIND::UNKNOWN:
        break;
    }
    return {};
}
