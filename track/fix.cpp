#include "track/fix.h"

#include <chrono>

// Formatting with QDateTime would take several times as long as everything else done for a fix.
QByteArray timeText(qint64 time)
{
    using namespace std::chrono;
    const sys_time<milliseconds> instant{milliseconds(time)};
    const auto day = floor<days>(instant);
    const year_month_day date(day);
    const hh_mm_ss clock(instant - day);

    QByteArray text = "0000-00-00T00:00:00";
    const auto put = [&text](qsizetype end, qint64 value) {
        for (; value > 0; value /= 10)
            text[end--] = char('0' + value % 10);
    };
    put(3, qBound(0, int(date.year()), 9999));
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
