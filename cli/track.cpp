#include "cli/track.h"

#include "cli/formats.h"
#include "cli/interrupt.h"
#include "cli/tracksource.h"
#include "track/trackcsv.h"
#include "track/trackgeojson.h"
#include "track/trackgpx.h"
#include "track/trackkml.h"

#include <QDateTime>
#include <QRegularExpression>

#include <array>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
const QString JOIN = u"join"_s;
const QString FROM = u"from"_s;
const QString UNTIL = u"until"_s;
const QString GAP = u"gap"_s;

template <typename T>
std::unique_ptr<cFixWriter> _make()
{
    return std::make_unique<T>();
}

constexpr std::array<FORMAT_T, 4> FORMATS = {
    {{"gpx", ".gpx"}, {"kml", ".kml"}, {"geojson", ".geojson", ".json"}, {"csv", ".csv"}}};
// Make the writers of these formats.
constexpr std::array WRITERS = {_make<cTrackGpx>, _make<cTrackKml>, _make<cTrackGeoJson>,
                                _make<cTrackCsv>};
static_assert(WRITERS.size() == FORMATS.size());
constexpr double MAX_GAP = 1e12; // seconds

// Inserts the missing separators into a date or a time after "T", such as "20110323T1200".
QString _separated(QString text)
{
    static const QRegularExpression date(u"^(\\d{4})(\\d\\d)(\\d\\d)(?!\\d)"_s);
    static const QRegularExpression time(u"(T\\d\\d)(\\d\\d)(\\d\\d)?"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    text.replace(date, u"\\1-\\2-\\3"_s);
    const QRegularExpressionMatch match = time.match(text);
    if (match.hasCaptured(3))
        text.insert(match.capturedStart(3), u':');
    if (match.hasMatch())
        text.insert(match.capturedStart(2), u':');
    return text;
}

// Reads an ISO 8601 time, which is UTC unless it has a zone. Empty if the text is not a time. A
// time without a date is a daily limit. If isEnd is set, a date without a time is the last
// millisecond of the day, and 00:00 is the end of the day; otherwise they are the start of the day.
std::optional<TRACK_LIMIT_T> _limit(const QString &argument, bool isEnd)
{
    const QString text = _separated(argument);
    const QDate date = QDate::fromString(text, u"yyyy-MM-dd"_s);
    if (date.isValid()) {
        const qint64 start = date.startOfDay(Qt::UTC).toMSecsSinceEpoch();
        return TRACK_LIMIT_T{isEnd ? start + MS_PER_DAY - 1 : start, false};
    }
    static const QRegularExpression form(
        u"^(\\d{4}-\\d\\d-\\d\\d[T ]|T)?(\\d\\d:[\\d:.,]+)(Z|[+-]\\d\\d(:?\\d\\d)?)?$"_s,
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(text);
    const bool isDaily = match.capturedLength(1) <= 1;
    const QString day = isDaily ? u"1970-01-01"_s : match.captured(1).chopped(1);
    const QString zone = match.capturedLength(3) == 0 ? u"Z"_s : match.captured(3).toUpper();
    const QDateTime time =
        QDateTime::fromString(day + u'T' + match.captured(2) + zone, Qt::ISODateWithMs);
    if (!time.isValid())
        return {};
    const qint64 ms = time.toMSecsSinceEpoch();
    if (!isDaily)
        return TRACK_LIMIT_T{ms, false};
    const qint64 timeOfDay = (ms + MS_PER_DAY) % MS_PER_DAY;
    return TRACK_LIMIT_T{isEnd && timeOfDay == 0 ? MS_PER_DAY : timeOfDay, true};
}
} // namespace

cTrackCommand::cTrackCommand()
    : cCommand(u"track"_s, u"[options] ARCHIVE..."_s, u"Write GPS tracks for map programs."_s)
{
}

void cTrackCommand::addOptions(QCommandLineParser &parser)
{
    addFormatOption(parser, FORMATS);
    parser.addOption({JOIN, u"Write one track from all archives to -o's FILE."_s});
    parser.addOption({FROM,
                      u"Leave out fixes before TIME: 2011-03-23T12:00, 2011-03-23, or 12:00 for "
                      "every day; UTC unless a zone follows."_s,
                      u"TIME"_s});
    parser.addOption({UNTIL, u"Leave out fixes after TIME."_s, u"TIME"_s});
    parser.addOption({GAP,
                      u"Start a new segment after a gap of more than SECONDS. The default is 30."_s,
                      u"SECONDS"_s});
    cTargets::addOptions(parser);
}

QString cTrackCommand::readOptions(const QCommandLineParser &parser)
{
    m_join = parser.isSet(JOIN);
    QString wrong = m_targets.read(parser, archives(), m_join);
    if (wrong.isEmpty())
        wrong = readFormat(parser, m_targets, FORMATS, m_format);
    if (!wrong.isEmpty())
        return wrong;
    if (parser.isSet(GAP)) {
        bool isNumber = false;
        const double seconds = parser.value(GAP).toDouble(&isNumber);
        if (!isNumber || !(seconds > 0) || seconds > MAX_GAP)
            return u"--gap needs a number of seconds, greater than 0"_s;
        m_gap = std::llround(seconds * MS_PER_SECOND);
    }
    const auto read = [&](const QString &option, std::optional<TRACK_LIMIT_T> &limit) {
        limit = _limit(parser.value(option), option == UNTIL);
        return limit || !parser.isSet(option);
    };
    const QString noTime = u"'%1' is not a time such as 2011-03-23T12:00:00Z or 12:00"_s;
    if (!read(FROM, m_from))
        return noTime.arg(parser.value(FROM));
    if (!read(UNTIL, m_until))
        return noTime.arg(parser.value(UNTIL));
    return {};
}

RESULT_T cTrackCommand::process(const ARCHIVE_T &archive, cProgress &progress) const
{
    const auto output = m_targets.open(archive, QLatin1String(m_format->extension), inputs());
    if (!output->isOpen())
        return {.files = {output}};
    cTrackSource source;
    _setUp(source.track());
    RESULT_T part = source.read(archive, progress);
    if (!part.failure.isEmpty())
        return part;
    RESULT_T result = _write(source, output);
    result.warnings = std::move(part.warnings);
    return result;
}

// Archives that fail are left out. The track of the others is still useful, and the exit status
// shows that it is incomplete.
RESULT_T cTrackCommand::processAll(cProgress &progress, QList<RESULT_T> &parts) const
{
    const auto output =
        m_targets.open(archives().constFirst(), QLatin1String(m_format->extension), inputs());
    if (!output->isOpen())
        return {.files = {output}};
    cTrackSource source;
    _setUp(source.track());
    bool isUsed = false;
    for (qsizetype i = 0; i < archives().size() && !isInterrupted(); ++i) {
        const ARCHIVE_T &archive = archives().at(i);
        progress.begin(i + 1, archive.name);
        const qint64 before = source.fixes();
        parts.append(archive.failure.isEmpty() ? source.read(archive, progress)
                                               : RESULT_T{archive.failure});
        if (!parts.last().failure.isEmpty())
            continue;
        isUsed = true;
        if (source.fixes() == before)
            parts.last().warnings.append(u"it contains no fix"_s);
    }
    return isUsed && !isInterrupted() ? _write(source, output) : RESULT_T();
}

void cTrackCommand::_setUp(cTrack &track) const
{
    track.setGap(m_gap);
    track.setLimits(m_from, m_until);
}

RESULT_T cTrackCommand::_write(cTrackSource &source,
                               const std::shared_ptr<cOutputFile> &output) const
{
    const std::unique_ptr<cFixWriter> writer = WRITERS.at(size_t(m_format - FORMATS.data()))();
    QObject::connect(writer.get(), SIGNAL(signal_Data(QByteArray)), output.get(),
                     SLOT(slot_Data(QByteArray)));
    return source.write(output, [&] { return writer->write(source.track(), source.title()); });
}
