#include "gps/tracktext.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <ctime>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
// Enough for most lines.
constexpr qsizetype USUAL_SPACE = 256;
} // namespace

qint64 nearestSecond(const nmea_data &n)
{
    const double sum = n.date + n.time + 0.5;
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (std::isnan(sum))
        return 0;
    if (sum >= limit)
        return std::numeric_limits<qint64>::max();
    if (sum < -limit)
        return std::numeric_limits<qint64>::min();
    return qint64(sum);
}

std::optional<CIVIL_T> localTime(qint64 second)
{
    constexpr qint64 firstSecond = -62135510400; // at least a day within the years 1 to 9999
    constexpr qint64 lastSecond = 253402214400;
    const auto at = time_t(second);
    if (second < firstSecond || second > lastSecond || at != second)
        return {};
    tm local{};
    localtime_r(&at, &local);
    return CIVIL_T{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                   local.tm_hour,        local.tm_min,     local.tm_sec};
}

cTrackLine &cTrackLine::begin()
{
    if (!m_bytes.isDetached()) // somebody kept a copy of the last line
        m_bytes = QByteArray();
    m_bytes.resize(qMax(m_bytes.capacity(), USUAL_SPACE));
    m_begin = m_bytes.data();
    m_space = m_bytes.size();
    m_length = 0;
    return *this;
}

cTrackLine &cTrackLine::digits(int value, int count)
{
    char *const begin = _room(count);
    for (char *p = begin + count; p > begin; value /= 10)
        *--p = char('0' + value % 10);
    m_length += count;
    return *this;
}

cTrackLine &cTrackLine::number(double value, int width, int decimals)
{
#ifdef __SIZEOF_INT128__
    constexpr double limit = 8796093022208.0; // 2^43: with six decimals it fits in 63 bits
    if (std::fabs(value) < limit)
        return _number(value, decimals); // never shorter than the widths in use
#endif
    // From here on every double is an integer, so nothing is rounded. With Qt's formatting, a
    // sentence with numbers like 1E300 takes 100 times as long.
    constexpr double firstInteger = 9007199254740992.0; // 2^53
    if (std::isfinite(value) && std::fabs(value) >= firstInteger) {
        std::array<char, std::numeric_limits<double>::max_exponent10 + 16> digits;
        const char *const end =
            std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed, decimals)
                .ptr;
        return text({digits.begin(), end});
    }
    // Slower, for other large numbers and for machines without 128-bit integers.
    return text(u"%0"_s.arg(value, width, 'f', decimals).toLatin1());
}

#ifdef __SIZEOF_INT128__
// std::to_chars would round ties to even and write -0; with Qt's formatting, conversion to GPX
// takes three times as long.
cTrackLine &cTrackLine::_number(double value, int decimals)
{
    __extension__ using uint128 = unsigned __int128;
    constexpr int roundsToZero = 80; // any mantissa shifted this far rounds to 0 in six decimals

    // |value| is exactly mantissa / 2^shift, unless it is so small that it rounds to 0. The result
    // is |value| * 10^decimals, rounded to the nearest integer, ties away from zero.
    const auto bits = std::bit_cast<quint64>(value);
    const int exponent = int(bits >> 52) & 0x7FF;
    const quint64 mantissa = (bits & 0xFFFFFFFFFFFFF) | quint64(1) << 52;
    const int shift = 1075 - exponent;
    const quint32 scale = decimals == 6 ? 1000000 : 10;
    quint64 scaled = 0;
    if (shift < roundsToZero)
        scaled = quint64((uint128(mantissa) * scale + (uint128(1) << (shift - 1))) >> shift);

    constexpr qsizetype longest = 32;
    char *const begin = _room(longest);
    char *p = begin;
    if (value < 0)
        *p++ = '-';
    p = std::to_chars(p, begin + longest, scaled / scale).ptr;
    *p++ = '.';
    auto fraction = quint32(scaled % scale);
    for (int i = decimals - 1; i >= 0; --i, fraction /= 10)
        p[i] = char('0' + fraction % 10);
    p += decimals;
    m_length += p - begin;
    return *this;
}
#endif

const QByteArray &cTrackLine::bytes()
{
    m_bytes.truncate(m_length);
    return m_bytes;
}

void cTrackLine::_grow(qsizetype n)
{
    m_bytes.resize(2 * (m_length + n));
    m_begin = m_bytes.data();
    m_space = m_bytes.size();
}
