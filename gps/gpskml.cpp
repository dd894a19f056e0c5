#include "gps/gpskml.h"

#include "archive/hdrtxts.h"

static const char HEADER[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
    "<kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document>\r\n"
    "<Folder><name>Tracks</name>\r\n"
    "<Style id=\"\"><LineStyle><color>ffff0000</color><width>2</width></LineStyle>"
    "<PolyStyle><fill>0</fill></PolyStyle></Style>\r\n"
    "<Placemark>\r\n"
    "<name>";
static const char HEADER_END[] = "</name><styleUrl>#</styleUrl>\r\n<LineString><coordinates>";
static const char FOOTER[] =
    "</coordinates>\r\n</LineString></Placemark></Folder></Document></kml>\r\n";

cGpsKml::cGpsKml(QObject *parent) : QObject(parent)
{
    connect(&m_nmea, SIGNAL(signal_Data(nmea_data)), this, SLOT(_slot_Nmea(nmea_data)));
}

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

void cGpsKml::slot_Data(const QByteArray &a)
{
    m_nmea.slot_Data(a);
}

void cGpsKml::slot_Data(int what, const QString &s)
{
    if (what == HDRTXT_TITLE)
        m_name = s;
}

void cGpsKml::_slot_Nmea(const nmea_data &n)
{
    m_track.append(n);
}
