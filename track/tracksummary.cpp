#include "track/tracksummary.h"

#include <cmath>

TRACK_SUMMARY_T summarize(const cTrack &track)
{
    TRACK_SUMMARY_T s;
    for (cTrackCursor at(track); !at.atEnd(); at.next()) {
        const FIX_T &fix = at.fix();
        const QGeoCoordinate place(fix.lat, fix.lon);
        if (s.fixes++ == 0)
            s.box = QGeoRectangle(place, place);
        else
            s.box.extendRectangle(place);
        s.segments += at.startsSegment();
        s.metres += at.distance();
        if (fix.clock == FIX_CLOCK::FULL) {
            s.first = s.first.value_or(fix.time);
            s.last = fix.time;
        }
        // fmax and fmin prefer a number to not-a-number.
        s.topSpeed = std::fmax(s.topSpeed, fix.speed);
        s.lowest = std::fmin(s.lowest, fix.altitude);
        s.highest = std::fmax(s.highest, fix.altitude);
    }
    return s;
}
