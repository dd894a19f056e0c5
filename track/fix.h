#ifndef FIX_H
#define FIX_H

#include <QByteArray>
#include <QtGlobal>
#include <QtNumeric>

#include <type_traits>

// How the receiver determined a position, as far as its sentences say. Later values are better.
enum class FIX_KIND : quint8 { UNKNOWN, TWO_D, THREE_D, DIFFERENTIAL, PRECISE };

// How much of FIX_T::time the receiver sent.
enum class FIX_CLOCK : quint8 {
    NONE,        // nothing; time is that of the previous fix and only keeps the order
    TIME_OF_DAY, // no date: days are counted from 1970-01-01, the day of the first such fix
    FULL,        // date and time
};

// One position reported by the receiver, merged from all sentences of the same instant. A plain
// record: it can be copied byte by byte.
struct FIX_T {
    qint64 time = 0;           // milliseconds since 1970-01-01T00:00:00 UTC
    double lat = 0;            // decimal degrees, north positive
    double lon = 0;            // decimal degrees, east positive
    double altitude = qQNaN(); // metres above mean sea level; not-a-number if not sent
    double speed = qQNaN();    // metres per second; not-a-number if not sent
    double course = qQNaN();   // degrees from true north, 0 to 360; not-a-number if not sent
    double hdop = qQNaN();     // horizontal dilution of precision; not-a-number if not sent
    qint32 satellites = -1;    // used for the position; -1 if not sent
    // Numbers the fixes with the same time, starting at 0. Some receivers send five positions a
    // second with times in whole seconds.
    quint32 repeat = 0;
    quint32 text = 0; // numbers the receiver texts that a cFixReader has read, starting at 0
    FIX_CLOCK clock = FIX_CLOCK::NONE;
    FIX_KIND kind = FIX_KIND::UNKNOWN;
};
static_assert(std::is_trivially_copyable_v<FIX_T>);

// Formats a FIX_T::time as "2011-03-23T12:01:07Z", or as "2011-03-23T12:01:07.500Z" if it has
// milliseconds. Years outside 0 to 9999 are clamped.
QByteArray timeText(qint64 time);

inline constexpr qint64 MS_PER_SECOND = 1000;
inline constexpr qint64 MS_PER_HOUR = 3600 * MS_PER_SECOND;
inline constexpr qint64 MS_PER_DAY = 24 * MS_PER_HOUR;

#endif
