#include "cli/contents.h"

#include "cli/command.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

static constexpr qsizetype MAX_TITLES = 16;
static constexpr double METRES_A_KILOMETRE = 1000;

// What the records hold as text, without the zero byte at its end.
static QString _decode(const QByteArray &string)
{
    return QString::fromUtf8(string.constData()); // up to the first zero byte
}

static int _key(const STREAM_T &stream)
{
    return stream.id << 8 | stream.type;
}

static QString _latitude(double value)
{
    return QString::number(qAbs(value), 'f', 6) + QLatin1String(value < 0 ? " S" : " N");
}

static QString _longitude(double value)
{
    return QString::number(qAbs(value), 'f', 6) + QLatin1String(value < 0 ? " W" : " E");
}

// A line of the text form: a label, and what it says.
static QString _line(const char *label, const QString &value)
{
    return u"  %1%2\n"_s.arg(QLatin1String(label), -11).arg(printable(value));
}

cContents::cContents(QObject *parent) : QObject(parent)
{
    connect(&m_reader.parser(), SIGNAL(signal_Data(HDR_T)), SLOT(slot_Data(HDR_T)));
    connect(&m_reader.parser(), SIGNAL(signal_Data(IDX_T)), SLOT(slot_Data(IDX_T)));
    connect(&m_reader.parser(), SIGNAL(signal_Data(DATA_T)), SLOT(slot_Data(DATA_T)));
    connect(&m_reader.raw(), SIGNAL(signal_Data(QByteArray)), &m_names,
            SLOT(slot_Data(QByteArray)));
}

QString cContents::read(const QString &archive, bool showProgress)
{
    m_archive = archive;
    const QString failure = m_reader.read(archive, showProgress);
    return failure.isEmpty() ? whyNoArchive(m_reader.parser().account()) : failure;
}

void cContents::slot_Data(const HDR_T &hdr)
{
    ++m_hdrRecords;
    const QString title = _decode(hdr.title);
    if (!m_titles.contains(title) && m_titles.size() < MAX_TITLES)
        m_titles.append(title);
    for (int tag = 1; tag <= TAG_MAX; ++tag) {
        if (!hdr.texts.at(tag).isEmpty())
            m_texts[tag] = _decode(hdr.texts.at(tag));
    }
    for (const STREAM_T &stream : hdr.streams)
        m_streams[_key(stream)].stream = stream;
}

void cContents::slot_Data(const IDX_T &)
{
    ++m_idxRecords;
}

void cContents::slot_Data(const DATA_T &d)
{
    STREAM_COUNT_T &count = m_streams[_key(d.stream)];
    ++count.blocks;
    count.bytes += d.payload.size();
}

QJsonObject cContents::json() const
{
    QJsonObject texts;
    for (auto it = m_texts.cbegin(); it != m_texts.cend(); ++it)
        texts[QString::number(it.key())] = it.value();
    QJsonArray streams;
    for (const STREAM_COUNT_T &count : m_streams) {
        const STREAM_T &s = count.stream;
        const QJsonArray names{_decode(s.textA), _decode(s.textB), _decode(s.textC)};
        streams.append(QJsonObject{{u"id"_s, s.id},
                                   {u"type"_s, s.type},
                                   {u"texts"_s, names},
                                   {u"blocks"_s, count.blocks},
                                   {u"bytes"_s, count.bytes}});
    }
    const ACCOUNT_T account = m_reader.parser().account();
    QJsonArray stretches;
    for (const STRETCH_T &stretch : account.stretches)
        stretches.append(QJsonObject{{u"offset"_s, stretch.offset}, {u"length"_s, stretch.length}});
    const QJsonObject bytes{{u"total"_s, account.received},
                            {u"hdr"_s, account.hdr},
                            {u"idx"_s, account.idx},
                            {u"heads"_s, account.heads},
                            {u"delivered"_s, account.delivered},
                            {u"skipped"_s, account.scanned},
                            {u"lost"_s, account.lost},
                            {u"unfinished"_s, account.unfinished},
                            {u"incomplete"_s, account.buffered}};
    const QJsonObject damage{{u"stretches"_s, account.stretchCount},
                             {u"firstStretches"_s, stretches},
                             {u"lostBlocks"_s, account.lostBlocks},
                             {u"unfinishedBlocks"_s, account.unfinishedBlocks}};
    return {{u"file"_s, m_archive},
            {u"titles"_s, QJsonArray::fromStringList(m_titles)},
            {u"texts"_s, texts},
            {u"hdrRecords"_s, m_hdrRecords},
            {u"idxRecords"_s, m_idxRecords},
            {u"streams"_s, streams},
            {u"gps"_s, _gpsJson()},
            {u"bytes"_s, bytes},
            {u"damage"_s, damage}};
}

