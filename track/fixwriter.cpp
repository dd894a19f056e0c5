#include "track/fixwriter.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

QByteArray cFixWriter::number(double value, int decimals)
{
    // The largest number has so many digits before its point.
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

// QDateTime's own text takes several times as long as all the rest of a fix.
QByteArray cFixWriter::time(const FIX_T &fix)
{
    using namespace std::chrono;
    const sys_time<milliseconds> instant{milliseconds(fix.time)};
    const auto day = floor<days>(instant);
    const year_month_day date(day);
    const hh_mm_ss clock(instant - day);

    QByteArray text = "0000-00-00T00:00:00";
    const auto put = [&text](qsizetype end, qint64 value) {
        for (; value > 0; value /= 10)
            text[end--] = char('0' + value % 10);
    };
    put(3, int(date.year()));
    put(6, unsigned(date.month()));
    put(9, unsigned(date.day()));
    put(12, clock.hours().count());
    put(15, clock.minutes().count());
    put(18, clock.seconds().count());
    if (clock.subseconds().count() > 0) {
        text += ".000";
        put(22, clock.subseconds().count());
    }
    return text += 'Z';
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
