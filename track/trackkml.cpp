#include "track/trackkml.h"

#include <cmath>

using namespace Qt::StringLiterals;

bool cTrackKml::write(const cTrack &track, const QString &title)
{
    start(u"kml"_s, u"http://www.opengis.net/kml/2.2"_s);
    xml().writeNamespace(u"http://www.google.com/kml/ext/2.2"_s, u"gx"_s);
    xml().writeStartElement(u"Document"_s);
    name(title);
    xml().writeStartElement(u"Style"_s);
    xml().writeAttribute(u"id"_s, u"track"_s);
    xml().writeStartElement(u"LineStyle"_s);
    element(u"color"_s, "ff0000ff"); // red, opaque
    element(u"width"_s, "4");
    xml().writeEndElement();
    xml().writeEndElement();
    // The times of a segment come before its places.
    for (cTrackCursor at(track), places(track); !at.atEnd();) {
        xml().writeCharacters(u"\n"_s);
        xml().writeStartElement(u"Placemark"_s);
        name(title);
        element(u"styleUrl"_s, "#track");
        if (at.fix().clock == FIX_CLOCK::FULL) {
            _track(at, places);
        } else {
            _line(at);
            places.nextSegment();
        }
        xml().writeEndElement();
    }
    return end();
}

void cTrackKml::_track(cTrackCursor &times, cTrackCursor &places)
{
    xml().writeStartElement(u"gx:Track"_s);
    do {
        xml().writeCharacters(u"\n"_s);
        element(u"when"_s, timeText(times.fix().time));
        send();
        times.next();
    } while (!times.atEnd() && !times.startsSegment());
    do {
        const FIX_T &fix = places.fix();
        // A gx:coord always has three numbers. Tracks follow the ground whatever the third one is.
        xml().writeCharacters(u"\n"_s);
        element(u"gx:coord"_s, degrees(fix.lon) + ' ' + degrees(fix.lat) + ' ' +
                                   (std::isnan(fix.altitude) ? "0" : number(fix.altitude)));
        send();
        places.next();
    } while (!places.atEnd() && !places.startsSegment());
    xml().writeEndElement();
}

void cTrackKml::_line(cTrackCursor &at)
{
    xml().writeStartElement(u"LineString"_s);
    xml().writeStartElement(u"coordinates"_s);
    do {
        const FIX_T &fix = at.fix();
        const QByteArray altitude =
            std::isnan(fix.altitude) ? QByteArray() : ',' + number(fix.altitude);
        xml().writeCharacters(
            QString::fromLatin1('\n' + degrees(fix.lon) + ',' + degrees(fix.lat) + altitude));
        send();
        at.next();
    } while (!at.atEnd() && !at.startsSegment());
    xml().writeEndElement();
    xml().writeEndElement();
}
