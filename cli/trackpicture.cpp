#include "cli/trackpicture.h"

#include "cli/messages.h"
#include "cli/summary.h"
#include "cli/textwidth.h"
#include "cli/trackstats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
// Sizes in picture units. Screens show a unit as a pixel.
constexpr double WIDTH = 960;
constexpr double MARGIN = 24;
constexpr double HEADING_HEIGHT = 92;
constexpr double FOOTING_HEIGHT = 64;
constexpr double PANEL_PADDING = 48;
constexpr double MIN_PANEL_HEIGHT = 260;
constexpr double MAX_PANEL_HEIGHT = 800;
constexpr double MAX_SCALE_BAR = 220;
constexpr double LINE_STEP = 0.8; // closer points are merged

constexpr double METRES_PER_DEGREE = EARTH_RADIUS * std::numbers::pi / 180;
constexpr double MIN_EXTENT = 50; // metres; a parked car must not fill the picture

constexpr const char *INK = "#1f2933";
constexpr const char *FAINT_INK = "#52606d";
constexpr const char *TRACK = "#1d5fd1";
constexpr const char *START = "#1a7f37";
constexpr const char *END = "#c4242b";

using attributes = std::initializer_list<std::pair<const char *, QString>>;

QString _number(double value)
{
    return QString::number(value, 'f', 1);
}

void _element(QXmlStreamWriter &svg, const char *name, const attributes &list)
{
    svg.writeEmptyElement(QLatin1String(name));
    for (const auto &[key, value] : list)
        svg.writeAttribute(QLatin1String(key), value);
}

void _text(QXmlStreamWriter &svg, QPointF at, const QString &text, const attributes &list)
{
    svg.writeStartElement(u"text"_s);
    svg.writeAttribute(u"x"_s, _number(at.x()));
    svg.writeAttribute(u"y"_s, _number(at.y()));
    for (const auto &[key, value] : list)
        svg.writeAttribute(QLatin1String(key), value);
    svg.writeCharacters(text);
    svg.writeEndElement();
}

QString _lengthText(double metres)
{
    if (metres < METRES_PER_KILOMETRE)
        return u"%1 m"_s.arg(std::round(metres));
    return u"%1 km"_s.arg(metres / METRES_PER_KILOMETRE, 0, 'f',
                          metres < 100 * METRES_PER_KILOMETRE ? 2 : 0);
}

// Returns the greatest of 1, 2, 5, 10, 20, ... up to the limit, which must be at least 1.
double _roundBelow(double limit)
{
    const double power = std::pow(10, std::floor(std::log10(limit)));
    const double lead = limit / power;
    return power * (lead >= 5 ? 5 : lead >= 2 ? 2 : 1);
}

void _drawHeading(QXmlStreamWriter &svg, const QString &title, const TRACK_SUMMARY_T &summary)
{
    constexpr double fontSize = 24;
    _text(svg, {MARGIN, 44}, fittedText(title, (WIDTH - 2 * MARGIN) / fontSize),
          {{"font-size", QString::number(fontSize)},
           {"font-weight", u"bold"_s},
           {"fill", QLatin1String(INK)}});
    const QString separator = u"  \u00b7  "_s;
    _text(svg, {MARGIN, 72}, _lengthText(summary.metres) + separator + timeSpan(summary),
          {{"font-size", u"16"_s}, {"fill", QLatin1String(FAINT_INK)}});
}

void _drawScaleBar(QXmlStreamWriter &svg, QPointF at, double metresPerUnit)
{
    const double metres = _roundBelow(MAX_SCALE_BAR * metresPerUnit);
    const double length = metres / metresPerUnit;
    _element(svg, "path",
             {{"d", u"M%1 %2v8h%3v-8"_s.arg(_number(at.x()), _number(at.y() - 8), _number(length))},
              {"fill", u"none"_s},
              {"stroke", QLatin1String(INK)},
              {"stroke-width", u"2"_s}});
    const QString text = metres < METRES_PER_KILOMETRE
                             ? u"%1 m"_s.arg(metres)
                             : u"%1 km"_s.arg(metres / METRES_PER_KILOMETRE);
    _text(svg, {at.x() + length + 12, at.y() + 1}, text,
          {{"font-size", u"16"_s}, {"fill", QLatin1String(INK)}});
}

void _drawNorth(QXmlStreamWriter &svg, QPointF at)
{
    _element(svg, "path",
             {{"d", u"M%1 %2l7 20l-7 -5l-7 5z"_s.arg(_number(at.x()), _number(at.y() - 20))},
              {"fill", QLatin1String(INK)}});
    _text(svg, {at.x() - 14, at.y() - 2}, u"N"_s,
          {{"font-size", u"16"_s}, {"text-anchor", u"end"_s}, {"fill", QLatin1String(INK)}});
}

} // namespace

