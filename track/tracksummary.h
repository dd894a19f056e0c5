#ifndef TRACKSUMMARY_H
#define TRACKSUMMARY_H

#include "track/track.h"

#include <QGeoRectangle>

// Figures about a whole track.
struct TRACK_SUMMARY_T {
    qint64 fixes = 0;
    qint64 segments = 0;
    // The following are valid only if there is a fix. Times are empty if no fix has a date.
    std::optional<qint64> first; // milliseconds since 1970-01-01T00:00:00 UTC
    std::optional<qint64> last;
    double metres = 0;         // along the segments
    QGeoRectangle box;         // across the 180th meridian if that is the shorter way
    double topSpeed = qQNaN(); // metres per second, as sent; not-a-number if no fix has a speed
    double lowest = qQNaN(); // metres above mean sea level; not-a-number if no fix has an altitude
    double highest = qQNaN();
};

// Walks through a finished track.
TRACK_SUMMARY_T summarize(const cTrack &track);

#endif
