#ifndef GPSKML_H
#define GPSKML_H

#include "gps/nmea.h"
#include "gps/tracktext.h"

#include <QList>
#include <QObject>
#include <QString>

// Writes the receiver's text as a KML 2.2 file: one placemark with one line through all points. KML
// holds the positions only, no times.
//
// All points are kept until the destructor, which sends the whole file, under the last title. It
// does so in every case, also without any text. The title is not escaped.
class cGpsKml : public QObject
{
    Q_OBJECT

public:
    explicit cGpsKml(QObject *parent = nullptr);
    ~cGpsKml() override;

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
    cNmea m_nmea;
    QString m_name;
    QList<nmea_data> m_track;
    cTrackLine m_line;
};

#endif
