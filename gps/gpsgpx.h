#ifndef GPSGPX_H
#define GPSGPX_H

#include "gps/trackwriter.h"

// Writes the receiver's text as a GPX 1.1 file with one track of one segment.
//
// The header is sent when the first chunk arrives, with the last title received before it. Each
// point is sent as soon as it is decoded, so memory does not grow with the track. The destructor
// sends the closing tags. If no chunk arrives, nothing is sent.
//
// Times are UTC in whole seconds; a time outside QDateTime's range is left empty. The title is not
// escaped: "]]>" in it ends the CDATA section early.
class cGpsGpx : public cTrackWriter
{
    Q_OBJECT

public:
    explicit cGpsGpx(QObject *parent = nullptr);
    ~cGpsGpx() override;

    using cTrackWriter::slot_Data;
    void slot_Data(const QByteArray &a) override;

private:
    void _slot_Nmea(const nmea_data &n) override;
    const QByteArray &_dateTime(const nmea_data &n);

    bool m_first = true; // no chunk has arrived yet
    // The last time as text, because receivers send several sentences for each second.
    std::optional<qint64> m_second;
    cTrackLine m_time;
};

#endif