cTrackPicture::cTrackPicture(const cTrack &track, TRACK_SUMMARY_T summary, QString title)
    : m_title(std::move(title)), m_summary(std::move(summary))
{
    for (cTrackCursor at(track); !at.atEnd(); at.next()) {
        m_last = at.fix();
        if (m_points.isEmpty())
            m_first = m_last;
        const double before = m_points.isEmpty() ? m_last.lon : m_points.constLast().lon;
        m_points.append(
            {m_last.lat, cTrackStats::nearestTurn(m_last.lon, before), at.startsSegment()});
    }
    if (!track.error().isEmpty())
        m_points.clear();
}

QPointF cTrackPicture::VIEW_T::at(double lat, double lon) const
{
    return {area.left() + (lon - west) * xScale, area.top() + (north - lat) * yScale};
}

// Both axes have the same scale, which is exact at the middle latitude of the track.
cTrackPicture::VIEW_T cTrackPicture::_view() const
{
    const auto byLat = [](const POINT_T &a, const POINT_T &b) { return a.lat < b.lat; };
    const auto byLon = [](const POINT_T &a, const POINT_T &b) { return a.lon < b.lon; };
    const auto [south, north] = std::minmax_element(m_points.begin(), m_points.end(), byLat);
    const auto [west, east] = std::minmax_element(m_points.begin(), m_points.end(), byLon);
    const double middle = (south->lat + north->lat) / 2;
    const double lonMetres =
        METRES_PER_DEGREE * std::max(std::cos(middle * std::numbers::pi / 180), 0.01);
    const double width = (east->lon - west->lon) * lonMetres;
    const double height = (north->lat - south->lat) * METRES_PER_DEGREE;

    const double areaWidth = WIDTH - 2 * (MARGIN + PANEL_PADDING);
    const double areaHeight = MAX_PANEL_HEIGHT - 2 * PANEL_PADDING;
    VIEW_T view;
    view.metresPerUnit = std::max({width / areaWidth, height / areaHeight, MIN_EXTENT / areaWidth});
    view.xScale = lonMetres / view.metresPerUnit;
    view.yScale = METRES_PER_DEGREE / view.metresPerUnit;
    view.area = QRectF(MARGIN + PANEL_PADDING, HEADING_HEIGHT + PANEL_PADDING, areaWidth,
                       std::max(height / view.metresPerUnit, MIN_PANEL_HEIGHT - 2 * PANEL_PADDING));
    // The track is in the middle of the area.
    view.west = west->lon - (areaWidth - width / view.metresPerUnit) / 2 / view.xScale;
    view.north = north->lat + (view.area.height() - height / view.metresPerUnit) / 2 / view.yScale;
    return view;
}

// Returns the line through all points, interrupted between segments if isBroken is set.
QString cTrackPicture::_path(const VIEW_T &view, bool isBroken) const
{
    QString path;
    QPointF drawn;
    for (qsizetype i = 0; i < m_points.size(); ++i) {
        const POINT_T &point = m_points.at(i);
        const QPointF at = view.at(point.lat, point.lon);
        const bool begins = i == 0 || (isBroken && point.startsSegment);
        const bool ends =
            i + 1 == m_points.size() || (isBroken && m_points.at(i + 1).startsSegment);
        const QPointF step = at - drawn;
        if (!begins && !ends && QPointF::dotProduct(step, step) < LINE_STEP * LINE_STEP)
            continue;
        const QString place = u"%1 %2"_s.arg(_number(at.x()), _number(at.y()));
        path += (begins ? u"M"_s : u"L"_s) + place;
        if (begins && ends)
            path += u"L"_s + place; // which makes a dot
        drawn = at;
    }
    return path;
}

void cTrackPicture::_drawTrack(QXmlStreamWriter &svg, const VIEW_T &view) const
{
    const auto draw = [&svg](const QString &path, const char *color, const char *width,
                             const char *dashes) {
        _element(svg, "path",
                 {{"d", path},
                  {"fill", u"none"_s},
                  {"stroke", QLatin1String(color)},
                  {"stroke-width", QLatin1String(width)},
                  {"stroke-dasharray", QLatin1String(dashes)},
                  {"stroke-linejoin", u"round"_s},
                  {"stroke-linecap", u"round"_s}});
    };
    const QString line = _path(view, true);
    draw(_path(view, false), FAINT_INK, "1.5", "1 6");
    draw(line, "#ffffff", "7", "none");
    draw(line, TRACK, "3.5", "none");
}