QJsonObject cContents::_gpsJson() const
{
    const NMEA_ACCOUNT_T &read = m_reader.nmea().account();
    QJsonObject sentences;
    for (size_t kind = 0; kind < NMEA_KINDS; ++kind)
        sentences[QLatin1String(NAMES_READ.at(kind))] =
            QJsonObject{{u"accepted"_s, read.accepted.at(kind)},
                        {u"badChecksum"_s, read.badChecksum.at(kind)},
                        {u"tooFewFields"_s, read.tooFewFields.at(kind)},
                        {u"malformed"_s, read.malformed.at(kind)}};
    QJsonObject unread;
    for (auto it = m_names.counts().cbegin(); it != m_names.counts().cend(); ++it)
        unread[QLatin1String(it.key())] = it.value();
    const cTrackStats &stats = m_reader.stats();
    QJsonObject gps{{u"blocks"_s, stats.textBlocks()},
                    {u"bytes"_s, stats.textBytes()},
                    {u"sentences"_s, sentences},
                    {u"unread"_s, unread},
                    {u"unreadOtherNames"_s, m_names.others()},
                    {u"points"_s, stats.points()},
                    {u"located"_s, stats.located()},
                    {u"first"_s, QJsonValue::Null},
                    {u"last"_s, QJsonValue::Null},
                    {u"box"_s, QJsonValue::Null},
                    {u"kilometres"_s, stats.metres() / METRES_A_KILOMETRE}};
    if (stats.located() > 0) {
        const auto timeOrNull = [](const nmea_data &n) {
            const QString time = pointTime(n);
            return time.isEmpty() ? QJsonValue() : QJsonValue(time);
        };
        gps[u"first"_s] = timeOrNull(stats.first());
        gps[u"last"_s] = timeOrNull(stats.last());
        gps[u"box"_s] = QJsonObject{{u"south"_s, stats.south()},
                                    {u"west"_s, stats.west()},
                                    {u"north"_s, stats.north()},
                                    {u"east"_s, stats.east()}};
    }
    return gps;
}

QString cContents::text() const
{
    const QString name = displayName(m_archive, u"standard input"_s);
    QString text = printable(name) + u'\n';
    for (const QString &title : m_titles)
        text += _line("Title", title);
    for (auto it = m_texts.cbegin(); it != m_texts.cend(); ++it)
        text += _line(qPrintable(u"Text %1"_s.arg(it.key())), it.value());
    text += _line("Records", u"%1 HDR, %2 IDX"_s.arg(m_hdrRecords).arg(m_idxRecords));
    return text + _streamText() + _sentenceText() + _trackText() + _damageText();
}

QString cContents::_streamText() const
{
    QString text = _line("Streams", u"  id type     blocks        bytes  texts"_s);
    for (const STREAM_COUNT_T &count : m_streams) {
        const STREAM_T &s = count.stream;
        QStringList texts{_decode(s.textA), _decode(s.textB), _decode(s.textC)};
        texts.removeAll(QString());
        text += _line("", u"%1 %2 %3 %4  "_s.arg(s.id, 4)
                                  .arg(s.type, 4)
                                  .arg(count.blocks, 10)
                                  .arg(count.bytes, 12) +
                              texts.join(u", "_s));
    }
    return text;
}

QString cContents::_sentenceText() const
{
    const NMEA_ACCOUNT_T &read = m_reader.nmea().account();
    QString text = _line("Sentences", u"           accepted   checksum     fields       form"_s);
    for (size_t kind = 0; kind < NMEA_KINDS; ++kind)
        text += _line("", u"%1 %2 %3 %4 %5"_s.arg(QLatin1String(NAMES_READ.at(kind)), -8)
                              .arg(read.accepted.at(kind), 10)
                              .arg(read.badChecksum.at(kind), 10)
                              .arg(read.tooFewFields.at(kind), 10)
                              .arg(read.malformed.at(kind), 10));
    const QString unread = u"%1 %2 not read"_s;
    for (auto it = m_names.counts().cbegin(); it != m_names.counts().cend(); ++it)
        text += _line("", unread.arg(QLatin1String(it.key()), -8).arg(it.value(), 10));
    if (m_names.others() > 0)
        text += _line("", unread.arg(u"others"_s, -8).arg(m_names.others(), 10));
    return text;
}

QString cContents::_trackText() const
{
    const cTrackStats &stats = m_reader.stats();
    QString points = QString::number(stats.points());
    if (stats.points() > stats.located())
        points += u", %1 of them without a fix"_s.arg(stats.points() - stats.located());
    QString text = _line("Points", points);
    if (stats.located() == 0)
        return text;
    text += _line("Time", u"%1 to %2"_s.arg(pointTime(stats.first()), pointTime(stats.last())));
    text +=
        _line("Latitude", u"%1 to %2"_s.arg(_latitude(stats.south()), _latitude(stats.north())));
    text +=
        _line("Longitude", u"%1 to %2"_s.arg(_longitude(stats.west()), _longitude(stats.east())));
    const double kilometres = stats.metres() / METRES_A_KILOMETRE;
    return text + _line("Length", QString::number(kilometres, 'f', 3) + u" km"_s);
}

QString cContents::_damageText() const
{
    const ACCOUNT_T account = m_reader.parser().account();
    QString text;
    const auto tell = [&text](const QString &what) {
        text += _line(text.isEmpty() ? "Damage" : "", what);
    };
    const QString amount = u"%1 bytes in %2 %3"_s;
    if (account.scanned > 0)
        tell(amount.arg(account.scanned).arg(account.stretchCount).arg(u"stretches skipped"_s));
    for (const STRETCH_T &stretch : account.stretches)
        tell(u"  %1 bytes at offset %2"_s.arg(stretch.length).arg(stretch.offset));
    if (account.stretchCount > account.stretches.size())
        tell(u"  and more"_s);
    if (account.lostBlocks > 0)
        tell(amount.arg(account.lost)
                 .arg(account.lostBlocks)
                 .arg(u"blocks that were never finished"_s));
    if (account.unfinishedBlocks > 0)
        tell(amount.arg(account.unfinished)
                 .arg(account.unfinishedBlocks)
                 .arg(u"blocks unfinished at the end"_s));
    if (account.buffered > 0)
        tell(u"%1 bytes of an incomplete record at the end"_s.arg(account.buffered));
    if (text.isEmpty())
        tell(u"none"_s);
    return text;
}
