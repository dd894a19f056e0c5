#include "gps/gpsgpx.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace
{
constexpr char HEADER[] = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
                          "<gpx version=\"1.1\" creator=\"kt_vrktrk\"\r\n"
                          "xmlns=\"http://www.topografix.com/GPX/1/1\"\r\n"
                          "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\r\n"
                          "xsi:schemaLocation=\"http://www.topografix.com/GPX/1/1\r\n"
                          "http://www.topografix.com/GPX/1/1/gpx.xsd\">\r\n"
                          "\t<trk><name><![CDATA[";
constexpr char HEADER_END[] = "]]></name><trkseg>\r\n";
constexpr char FOOTER[] = "\t</trkseg></trk>\r\n</gpx>\r\n";
} // namespace

cGpsGpx::cGpsGpx(QObject *parent) : cTrackWriter(parent) {}

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
    cTrackWriter::slot_Data(a);
}

void cGpsGpx::_slot_Nmea(const nmea_data &n)
{
    m_line.begin().text("\t\t<trkpt lat=\"").number(n.lat, 5, 6);
    m_line.text("\" lon=\"").number(n.lon, 5, 6);
    m_line.text("\"><ele>").number(n.alt, 5, 6).text("</ele><time>");
    m_line.text(_dateTime(n)).text("</time></trkpt>\r\n");
    Q_EMIT signal_Data(m_line.bytes());
}

// Returns local time, which has the digits of the receiver's UTC: the date of a fix is local
// midnight.
const QByteArray &cGpsGpx::_dateTime(const nmea_data &n)
{
    const qint64 second = nearestSecond(n);
    if (second == m_second)
        return m_time.bytes();
    m_second = second;
    m_time.begin();
    if (const std::optional<CIVIL_T> c = localTime(second)) {
        m_time.digits(c->year, 4).text("-").digits(c->month, 2).text("-").digits(c->day, 2);
        m_time.text("T").digits(c->hour, 2).text(":").digits(c->minute, 2).text(":");
        m_time.digits(c->second, 2).text("Z");
    } else {
        const QDateTime when = QDateTime::fromSecsSinceEpoch(second);
        m_time.text(when.toString(u"yyyy-MM-ddThh:mm:ssZ"_s).toLatin1());
    }
    return m_time.bytes();
}
