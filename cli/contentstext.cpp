#include "cli/contentstext.h"

#include "cli/contents.h"
#include "cli/messages.h"
#include "cli/summary.h"

#include <QGeoCoordinate>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
QString _latitude(double value)
{
    return QString::number(qAbs(value), 'f', 6) + QLatin1String(value < 0 ? " S" : " N");
}

QString _longitude(double value)
{
    return QString::number(qAbs(value), 'f', 6) + QLatin1String(value < 0 ? " W" : " E");
}

// A line with a label and a value.
QString _line(const char *label, const QString &value)
{
    return u"  %1%2\n"_s.arg(QLatin1String(label), -11).arg(printable(value));
}

QString _streams(const cContents &contents)
{
    QString text = _line("Streams", u"  id type     blocks        bytes  texts"_s);
    for (const cContents::STREAM_COUNT_T &count : contents.streams()) {
        QStringList texts;
        for (const cHeaderText &each : count.texts) {
            if (each.size() > 0)
                texts.append(each.shown());
        }
        text += _line("", u"%1 %2 %3 %4  "_s.arg(count.id, 4)
                                  .arg(count.type, 4)
                                  .arg(count.blocks, 10)
                                  .arg(count.bytes, 12) +
                              texts.join(u", "_s));
    }
    const cContents::OMITTED_T omitted = contents.omitted();
    if (omitted.streams > 0)
        text += _line("", u"%1 %2  %3"_s.arg(omitted.blocks, 20)
                              .arg(omitted.bytes, 12)
                              .arg(counted(omitted.streams, "more stream")));
    return text;
}

QString _sentences(const cContents &contents)
{
    const NMEA_ACCOUNT_T &account = contents.sentences();
    QString text =
        _line("Sentences", u"           accepted  rejected: checksum     fields       form"_s);
    for (size_t kind = 0; kind < NMEA_KINDS; ++kind)
        text += _line("", u"%1 %2 %3 %4 %5"_s.arg(QLatin1String(NMEA_NAMES.at(kind)), -8)
                              .arg(account.accepted.at(kind), 10)
                              .arg(account.badChecksum.at(kind), 19)
                              .arg(account.tooFewFields.at(kind), 10)
                              .arg(account.malformed.at(kind), 10));
    const cSentenceNames &unread = contents.unread();
    const QString line = u"%1 %2 not read"_s;
    for (auto it = unread.counts().cbegin(); it != unread.counts().cend(); ++it)
        text += _line("", line.arg(QLatin1String(it.key()), -8).arg(it.value(), 10));
    if (unread.others() > 0)
        text += _line("", line.arg(u"others"_s, -8).arg(unread.others(), 10));
    return text;
}

// The figures that show whether the window reads the archive correctly.
QString _points(const cTrackStats &stats)
{
    QString points = counted(stats.points(), "point");
    if (stats.points() > stats.located())
        points += u", %1 of them without a fix"_s.arg(stats.points() - stats.located());
    return _line("Window", points);
}

// Hours, minutes and seconds.
QString _duration(qint64 milliseconds)
{
    const qint64 seconds = milliseconds / MS_PER_SECOND;
    return QString::asprintf("%lld:%02d:%02d", seconds / 3600, int(seconds / 60 % 60),
                             int(seconds % 60));
}

QString _track(const TRACK_SUMMARY_T &track)
{
    QString text = _line(
        "Track", u"%1 in %2"_s.arg(countedFixes(track.fixes), counted(track.segments, "segment")));
    if (track.fixes == 0)
        return text;
    text += _line("Time", timeSpan(track));
    if (track.first && track.last)
        text += _line("Duration", _duration(*track.last - *track.first));
    const QGeoCoordinate southWest = track.box.bottomLeft(), northEast = track.box.topRight();
    text += _line("Latitude", u"%1 to %2"_s.arg(_latitude(southWest.latitude()),
                                                _latitude(northEast.latitude())));
    text += _line("Longitude", u"%1 to %2"_s.arg(_longitude(southWest.longitude()),
                                                 _longitude(northEast.longitude())));
    text +=
        _line("Length", QString::number(track.metres / METRES_PER_KILOMETRE, 'f', 3) + u" km"_s);
    if (!std::isnan(track.topSpeed))
        text +=
            _line("Top speed", QString::number(track.topSpeed * KMH_PER_MPS, 'f', 1) + u" km/h"_s);
    if (!std::isnan(track.lowest))
        text += _line("Altitude",
                      u"%1 to %2 m"_s.arg(track.lowest, 0, 'f', 1).arg(track.highest, 0, 'f', 1));
    return text;
}

QString _damage(const ACCOUNT_T &account)
{
    QString text;
    const auto add = [&text](const QString &what) {
        text += _line(text.isEmpty() ? "Damage" : "", what);
    };
    const QString in = u"%1 in %2"_s;
    if (account.scanned > 0)
        add(in.arg(counted(account.scanned, "byte"), counted(account.stretchCount, "place")) +
            u" skipped"_s);
    for (const STRETCH_T &stretch : account.stretches)
        add(u"  %1 at offset %2"_s.arg(counted(stretch.length, "byte")).arg(stretch.offset));
    if (account.stretchCount > account.stretches.size())
        add(u"  and more"_s);
    if (account.lostBlocks > 0)
        add(in.arg(counted(account.lost, "byte"), counted(account.lostBlocks, "block")) +
            u" never completed"_s);
    if (account.unfinishedBlocks > 0)
        add(in.arg(counted(account.unfinished, "byte"),
                   counted(account.unfinishedBlocks, "block")) +
            u" incomplete at the end"_s);
    if (account.buffered > 0)
        add(u"%1 of an incomplete record at the end"_s.arg(counted(account.buffered, "byte")));
    if (text.isEmpty())
        add(u"none"_s);
    return text;
}
} // namespace

QString contentsText(const cContents &contents)
{
    QString text = printable(displayName(contents.archive(), u"standard input"_s)) + u'\n';
    for (const cHeaderText &title : contents.titles())
        text += _line("Title", title.shown());
    const QMap<int, cHeaderText> &texts = contents.texts();
    for (auto it = texts.cbegin(); it != texts.cend(); ++it)
        text += _line(qPrintable(u"Text %1"_s.arg(it.key())), it.value().shown());
    text +=
        _line("Records", u"%1 HDR, %2 IDX"_s.arg(contents.hdrRecords()).arg(contents.idxRecords()));
    return text + _streams(contents) + _sentences(contents) + _points(contents.stats()) +
           _track(contents.track()) + _damage(contents.account());
}
