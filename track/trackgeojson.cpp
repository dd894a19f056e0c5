#include "track/trackgeojson.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <utility>

namespace
{
constexpr double HALF_TURN = 180;

// A longitude of 180 is the same as -180. Returns the fix; if it is on that meridian, its longitude
// gets the sign of the other fix's.
FIX_T _onSideOf(const FIX_T &other, FIX_T fix)
{
    if (std::fabs(fix.lon) == HALF_TURN)
        fix.lon = std::copysign(HALF_TURN, other.lon);
    return fix;
}

// Returns where the shorter way between two fixes crosses the 180th meridian: the end of the line
// before the cut, and the start of the line after it.
std::pair<FIX_T, FIX_T> _cut(const FIX_T &from, const FIX_T &to)
{
    const double before = HALF_TURN - std::fabs(from.lon);
    const double after = HALF_TURN - std::fabs(to.lon);
    const double part = before + after > 0 ? before / (before + after) : 0;
    FIX_T west = from;
    west.time += std::llround(part * double(to.time - from.time));
    west.lat += part * (to.lat - from.lat);
    west.altitude += part * (to.altitude - from.altitude);
    west.lon = std::copysign(HALF_TURN, from.lon);
    FIX_T east = west;
    east.lon = -west.lon;
    return {west, east};
}

// Calls position(fix, startsLine) for each position of a segment, cuts included, and goes to the
// next segment.
template <typename F>
void _walk(cTrackCursor &at, F &&position)
{
    const auto hasNext = [&at] { return !at.atEnd() && !at.startsSegment(); };
    FIX_T before = at.fix();
    at.next();
    if (hasNext())
        before = _onSideOf(at.fix(), before);
    position(before, true);
    for (; hasNext(); at.next()) {
        const FIX_T fix = _onSideOf(before, at.fix());
        if (std::fabs(fix.lon - before.lon) > HALF_TURN) {
            const auto [end, begin] = _cut(before, fix);
            if (before.lon != end.lon)
                position(end, false);
            position(begin, true);
        }
        before = fix;
        position(before, false);
    }
}
} // namespace

// QJsonDocument would hold the whole track in memory, so it writes only the title.
bool cTrackGeoJson::write(const cTrack &track, const QString &title)
{
    const QByteArray name =
        QJsonDocument(QJsonArray{title}).toJson(QJsonDocument::Compact).chopped(1).sliced(1);
    QByteArray between = R"({"type":"FeatureCollection","features":[)";
    // The size of a segment comes before its times, and these before its places.
    for (cTrackCursor counts(track), times(track), places(track); !counts.atEnd();) {
        Q_EMIT signal_Data(between + "\n{\"type\":\"Feature\",\"properties\":{\"name\":" + name);
        _feature(counts, times, places);
        between = ",";
    }
    Q_EMIT signal_Data("\n]}\n");
    return true;
}

void cTrackGeoJson::_feature(cTrackCursor &counts, cTrackCursor &times, cTrackCursor &places)
{
    const bool isDated = counts.fix().clock == FIX_CLOCK::FULL;
    qint64 positions = 0, lines = 0;
    _walk(counts, [&](const FIX_T &, bool startsLine) {
        ++positions;
        lines += startsLine;
    });
    const QByteArray open = lines > 1 ? "[\n" : "\n", close = lines > 1 ? "]" : "";
    const auto list = [&](cTrackCursor &at, auto &&text) {
        QByteArray between = open;
        _walk(at, [&](const FIX_T &fix, bool startsLine) {
            if (startsLine && between != open)
                between = "],[\n";
            Q_EMIT signal_Data(between + text(fix));
            between = ",\n";
        });
        Q_EMIT signal_Data(close);
    };
    if (isDated) {
        Q_EMIT signal_Data(R"(,"coordTimes":[)");
        list(times, [](const FIX_T &fix) { return '"' + timeText(fix.time) + '"'; });
        Q_EMIT signal_Data("]");
    } else {
        times.nextSegment();
    }
    Q_EMIT signal_Data(R"(},"geometry":{"type":")" +
                       QByteArray(positions == 1 ? "Point"
                                  : lines == 1   ? "LineString"
                                                 : "MultiLineString") +
                       R"(","coordinates":)" + (positions == 1 ? "" : "["));
    list(places, [](const FIX_T &fix) {
        return '[' + degrees(fix.lon) + ',' + degrees(fix.lat) +
               (std::isnan(fix.altitude) ? QByteArray() : ',' + number(fix.altitude)) + ']';
    });
    Q_EMIT signal_Data(positions == 1 ? "}}" : "]}}");
}
