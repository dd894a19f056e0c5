#ifndef TRACKGEOJSON_H
#define TRACKGEOJSON_H

#include "track/fixwriter.h"

// Writes GeoJSON (RFC 7946): a feature for each segment, with the times of its positions in the
// property "coordTimes" if they have a date.
//
// A segment is a line, or a point if it has only one fix. It is cut into several lines at the 180th
// meridian, with positions added on both sides of each cut.
class cTrackGeoJson : public cFixWriter
{
    Q_OBJECT

public:
    explicit cTrackGeoJson(QObject *parent = nullptr) : cFixWriter(parent) {}
    bool write(const cTrack &track, const QString &title) override;

private:
    void _feature(cTrackCursor &counts, cTrackCursor &times, cTrackCursor &places);
};

#endif
