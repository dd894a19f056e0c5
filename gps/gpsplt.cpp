#include "gps/gpsplt.h"

#include <QDateTime>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace
{
constexpr char HEADER[] = "OziExplorer Track Point File Version 2.0\r\n"
                          "WGS 84\r\n"
                          "Altitude is in Feet\r\n"
                          "Reserved 3\r\n"
                          "0,2,255,";
} // namespace

cGpsPlt::cGpsPlt(QObject *parent) : cTrackWriter(parent) {}

cGpsPlt::~cGpsPlt()
{
    // Commas and line ends separate the fields of the header, so the name must not contain any.
    m_name.replace(u',', u';').replace(u'\r', u' ').replace(u'\n', u' ');
    m_line.begin().text(HEADER).text(m_name.toLocal8Bit()).text(",0\r\n");
    m_line.text(QByteArray::number(m_track.size())).text("\r\n");
    Q_EMIT signal_Data(m_line.bytes());
    for (const nmea_data &n : std::as_const(m_track)) {
        m_line.begin().number(n.lat, 6, 6).text(",").number(n.lon, 6, 6).text(",0,");
        m_line.number(n.alt * FEET_PER_METRE, 6, 6).text(",");
        _dateTime(n);
        m_line.text("\r\n");
        Q_EMIT signal_Data(m_line.bytes());
    }
}

void cGpsPlt::_slot_Nmea(const nmea_data &n)
{
    m_track.append(n);
}

// Writes three fields: the day number, the date and the time. The date of a fix is local midnight.
// Its local time therefore has the digits of the receiver's UTC, but the day number, which counts
// from UTC, is off by the zone's offset.
void cGpsPlt::_dateTime(const nmea_data &n)
{
    constexpr double daySeconds = 86400;
    constexpr double daysTo1970 = 25569; // from 30 December 1899
    m_line.number((n.date + n.time) / daySeconds + daysTo1970, 7, 6).text(",");

    const qint64 second = nearestSecond(n);
    const cLocalClock::CIVIL *const c = m_clock.civil(second);
    if (!c) {
        const QDateTime when = QDateTime::fromSecsSinceEpoch(second);
        if (when.isValid()) {
            m_line.text(when.toString(u"dd-"_s).toLatin1());
            m_line.text(_month(when.date().month()));
            m_line.text(when.toString(u"-yy,hh:mm:ss"_s).toLatin1());
        }
        return;
    }
    m_line.digits(c->day, 2).text("-").text(_month(c->month)).text("-");
    m_line.digits(c->year % 100, 2).text(",");
    m_line.digits(c->hour, 2).text(":").digits(c->minute, 2).text(":").digits(c->second, 2);
}

// Returns the short name of a month (1 to 12) in the system's language.
QByteArray cGpsPlt::_month(int month)
{
    if (month != m_monthNumber) {
        m_monthName = QLocale::system().monthName(month, QLocale::ShortFormat).toLocal8Bit();
        m_monthNumber = month;
    }
    return m_monthName;
}
