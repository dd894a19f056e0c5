#ifndef GPSPLT_H
#define GPSPLT_H

#include "gps/trackwriter.h"

#include <QByteArray>
#include <QList>

// Metres to feet.
inline constexpr double FEET_PER_METRE = 3.2808399;

// Writes the receiver's text as an OziExplorer track file.
//
// The header contains the number of points, so all points are kept until the destructor. It sends
// the whole file with the last title, even if no text arrived.
//
// Text is in the local 8-bit encoding; the month's name is in the system's language. In the title,
// commas become semicolons and line ends become spaces. Date and time are UTC, but the local time
// zone's offset from UTC is subtracted from the day number. A time outside QDateTime's range leaves
// date and time empty.
class cGpsPlt : public cTrackWriter
{
    Q_OBJECT

public:
    explicit cGpsPlt(QObject *parent = nullptr);
    ~cGpsPlt() override;

private:
    void _slot_Nmea(const nmea_data &n) override;
    const QByteArray &_dateTime(const nmea_data &n);
    QByteArray _month(int month);

    QList<nmea_data> m_track;
    // The last time as text, because receivers send several sentences for each second.
    std::optional<qint64> m_second;
    cTrackLine m_time;
    int m_monthNumber = 0; // the month whose name is m_monthName
    QByteArray m_monthName;
};

#endif
