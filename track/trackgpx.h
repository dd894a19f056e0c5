#ifndef TRACKGPX_H
#define TRACKGPX_H

#include "track/xmlfixwriter.h"

// Writes GPX 1.1, with speed and course in Garmin's TrackPointExtension, version 2.
class cTrackGpx : public cXmlFixWriter
{
    Q_OBJECT

public:
    explicit cTrackGpx(QObject *parent = nullptr) : cXmlFixWriter(parent) {}
    bool write(const cTrack &track, const QString &title) override;

private:
    void _point(const FIX_T &fix);
    void _extensions(const FIX_T &fix);
};

#endif
