#ifndef TRACKPICTURE_H
#define TRACKPICTURE_H

#include "track/track.h"
#include "track/tracksummary.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QXmlStreamWriter>

// Draws a track as SVG: its shape in true proportion, north up, with start, end, scale, title,
// length and time span. All positions are kept in memory.
class cTrackPicture
{
public:
    // The track must be finished, and the summary must be that of the track. The track need not
    // outlive the call.
    cTrackPicture(const cTrack &track, TRACK_SUMMARY_T summary, QString title);

    // Returns the picture. Returns an empty array if the track has no fix or could not be read, or
    // if a text cannot be written as XML.
    QByteArray svg() const;

private:
    struct POINT_T {
        double lat;
        double lon; // continuous across full turns
        bool startsSegment;
    };
    // Maps positions to the picture.
    struct VIEW_T {
        double west = 0;
        double north = 0;
        double xScale = 0; // picture units per degree
        double yScale = 0;
        double metresPerUnit = 0;
        QRectF area; // of the track
        QPointF at(double lat, double lon) const;
    };

    VIEW_T _view() const;
    QString _path(const VIEW_T &view, bool isBroken) const;
    void _drawTrack(QXmlStreamWriter &svg, const VIEW_T &view) const;
    QRectF _placeFor(QSizeF size, QPointF point, const VIEW_T &view, const QRectF &taken) const;
    void _drawEnds(QXmlStreamWriter &svg, const VIEW_T &view) const;

    QString m_title;
    TRACK_SUMMARY_T m_summary;
    QList<POINT_T> m_points;
    FIX_T m_first;
    FIX_T m_last;
};

#endif
