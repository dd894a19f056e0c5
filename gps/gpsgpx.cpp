#include "gps/gpsgpx.h"

#include "archive/hdrtxts.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

static const char HEADER[] = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
                             "<gpx version=\"1.1\" creator=\"kt_vrktrk\"\r\n"
                             "xmlns=\"http://www.topografix.com/GPX/1/1\"\r\n"
                             "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\r\n"
                             "xsi:schemaLocation=\"http://www.topografix.com/GPX/1/1\r\n"
                             "http://www.topografix.com/GPX/1/1/gpx.xsd\">\r\n"
                             "\t<trk><name><![CDATA[";
static const char HEADER_END[] = "]]></name><trkseg>\r\n";
static const char FOOTER[] = "\t</trkseg></trk>\r\n</gpx>\r\n";

cGpsGpx::cGpsGpx(QObject *parent) : QObject(parent)
{
    connect(&m_nmea, SIGNAL(signal_Data(nmea_data)), this, SLOT(_slot_Nmea(nmea_data)));
}

cGpsGpx::~cGpsGpx()
{
    if (!m_first)
        Q_EMIT signal_Data(QByteArray(FOOTER));
}

void cGpsGpx::slot_Data(const QByteArray &a)
{
    if (m_first) {
        m_first = false;
        Q_EMIT signal_Data(QByteArray(HEADER));
        Q_EMIT signal_Data(m_name.toUtf8());
        Q_EMIT signal_Data(QByteArray(HEADER_END));
    }
    m_nmea.slot_Data(a);
}

void cGpsGpx::slot_Data(int what, const QString &s)
{
    if (what == HDRTXT_TITLE)
        m_name = s;
}

void cGpsGpx::_slot_Nmea(const nmea_data &n)
{
    m_line.begin().text("\t\t<trkpt lat=\"").number(n.lat, 5, 6);
    m_line.text("\" lon=\"").number(n.lon, 5, 6);
    m_line.text("\"><ele>").number(n.alt, 5, 6).text("</ele><time>");
    _dateTime(n);
    m_line.text("</time></trkpt>\r\n");
    Q_EMIT signal_Data(m_line.bytes());
}

// The digits of local time are those of the receiver's UTC: the date of a fix is a local midnight.
void cGpsGpx::_dateTime(const nmea_data &n)
{
    const qint64 second = nearestSecond(n);
    const cLocalClock::CIVIL *const c = m_clock.civil(second);
    if (!c) {
        m_line.text(
            QDateTime::fromSecsSinceEpoch(second).toString(u"yyyy-MM-ddThh:mm:ssZ"_s).toLatin1());
        return;
    }
    m_line.digits(c->year, 4).text("-").digits(c->month, 2).text("-").digits(c->day, 2).text("T");
    m_line.digits(c->hour, 2).text(":").digits(c->minute, 2).text(":").digits(c->second, 2);
    m_line.text("Z");
}
