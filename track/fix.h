#ifndef FIX_H
#define FIX_H

#include <QByteArray>
#include <QtGlobal>
#include <QtNumeric>

#include <type_traits>

// How the receiver came by a position, as far as its sentences say. A later value is the better
// one.
enum class FIX_KIND : quint8 { UNKNOWN, TWO_D, THREE_D, DIFFERENTIAL, PRECISE };

// How much of FIX_T::time the receiver sent.
enum class FIX_CLOCK : quint8 {
    NONE,        // nothing: time is that of the fix before, and serves only to keep the order
    TIME_OF_DAY, // no date: days are counted from 1970-01-01, the day of the first such fix
    FULL,
};

// One position of the receiver, merged from all sentences of its instant. A plain record: it can be
// copied byte by byte.
struct FIX_T {
    qint64 time = 0;           // milliseconds since 1970-01-01T00:00:00 UTC
    double lat = 0;            // decimal degrees, north positive
    double lon = 0;            // decimal degrees, east positive
    double altitude = qQNaN(); // metres above mean sea level; not-a-number if not sent
    double speed = qQNaN();    // metres per second; not-a-number if not sent
    double course = qQNaN();   // degrees from true north; not-a-number if not sent
    double hdop = qQNaN();     // horizontal dilution of precision; not-a-number if not sent
    qint32 satellites = -1;    // used for the position; -1 if not sent
    // Numbers the fixes that the receiver sent under one time, from 0 on: some send five positions
    // a second under times in whole seconds.
    quint32 repeat = 0;
    FIX_CLOCK clock = FIX_CLOCK::NONE;
    FIX_KIND kind = FIX_KIND::UNKNOWN;
};
static_assert(std::is_trivially_copyable_v<FIX_T>);

// Such a time as text: "2011-03-23T12:01:07Z", with the milliseconds after a point unless they are
// 0.
QByteArray timeText(qint64 time);

inline constexpr qint64 MS_PER_SECOND = 1000;
inline constexpr qint64 MS_PER_HOUR = 3600 * MS_PER_SECOND;
inline constexpr qint64 MS_PER_DAY = 24 * MS_PER_HOUR;

#endif
