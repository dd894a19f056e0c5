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
constexpr double DAY_SECONDS = 86400;
constexpr double DAYS_TO_1970 = 25569; // from 30 December 1899
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
        // The date of a fix is the instant of local midnight, so the day number is UTC less the
        // zone's offset.
        m_line.number((n.date + n.time) / DAY_SECONDS + DAYS_TO_1970, 7, 6).text(",");
        m_line.text(_dateTime(n)).text("\r\n");
        Q_EMIT signal_Data(m_line.bytes());
    }
}

void cGpsPlt::_slot_Nmea(const nmea_data &n)
{
    m_track.append(n);
}

// Returns the fields of the date and the time. The date of a fix is local midnight, so its local
// time has the digits of the receiver's UTC.
const QByteArray &cGpsPlt::_dateTime(const nmea_data &n)
{
    const qint64 second = nearestSecond(n);
    if (second == m_second)
        return m_time.bytes();
    m_second = second;
    m_time.begin();
    if (const std::optional<CIVIL_T> c = localTime(second)) {
        m_time.digits(c->day, 2).text("-").text(_month(c->month)).text("-");
        m_time.digits(c->year % 100, 2).text(",").digits(c->hour, 2).text(":");
        m_time.digits(c->minute, 2).text(":").digits(c->second, 2);
    } else if (const QDateTime when = QDateTime::fromSecsSinceEpoch(second); when.isValid()) {
        m_time.text(when.toString(u"dd-"_s).toLatin1()).text(_month(when.date().month()));
        m_time.text(when.toString(u"-yy,hh:mm:ss"_s).toLatin1());
    }
    return m_time.bytes();
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
