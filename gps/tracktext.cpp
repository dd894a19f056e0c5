#include "gps/tracktext.h"

#include <QDateTime>

#include <bit>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstring>
#include <limits>

using namespace Qt::StringLiterals;

// More than a line of a plain track takes.
static constexpr qsizetype USUAL_SPACE = 256;

qint64 nearestSecond(const nmea_data &n)
{
    const double sum = n.date + n.time + 0.5;
    constexpr double beyond = 9223372036854775808.0; // 2^63
    if (std::isnan(sum))
        return 0;
    if (sum >= beyond)
        return std::numeric_limits<qint64>::max();
    if (sum < -beyond)
        return std::numeric_limits<qint64>::min();
    return qint64(sum);
}

const cLocalClock::CIVIL *cLocalClock::civil(qint64 second)
{
    namespace chrono = std::chrono;
    constexpr qint64 daySeconds = 86400;
    constexpr qint64 firstSecond = -62135510400; // a day and more inside the years 1 to 9999
    constexpr qint64 lastSecond = 253402214400;
    if (second < firstSecond || second > lastSecond)
        return nullptr;
    if (second < m_from || second >= m_to)
        _findOffset(second);
    const qint64 local = second + m_offset;
    const qint64 day = (local >= 0 ? local : local - daySeconds + 1) / daySeconds;
    if (day != m_day) {
        const chrono::year_month_day date{chrono::sys_days{chrono::days{day}}};
        m_civil.year = int(date.year());
        m_civil.month = int(unsigned(date.month()));
        m_civil.day = int(unsigned(date.day()));
        m_day = day;
    }
    const int rest = int(local - day * daySeconds);
    m_civil.hour = rest / 3600;
    m_civil.minute = rest / 60 % 60;
    m_civil.second = rest % 60;
    return &m_civil;
}

// Clocks are changed at most once in a quarter of an hour: where its first and its last second have
// the same offset, all between them have it. A quarter in which they differ is asked second by
// second.
void cLocalClock::_findOffset(qint64 second)
{
    constexpr qint64 quarter = 900;
    const auto offset = [](qint64 at) { return QDateTime::fromSecsSinceEpoch(at).offsetFromUtc(); };
    m_from = second - (second % quarter + quarter) % quarter;
    m_to = m_from + quarter;
    m_offset = offset(m_from);
    if (offset(m_to - 1) != m_offset) {
        m_from = second;
        m_to = second + 1;
        m_offset = offset(second);
    }
}

cTrackLine &cTrackLine::begin()
{
    if (!m_bytes.isDetached()) // a receiver keeps the last line
        m_bytes = QByteArray();
    m_bytes.resize(qMax(m_bytes.capacity(), USUAL_SPACE));
    m_begin = m_bytes.data();
    m_space = m_bytes.size();
    m_length = 0;
    return *this;
}

cTrackLine &cTrackLine::digits(int value, int count)
{
    constexpr int most = 4;
    while (count < most && value >= (count == 1 ? 10 : count == 2 ? 100 : 1000))
        ++count;
    char *const begin = _room(count);
    for (char *p = begin + count; p > begin; value /= 10)
        *--p = char('0' + value % 10);
    m_length += count;
    return *this;
}

cTrackLine &cTrackLine::number(double value, int width, int decimals)
{
    __extension__ using uint128 = unsigned __int128;
    constexpr double limit = 8796093022208.0; // 2^43: with six decimals it fits in 63 bits
    constexpr int roundsToZero = 80; // a mantissa shifted so far is nothing in six decimals
    if (!(std::fabs(value) < limit))
        return text(u"%0"_s.arg(value, width, 'f', decimals).toLatin1());

    // |value| is mantissa / 2^shift, exactly; what is wanted is |value| * 10^decimals, rounded to
    // the nearest whole number and a tie away from zero.
    const auto bits = std::bit_cast<quint64>(value);
    const int exponent = int(bits >> 52) & 0x7FF;
    const quint64 mantissa = (bits & 0xFFFFFFFFFFFFF) | (exponent > 0 ? quint64(1) << 52 : 0);
    const int shift = 1075 - qMax(exponent, 1);
    const quint64 scale = decimals == 6 ? 1000000 : 10;
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
    quint64 fraction = scaled % scale;
    for (int i = decimals - 1; i >= 0; --i, fraction /= 10)
        p[i] = char('0' + fraction % 10);
    p += decimals;
    m_length += p - begin;
    return *this; // never shorter than the widths in use
}

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
