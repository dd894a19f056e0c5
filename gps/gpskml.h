#ifndef GPSKML_H
#define GPSKML_H

#include "gps/trackwriter.h"

#include <QList>

// Writes the receiver's text as a KML 2.2 file: one placemark with one line through all points. The
// points have positions but no times.
//
// All points are kept until the destructor, which sends the whole file with the last title, even if
// no text arrived. The title is in the local 8-bit encoding and not escaped.
class cGpsKml : public cTrackWriter
{
    Q_OBJECT

public:
    explicit cGpsKml(QObject *parent = nullptr);
    ~cGpsKml() override;

private:
    void _slot_Nmea(const nmea_data &n) override;

    QList<nmea_data> m_track;
};

#endif
