#ifndef GPSGPX_H
#define GPSGPX_H

#include "gps/nmea.h"
#include "gps/tracktext.h"

#include <QObject>
#include <QString>

// Writes the receiver's text as a GPX 1.1 file with one track of one segment.
//
// Header and points are sent as they come: the header with the first chunk, under the title of that
// moment, and the end by the destructor. Nothing is sent if no chunk came. Nothing grows with the
// track.
// The title is not escaped: "]]>" in it ends the section that it stands in.
class cGpsGpx : public QObject
{
    Q_OBJECT

public:
    explicit cGpsGpx(QObject *parent = nullptr);
    ~cGpsGpx() override;

    // The decoder that reads the text.
    const cNmea &nmea() const { return m_nmea; }

public Q_SLOTS:
    // A chunk of receiver text, not needed behind the call.
    void slot_Data(const QByteArray &a);
    // A numbered text of the archive's header; the title counts, all others are ignored.
    void slot_Data(int what, const QString &s);

Q_SIGNALS:
    // Bytes of the file, good for the length of the call.
    void signal_Data(const QByteArray &a);

private Q_SLOTS:
    void _slot_Nmea(const nmea_data &n);

private:
    void _dateTime(const nmea_data &n);

    bool m_first = true;
    cNmea m_nmea;
    QString m_name;
    cLocalClock m_clock;
    cTrackLine m_line;
};

#endif
