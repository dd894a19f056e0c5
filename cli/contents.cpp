#include "contents.h"

#include "command.h"

#include <QJsonArray>

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
    return QStringLiteral("  %1%2\n").arg(QLatin1String(label), -11).arg(printable(value));
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
        streams.append(QJsonObject{{QStringLiteral("id"), s.id},
                                   {QStringLiteral("type"), s.type},
                                   {QStringLiteral("texts"), names},
                                   {QStringLiteral("blocks"), count.blocks},
                                   {QStringLiteral("bytes"), count.bytes}});
    }
    const ACCOUNT_T account = m_reader.parser().account();
    QJsonArray stretches;
    for (const STRETCH_T &stretch : account.stretches)
        stretches.append(QJsonObject{{QStringLiteral("offset"), stretch.offset},
                                     {QStringLiteral("length"), stretch.length}});
    const QJsonObject bytes{{QStringLiteral("total"), account.received},
                            {QStringLiteral("hdr"), account.hdr},
                            {QStringLiteral("idx"), account.idx},
                            {QStringLiteral("heads"), account.heads},
                            {QStringLiteral("delivered"), account.delivered},
                            {QStringLiteral("skipped"), account.scanned},
                            {QStringLiteral("lost"), account.lost},
                            {QStringLiteral("unfinished"), account.unfinished},
                            {QStringLiteral("incomplete"), account.buffered}};
    const QJsonObject damage{{QStringLiteral("stretches"), account.stretchCount},
                             {QStringLiteral("firstStretches"), stretches},
                             {QStringLiteral("lostBlocks"), account.lostBlocks},
                             {QStringLiteral("unfinishedBlocks"), account.unfinishedBlocks}};
    return {{QStringLiteral("file"), m_archive},
            {QStringLiteral("titles"), QJsonArray::fromStringList(m_titles)},
            {QStringLiteral("texts"), texts},
            {QStringLiteral("hdrRecords"), m_hdrRecords},
            {QStringLiteral("idxRecords"), m_idxRecords},
            {QStringLiteral("streams"), streams},
            {QStringLiteral("gps"), _gpsJson()},
            {QStringLiteral("bytes"), bytes},
            {QStringLiteral("damage"), damage}};
}

QJsonObject cContents::_gpsJson() const
{
    const NMEA_ACCOUNT_T &read = m_reader.nmea().account();
    QJsonObject sentences;
    for (size_t kind = 0; kind < NMEA_KINDS; ++kind)
        sentences[QLatin1String(NAMES_READ.at(kind))] =
            QJsonObject{{QStringLiteral("accepted"), read.accepted.at(kind)},
                        {QStringLiteral("badChecksum"), read.badChecksum.at(kind)},
                        {QStringLiteral("tooFewFields"), read.tooFewFields.at(kind)},
                        {QStringLiteral("malformed"), read.malformed.at(kind)}};
    QJsonObject unread;
    for (auto it = m_names.counts().cbegin(); it != m_names.counts().cend(); ++it)
        unread[QLatin1String(it.key())] = it.value();
    const cTrackStats &stats = m_reader.stats();
    QJsonObject gps{{QStringLiteral("blocks"), stats.textBlocks()},
                    {QStringLiteral("bytes"), stats.textBytes()},
                    {QStringLiteral("sentences"), sentences},
                    {QStringLiteral("unread"), unread},
                    {QStringLiteral("unreadOtherNames"), m_names.others()},
                    {QStringLiteral("points"), stats.points()},
                    {QStringLiteral("located"), stats.located()},
                    {QStringLiteral("first"), QJsonValue::Null},
                    {QStringLiteral("last"), QJsonValue::Null},
                    {QStringLiteral("box"), QJsonValue::Null},
                    {QStringLiteral("kilometres"), stats.metres() / METRES_A_KILOMETRE}};
    if (stats.located() > 0) {
        const auto timeOrNull = [](const nmea_data &n) {
            const QString time = pointTime(n);
            return time.isEmpty() ? QJsonValue() : QJsonValue(time);
        };
        gps[QStringLiteral("first")] = timeOrNull(stats.first());
        gps[QStringLiteral("last")] = timeOrNull(stats.last());
        gps[QStringLiteral("box")] = QJsonObject{{QStringLiteral("south"), stats.south()},
                                                 {QStringLiteral("west"), stats.west()},
                                                 {QStringLiteral("north"), stats.north()},
                                                 {QStringLiteral("east"), stats.east()}};
    }
    return gps;
}

