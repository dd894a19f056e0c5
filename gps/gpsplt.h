#ifndef GPSPLT_H
#define GPSPLT_H

#include "gps/nmea.h"
#include "gps/tracktext.h"

#include <QList>
#include <QObject>
#include <QString>

// Metres to feet.
inline constexpr double FEET_PER_METRE = 3.2808399;

// Writes the receiver's text as an OziExplorer track file.
//
// The header states the number of points: all points are kept until the destructor, which sends the
// whole file, under the last title. It does so in every case, also without any text.
//
// The text is in the local 8-bit encoding, and the month in the language of the system. Commas of
// the title become semicolons and its line ends blanks. Date and time are the receiver's UTC; the
// day number is local time. A time that no calendar holds leaves date and time out.
class cGpsPlt : public QObject
{
    Q_OBJECT

public:
    explicit cGpsPlt(QObject *parent = nullptr);
    ~cGpsPlt() override;

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
    QByteArray _month(int month);

    cNmea m_nmea;
    QString m_name;
    QList<nmea_data> m_track;
    cLocalClock m_clock;
    cTrackLine m_line;
    int m_monthNumber = 0; // the month that m_monthName names
    QByteArray m_monthName;
};

#endif
