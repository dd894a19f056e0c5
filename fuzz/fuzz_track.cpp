// Sends arbitrary bytes as receiver text through the reader of fixes, the track and all its
// writers. The first line is also the title.
#include "fuzz/harness.h"
#include "track/fixreader.h"
#include "track/track.h"
#include "track/trackcsv.h"
#include "track/trackgeojson.h"
#include "track/trackgpx.h"
#include "track/trackkml.h"

#include <QJsonDocument>
#include <QXmlStreamReader>

#include <cmath>
#include <limits>

namespace
{
QList<FIX_T> _read(const QByteArray &text, bool whole)
{
    QList<FIX_T> fixes;
    cFixReader reader;
    QObject::connect(&reader, &cFixReader::signal_Data, [&](const FIX_T &fix) {
        require(std::fabs(fix.lat) <= 90 && std::fabs(fix.lon) <= 180, "a fix is on earth");
        fixes.append(fix);
    });
    if (whole)
        reader.slot_Data(text);
    else
        inChunks(text, [&](const QByteArray &a) { reader.slot_Data(a); });
    reader.finish();
    require(reader.fixes() == fixes.size(), "fixes are counted");
    return fixes;
}

bool _isSame(const FIX_T &a, const FIX_T &b)
{
    const auto same = [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); };
    return a.time == b.time && a.lat == b.lat && a.lon == b.lon && same(a.altitude, b.altitude) &&
           same(a.speed, b.speed) && same(a.course, b.course) && same(a.hdop, b.hdop) &&
           a.satellites == b.satellites && a.repeat == b.repeat && a.clock == b.clock &&
           a.kind == b.kind;
}

QByteArray _write(cFixWriter &&writer, const cTrack &track, const QString &title)
{
    QByteArray file;
    QObject::connect(&writer, &cFixWriter::signal_Data, [&](const QByteArray &a) { file += a; });
    require(writer.write(track, title), "the writer succeeds");
    return file;
}

qint64 _countElements(const QByteArray &file, const char *name)
{
    qint64 count = 0;
    QXmlStreamReader xml(file);
    while (!xml.atEnd())
        count += xml.readNext() == QXmlStreamReader::StartElement &&
                 xml.name() == QLatin1StringView(name);
    require(!xml.hasError(), "XML is well-formed");
    return count;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray text = inputOf(data, size);
    const QList<FIX_T> fixes = _read(text, true);
    const QList<FIX_T> cut = _read(text, false);
    require(std::equal(fixes.begin(), fixes.end(), cut.begin(), cut.end(), _isSame),
            "the cut does not change the fixes");

    cTrack track;
    for (const FIX_T &fix : fixes)
        track.slot_Data(fix);
    track.finish();
    qint64 count = 0, time = std::numeric_limits<qint64>::min();
    for (cTrackCursor at(track); !at.atEnd(); at.next()) {
        require(at.fix().time >= time, "the track is in order of time");
        time = at.fix().time;
        ++count;
    }
    require(count <= fixes.size() && (count > 0) == !fixes.isEmpty(), "no fix is added or lost");
    if (count == 0)
        return 0;
    const QString title = QString::fromUtf8(text.left(text.indexOf('\n')));
    const QByteArray gpx = _write(cTrackGpx(), track, title);
    require(_countElements(gpx, "trkpt") == count, "GPX has all fixes");
    const QByteArray kml = _write(cTrackKml(), track, title);
    require(_countElements(kml, "when") == _countElements(kml, "coord"), "KML has all positions");
    require(!QJsonDocument::fromJson(_write(cTrackGeoJson(), track, title)).isNull(),
            "GeoJSON is well-formed");
    require(_write(cTrackCsv(), track, title).count("\r\n") == count + 1, "CSV has all fixes");
    return 0;
}
