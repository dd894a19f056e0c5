#include "track/trackgpx.h"

#include <cmath>

using namespace Qt::StringLiterals;

bool cTrackGpx::write(const cTrack &track, const QString &title)
{
    const QString gpx = u"http://www.topografix.com/GPX/1/1"_s;
    const QString extension = u"http://www.garmin.com/xmlschemas/TrackPointExtension/v2"_s;
    start(u"gpx"_s, gpx);
    xml().writeNamespace(extension, u"gpxtpx"_s);
    xml().writeNamespace(u"http://www.w3.org/2001/XMLSchema-instance"_s, u"xsi"_s);
    xml().writeAttribute(u"xsi:schemaLocation"_s,
                         gpx + u' ' + gpx + u"/gpx.xsd "_s + extension +
                             u" https://www8.garmin.com/xmlschemas/TrackPointExtensionv2.xsd"_s);
    xml().writeAttribute(u"version"_s, u"1.1"_s);
    xml().writeAttribute(u"creator"_s, u"VrkTrk"_s);
    xml().writeStartElement(u"trk"_s);
    name(title);
    for (cTrackCursor at(track); !at.atEnd();) {
        xml().writeStartElement(u"trkseg"_s);
        do {
            _point(at.fix());
            at.next();
        } while (!at.atEnd() && !at.startsSegment());
        xml().writeEndElement();
    }
    return end();
}

void cTrackGpx::_point(const FIX_T &fix)
{
    xml().writeCharacters(u"\n"_s);
    xml().writeStartElement(u"trkpt"_s);
    attribute(u"lat"_s, degrees(fix.lat));
    // GPX counts the 180th meridian as western.
    const QByteArray lon = degrees(fix.lon);
    attribute(u"lon"_s, lon == "180" ? "-180" : lon);
    if (!std::isnan(fix.altitude))
        element(u"ele"_s, number(fix.altitude));
    if (fix.clock == FIX_CLOCK::FULL)
        element(u"time"_s, timeText(fix.time));
    if (fix.kind != FIX_KIND::UNKNOWN)
        element(u"fix"_s, kind(fix));
    if (fix.satellites >= 0)
        element(u"sat"_s, QByteArray::number(fix.satellites));
    if (!std::isnan(fix.hdop))
        element(u"hdop"_s, number(fix.hdop));
    if (!std::isnan(fix.speed) || !std::isnan(fix.course))
        _extensions(fix);
    xml().writeEndElement();
    send();
}

void cTrackGpx::_extensions(const FIX_T &fix)
{
    xml().writeStartElement(u"extensions"_s);
    xml().writeStartElement(u"gpxtpx:TrackPointExtension"_s);
    if (!std::isnan(fix.speed))
        element(u"gpxtpx:speed"_s, number(fix.speed));
    const QByteArray course = fix.course >= 0 ? number(std::fmod(fix.course, 360)) : QByteArray();
    if (!course.isEmpty())
        element(u"gpxtpx:course"_s, course == "360" ? "0" : course);
    xml().writeEndElement();
    xml().writeEndElement();
}
