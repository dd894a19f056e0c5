#ifndef TRACKPICTURE_H
#define TRACKPICTURE_H

#include "archive/vrk3format.h"
#include "cli/headertext.h"
#include "cli/trackstats.h"

#include <QList>
#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QXmlStreamWriter>

// Draws a track as SVG: its shape in true proportion, north up, with start, end, scale, title,
// length and time span. Connect the decoder's signal and the parser's signal for HDR records.
//
// Points without a usable position are left out. All positions are kept in memory.
class cTrackPicture : public QObject
{
    Q_OBJECT

public:
    // name becomes the title of the picture if the archive has none.
    explicit cTrackPicture(QString name, QObject *parent = nullptr);

    // Draws all points so far, at least one. stats must be about the same points. Returns an empty
    // array if a text cannot be written as XML.
    QByteArray svg(const cTrackStats &stats) const;

public Q_SLOTS:
    void slot_Data(const nmea_data &n);
    // Uses the first title that is not empty.
    void slot_Data(const HDR_T &hdr);

private:
    struct POINT_T {
        double lat;
        double lon;  // continuous across full turns
        double time; // seconds since 1970
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
    double _longestPause() const;
    QString _path(const VIEW_T &view, double longestPause) const;
    void _drawTrack(QXmlStreamWriter &svg, const VIEW_T &view) const;
    QRectF _placeFor(QSizeF size, QPointF point, const VIEW_T &view, const QRectF &taken) const;
    void _drawEnds(QXmlStreamWriter &svg, const VIEW_T &view, const cTrackStats &stats) const;

    QString m_name;
    cHeaderText m_title;
    QList<POINT_T> m_points;
};

#endif