QString cContents::text() const
{
    const QString name = displayName(m_archive, QStringLiteral("standard input"));
    QString text = printable(name) + QLatin1Char('\n');
    for (const QString &title : m_titles)
        text += _line("Title", title);
    for (auto it = m_texts.cbegin(); it != m_texts.cend(); ++it)
        text += _line(qPrintable(QStringLiteral("Text %1").arg(it.key())), it.value());
    text += _line("Records", QStringLiteral("%1 HDR, %2 IDX").arg(m_hdrRecords).arg(m_idxRecords));
    return text + _streamText() + _sentenceText() + _trackText() + _damageText();
}

QString cContents::_streamText() const
{
    QString text = _line("Streams", QStringLiteral("  id type     blocks        bytes  texts"));
    for (const STREAM_COUNT_T &count : m_streams) {
        const STREAM_T &s = count.stream;
        QStringList texts{_decode(s.textA), _decode(s.textB), _decode(s.textC)};
        texts.removeAll(QString());
        text += _line("", QStringLiteral("%1 %2 %3 %4  ")
                                  .arg(s.id, 4)
                                  .arg(s.type, 4)
                                  .arg(count.blocks, 10)
                                  .arg(count.bytes, 12) +
                              texts.join(QStringLiteral(", ")));
    }
    return text;
}

QString cContents::_sentenceText() const
{
    const NMEA_ACCOUNT_T &read = m_reader.nmea().account();
    QString text =
        _line("Sentences", QStringLiteral("           accepted   checksum     fields       form"));
    for (size_t kind = 0; kind < NMEA_KINDS; ++kind)
        text += _line("", QStringLiteral("%1 %2 %3 %4 %5")
                              .arg(QLatin1String(NAMES_READ.at(kind)), -8)
                              .arg(read.accepted.at(kind), 10)
                              .arg(read.badChecksum.at(kind), 10)
                              .arg(read.tooFewFields.at(kind), 10)
                              .arg(read.malformed.at(kind), 10));
    const QString unread = QStringLiteral("%1 %2 not read");
    for (auto it = m_names.counts().cbegin(); it != m_names.counts().cend(); ++it)
        text += _line("", unread.arg(QLatin1String(it.key()), -8).arg(it.value(), 10));
    if (m_names.others() > 0)
        text += _line("", unread.arg(QStringLiteral("others"), -8).arg(m_names.others(), 10));
    return text;
}

QString cContents::_trackText() const
{
    const cTrackStats &stats = m_reader.stats();
    QString points = QString::number(stats.points());
    if (stats.points() > stats.located())
        points +=
            QStringLiteral(", %1 of them without a fix").arg(stats.points() - stats.located());
    QString text = _line("Points", points);
    if (stats.located() == 0)
        return text;
    text += _line(
        "Time", QStringLiteral("%1 to %2").arg(pointTime(stats.first()), pointTime(stats.last())));
    text +=
        _line("Latitude",
              QStringLiteral("%1 to %2").arg(_latitude(stats.south()), _latitude(stats.north())));
    text +=
        _line("Longitude",
              QStringLiteral("%1 to %2").arg(_longitude(stats.west()), _longitude(stats.east())));
    const double kilometres = stats.metres() / METRES_A_KILOMETRE;
    return text + _line("Length", QString::number(kilometres, 'f', 3) + QStringLiteral(" km"));
}

QString cContents::_damageText() const
{
    const ACCOUNT_T account = m_reader.parser().account();
    QString text;
    const auto tell = [&text](const QString &what) {
        text += _line(text.isEmpty() ? "Damage" : "", what);
    };
    const QString amount = QStringLiteral("%1 bytes in %2 %3");
    if (account.scanned > 0)
        tell(amount.arg(account.scanned)
                 .arg(account.stretchCount)
                 .arg(QStringLiteral("stretches skipped")));
    for (const STRETCH_T &stretch : account.stretches)
        tell(QStringLiteral("  %1 bytes at offset %2").arg(stretch.length).arg(stretch.offset));
    if (account.stretchCount > account.stretches.size())
        tell(QStringLiteral("  and more"));
    if (account.lostBlocks > 0)
        tell(amount.arg(account.lost)
                 .arg(account.lostBlocks)
                 .arg(QStringLiteral("blocks that were never finished")));
    if (account.unfinishedBlocks > 0)
        tell(amount.arg(account.unfinished)
                 .arg(account.unfinishedBlocks)
                 .arg(QStringLiteral("blocks unfinished at the end")));
    if (account.buffered > 0)
        tell(QStringLiteral("%1 bytes of an incomplete record at the end").arg(account.buffered));
    if (text.isEmpty())
        tell(QStringLiteral("none"));
    return text;
}
