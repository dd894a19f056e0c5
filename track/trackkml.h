#ifndef TRACKKML_H
#define TRACKKML_H

#include "track/xmlfixwriter.h"

// Writes KML 2.2 for Google Earth: for each segment, a gx:Track, which works with the time slider,
// or a plain line if the fixes have no date.
class cTrackKml : public cXmlFixWriter
{
    Q_OBJECT

public:
    explicit cTrackKml(QObject *parent = nullptr) : cXmlFixWriter(parent) {}
    bool write(const cTrack &track, const QString &title) override;

private:
    void _track(cTrackCursor &times, cTrackCursor &places);
    void _line(cTrackCursor &at);
};

#endif