// Finds a place near a point for a text of this size that covers as little of the track as possible
// and does not touch the taken rectangle.
QRectF cTrackPicture::_placeFor(QSizeF size, QPointF point, const VIEW_T &view,
                                const QRectF &taken) const
{
    constexpr double away = 14;
    const QRectF room(MARGIN, HEADING_HEIGHT, WIDTH - 2 * MARGIN,
                      view.area.height() + 2 * PANEL_PADDING);
    const double centred =
        std::clamp(point.x() - size.width() / 2, room.left(), room.right() - size.width());
    const double level = point.y() - size.height() / 2;
    const std::array<QRectF, 4> places = {{{{point.x() + away, level}, size},
                                           {{point.x() - away - size.width(), level}, size},
                                           {{centred, point.y() - away - size.height()}, size},
                                           {{centred, point.y() + away}, size}}};
    const auto covered = [&](const QRectF &place) {
        if (!room.contains(place) || place.intersects(taken))
            return m_points.size() + 1;
        return std::count_if(m_points.begin(), m_points.end(), [&](const POINT_T &p) {
            return place.contains(view.at(p.lat, p.lon));
        });
    };
    return *std::min_element(places.begin(), places.end(), [&](const QRectF &x, const QRectF &y) {
        return covered(x) < covered(y);
    });
}

void cTrackPicture::_drawEnds(QXmlStreamWriter &svg, const VIEW_T &view) const
{
    constexpr double fontSize = 16;
    constexpr double textHeight = 20;
    constexpr double baseline = 15; // below the top of the text
    QRectF taken;
    const auto draw = [&](const POINT_T &point, const char *color, const QString &text) {
        const QPointF at = view.at(point.lat, point.lon);
        _element(svg, "circle",
                 {{"cx", _number(at.x())},
                  {"cy", _number(at.y())},
                  {"r", u"8"_s},
                  {"fill", QLatin1String(color)},
                  {"stroke", u"#ffffff"_s},
                  {"stroke-width", u"3"_s}});
        const QSizeF size(textEms(text) * fontSize, textHeight);
        const QRectF place = _placeFor(size, at, view, taken);
        taken = place;
        const bool isLeft = place.right() < at.x();
        const bool isRight = place.left() > at.x();
        const double anchor = isLeft ? place.right() : isRight ? place.left() : place.center().x();
        _text(svg, {anchor, place.top() + baseline}, text,
              {{"font-size", QString::number(fontSize)},
               {"font-weight", u"bold"_s},
               {"text-anchor", QLatin1String(isLeft    ? "end"
                                             : isRight ? "start"
                                                       : "middle")},
               {"fill", QLatin1String(color)},
               {"stroke", u"#ffffff"_s},
               {"stroke-width", u"5"_s},
               {"stroke-linejoin", u"round"_s},
               {"paint-order", u"stroke"_s}});
    };
    const auto time = [](const FIX_T &fix) {
        constexpr int timeAt = 11; // in "2011-03-23T12:01:07Z"
        constexpr int timeLength = 8;
        return fix.clock == FIX_CLOCK::NONE
                   ? u"(no time)"_s
                   : QString::fromLatin1(timeText(fix.time).mid(timeAt, timeLength));
    };
    draw(m_points.constLast(), END, u"End "_s + time(m_last));
    draw(m_points.constFirst(), START, u"Start "_s + time(m_first));
}

QByteArray cTrackPicture::svg() const
{
    if (m_points.isEmpty())
        return {};
    const VIEW_T view = _view();
    const QRectF panel =
        view.area.adjusted(-PANEL_PADDING, -PANEL_PADDING, PANEL_PADDING, PANEL_PADDING);
    const QString width = QString::number(WIDTH);
    const QString height = QString::number(std::ceil(panel.bottom() + FOOTING_HEIGHT));
    const QString title = printable(m_title);

    QByteArray bytes;
    QXmlStreamWriter svg(&bytes);
    svg.setAutoFormatting(true);
    svg.setAutoFormattingIndent(1);
    svg.writeStartDocument();
    svg.writeStartElement(u"svg"_s);
    svg.writeDefaultNamespace(u"http://www.w3.org/2000/svg"_s);
    svg.writeAttribute(u"width"_s, width);
    svg.writeAttribute(u"height"_s, height);
    svg.writeAttribute(u"viewBox"_s, u"0 0 %1 %2"_s.arg(width, height));
    svg.writeAttribute(u"font-family"_s, u"sans-serif"_s);
    svg.writeTextElement(u"title"_s, title);
    _element(svg, "rect", {{"width", width}, {"height", height}, {"fill", u"#ffffff"_s}});
    _element(svg, "rect",
             {{"x", _number(panel.x())},
              {"y", _number(panel.y())},
              {"width", _number(panel.width())},
              {"height", _number(panel.height())},
              {"rx", u"6"_s},
              {"fill", u"#f1f4f7"_s},
              {"stroke", u"#cbd2d9"_s}});
    _drawHeading(svg, title, m_summary);
    _drawTrack(svg, view);
    _drawEnds(svg, view);
    const double footing = panel.bottom() + FOOTING_HEIGHT / 2 + 8;
    _drawScaleBar(svg, {MARGIN, footing}, view.metresPerUnit);
    _drawNorth(svg, {WIDTH - MARGIN - 8, footing});
    svg.writeEndDocument();
    return svg.hasError() ? QByteArray() : bytes;
}
