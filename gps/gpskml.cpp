#include "gps/gpskml.h"

namespace
{
constexpr char HEADER[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
    "<kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document>\r\n"
    "<Folder><name>Tracks</name>\r\n"
    "<Style id=\"\"><LineStyle><color>ffff0000</color><width>2</width></LineStyle>"
    "<PolyStyle><fill>0</fill></PolyStyle></Style>\r\n"
    "<Placemark>\r\n"
    "<name>";
constexpr char HEADER_END[] = "</name><styleUrl>#</styleUrl>\r\n<LineString><coordinates>";
constexpr char FOOTER[] =
    "</coordinates>\r\n</LineString></Placemark></Folder></Document></kml>\r\n";
} // namespace

cGpsKml::cGpsKml(QObject *parent) : cTrackWriter(parent) {}

cGpsKml::~cGpsKml()
{
    m_line.begin().text(HEADER).text(m_name.toLocal8Bit()).text(HEADER_END);
    Q_EMIT signal_Data(m_line.bytes());
    for (const nmea_data &n : std::as_const(m_track)) {
        m_line.begin().number(n.lon, 6, 6).text(",").number(n.lat, 6, 6).text(",");
        m_line.number(n.alt, 0, 1).text(" ");
        Q_EMIT signal_Data(m_line.bytes());
    }
    Q_EMIT signal_Data(QByteArray(FOOTER));
}

void cGpsKml::_slot_Nmea(const nmea_data &n)
{
    m_track.append(n);
}
