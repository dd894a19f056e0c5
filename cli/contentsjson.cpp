#include "cli/contentsjson.h"

#include "cli/contents.h"
#include "cli/summary.h"

#include <QGeoCoordinate>
#include <QJsonArray>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
template <typename T>
QJsonArray _texts(const T &texts)
{
    QJsonArray array;
    for (const cHeaderText &text : texts)
        array.append(text.start());
    return array;
}

QJsonArray _streams(const cContents &contents)
{
    QJsonArray streams;
    for (const cContents::STREAM_COUNT_T &count : contents.streams()) {
        streams.append(QJsonObject{{u"id"_s, count.id},
                                   {u"type"_s, count.type},
                                   {u"texts"_s, _texts(count.texts)},
                                   {u"blocks"_s, count.blocks},
                                   {u"bytes"_s, count.bytes}});
    }
    return streams;
}

QJsonObject _omitted(const cContents::OMITTED_T &omitted)
{
    return {{u"texts"_s, omitted.texts},
            {u"streams"_s, omitted.streams},
            {u"blocks"_s, omitted.blocks},
            {u"bytes"_s, omitted.bytes}};
}

QJsonObject _sentences(const NMEA_ACCOUNT_T &account)
{
    QJsonObject sentences;
    for (size_t kind = 0; kind < NMEA_KINDS; ++kind)
        sentences[QLatin1String(NMEA_NAMES.at(kind))] =
            QJsonObject{{u"accepted"_s, account.accepted.at(kind)},
                        {u"badChecksum"_s, account.badChecksum.at(kind)},
                        {u"tooFewFields"_s, account.tooFewFields.at(kind)},
                        {u"malformed"_s, account.malformed.at(kind)}};
    return sentences;
}

QJsonObject _box(double south, double west, double north, double east)
{
    return {{u"south"_s, south}, {u"west"_s, west}, {u"north"_s, north}, {u"east"_s, east}};
}

// Removes the digits that come only from the conversion of minutes.
double _degrees(double value)
{
    constexpr double parts = 1e9;
    return std::round(value * parts) / parts;
}

QJsonObject _track(const TRACK_SUMMARY_T &track)
{
    const auto timeOrNull = [](const std::optional<qint64> &time) {
        return time ? QJsonValue(QLatin1StringView(timeText(*time))) : QJsonValue();
    };
    const auto numberOrNull = [](double value) {
        return std::isnan(value) ? QJsonValue() : QJsonValue(value);
    };
    QJsonObject object{{u"fixes"_s, track.fixes},
                       {u"segments"_s, track.segments},
                       {u"first"_s, timeOrNull(track.first)},
                       {u"last"_s, timeOrNull(track.last)},
                       {u"seconds"_s, QJsonValue::Null},
                       {u"box"_s, QJsonValue::Null},
                       {u"kilometres"_s, track.metres / METRES_PER_KILOMETRE},
                       {u"topKilometresPerHour"_s, numberOrNull(track.topSpeed * KMH_PER_MPS)},
                       {u"lowestMetres"_s, numberOrNull(track.lowest)},
                       {u"highestMetres"_s, numberOrNull(track.highest)}};
    if (track.first && track.last)
        object[u"seconds"_s] = double(*track.last - *track.first) / MS_PER_SECOND;
    if (track.fixes > 0)
        object[u"box"_s] = _box(_degrees(track.box.bottomLeft().latitude()),
                                _degrees(track.box.bottomLeft().longitude()),
                                _degrees(track.box.topRight().latitude()),
                                _degrees(track.box.topRight().longitude()));
    return object;
}

QJsonObject _gps(const cContents &contents)
{
    const cSentenceNames &names = contents.unread();
    QJsonObject unread;
    for (auto it = names.counts().cbegin(); it != names.counts().cend(); ++it)
        unread[QLatin1String(it.key())] = it.value();
    const cTrackStats &stats = contents.stats();
    QJsonObject gps{{u"blocks"_s, stats.textBlocks()},
                    {u"bytes"_s, stats.textBytes()},
                    {u"sentences"_s, _sentences(contents.sentences())},
                    {u"unread"_s, unread},
                    {u"unreadOtherNames"_s, names.others()},
                    {u"points"_s, stats.points()},
                    {u"located"_s, stats.located()},
                    {u"first"_s, QJsonValue::Null},
                    {u"last"_s, QJsonValue::Null},
                    {u"box"_s, QJsonValue::Null},
                    {u"kilometres"_s, stats.metres() / METRES_PER_KILOMETRE},
                    {u"track"_s, _track(contents.track())}};
    if (stats.located() > 0) {
        const auto timeOrNull = [](const nmea_data &n) {
            const QString time = pointTime(n);
            return time.isEmpty() ? QJsonValue() : QJsonValue(time);
        };
        gps[u"first"_s] = timeOrNull(stats.first());
        gps[u"last"_s] = timeOrNull(stats.last());
        gps[u"box"_s] = _box(stats.south(), stats.west(), stats.north(), stats.east());
    }
    return gps;
}

QJsonObject _bytes(const ACCOUNT_T &account)
{
    return {{u"total"_s, account.received},
            {u"hdr"_s, account.hdr},
            {u"idx"_s, account.idx},
            {u"heads"_s, account.heads},
            {u"delivered"_s, account.delivered},
            {u"skipped"_s, account.scanned},
            {u"lost"_s, account.lost},
            {u"unfinished"_s, account.unfinished},
            {u"incomplete"_s, account.buffered}};
}

QJsonObject _damage(const ACCOUNT_T &account)
{
    QJsonArray stretches;
    for (const STRETCH_T &stretch : account.stretches)
        stretches.append(QJsonObject{{u"offset"_s, stretch.offset}, {u"length"_s, stretch.length}});
    return {{u"stretches"_s, account.stretchCount},
            {u"firstStretches"_s, stretches},
            {u"lostBlocks"_s, account.lostBlocks},
            {u"unfinishedBlocks"_s, account.unfinishedBlocks}};
}
} // namespace

QJsonObject contentsJson(const cContents &contents)
{
    QJsonObject texts;
    const QMap<int, cHeaderText> &byTag = contents.texts();
    for (auto it = byTag.cbegin(); it != byTag.cend(); ++it)
        texts[QString::number(it.key())] = it.value().start();
    const ACCOUNT_T &account = contents.account();
    return {{u"file"_s, contents.archive()},
            {u"titles"_s, _texts(contents.titles())},
            {u"texts"_s, texts},
            {u"hdrRecords"_s, contents.hdrRecords()},
            {u"idxRecords"_s, contents.idxRecords()},
            {u"streams"_s, _streams(contents)},
            {u"omitted"_s, _omitted(contents.omitted())},
            {u"gps"_s, _gps(contents)},
            {u"bytes"_s, _bytes(account)},
            {u"damage"_s, _damage(account)}};
}
