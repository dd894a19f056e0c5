#include "cli/extract.h"

#include "cli/messages.h"
#include "cli/summary.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace
{
const QString STREAM = u"stream"_s;
const QString INDEX = u"index"_s;
const QString SAME_OUTPUT = u"--index and the stream have the same output"_s;

// Reads "ID" or "ID:TYPE". Returns false if it is neither.
bool _readChoice(const QString &text, STREAM_CHOICE_T &choice)
{
    constexpr int max = 255;
    static const QRegularExpression form(u"^(\\d{1,3})(?::(\\d{1,3}))?$"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return false;
    choice.id = match.captured(1).toInt();
    if (match.capturedLength(2) > 0)
        choice.type = match.captured(2).toInt();
    return choice.id <= max && choice.type <= max;
}

// "a.1.jpg, a.csv", or "a.1.jpg and 5 more".
QString _names(const QList<std::shared_ptr<cOutputFile>> &files)
{
    constexpr qsizetype maxListed = 2;
    QStringList names;
    for (const auto &file : files.mid(0, files.size() > maxListed ? 1 : maxListed))
        names.append(displayName(file->name(), u"standard output"_s));
    const QString listed = names.join(u", "_s);
    return files.size() > maxListed
               ? u"%1 and %2 more"_s.arg(listed, QString::number(files.size() - 1))
               : listed;
}
} // namespace

cExtract::cExtract()
    : cCommand(u"extract"_s, u"--stream ID[:TYPE] [options] ARCHIVE..."_s,
               u"Write the contents of streams, byte for byte."_s)
{
}

void cExtract::addOptions(QCommandLineParser &parser)
{
    parser.addOption({STREAM,
                      u"The stream to write, by its id, or by id and type if the id has several; "
                      "or all, for one file per stream."_s,
                      u"ID[:TYPE]"_s});
    parser.addOption(
        {INDEX, u"Write a table of the stream's blocks to FILE, as CSV. For a single archive."_s,
         u"FILE"_s});
    cTargets::addOptions(parser);
}

QString cExtract::readOptions(const QCommandLineParser &parser)
{
    const QString stream = parser.value(STREAM);
    if (!parser.isSet(STREAM))
        return u"--stream is missing"_s;
    if (stream != "all"_L1 && !_readChoice(stream, m_choice))
        return u"'%1' is not a stream such as 1, 253:4 or all"_s.arg(stream);
    QString wrong = m_targets.read(parser, archives());
    if (!wrong.isEmpty())
        return wrong;
    const QList<ARCHIVE_T> &all = archives();
    const bool readsStandardInput = std::any_of(all.begin(), all.end(), [](const auto &archive) {
        return archive.name == STANDARD_STREAM;
    });
    if (m_choice.id < 0 && m_targets.isFileSet())
        return u"--stream all writes several files; use -d"_s;
    if (m_choice.id < 0 && readsStandardInput)
        return u"--stream all cannot name the outputs of standard input"_s;
    m_index = parser.value(INDEX);
    if (parser.isSet(INDEX) && m_index.isEmpty())
        return u"--index needs the name of a file"_s;
    if (parser.isSet(INDEX) && all.size() > 1)
        return u"--index works with a single archive"_s;
    const bool hasFixedName = m_targets.isFileSet() || readsStandardInput;
    if (hasFixedName && isSameOutput(m_index, m_targets.nameFor(all.constFirst(), {})))
        return SAME_OUTPUT;
    return {};
}

RESULT_T cExtract::process(const ARCHIVE_T &archive, cProgress &progress) const
{
    cFeed feed(archive);
    if (!feed.error().isEmpty())
        return {feed.error()};
    const auto open = [&](int id, const QString &extension) {
        return m_targets.open(archive, u".%1"_s.arg(id) + extension, inputs());
    };
    std::shared_ptr<cOutputFile> index;
    if (!m_index.isEmpty())
        index = m_targets.openFile(m_index, inputs());
    if (index && index->isSkipped()) // a new stream would not match it
        return {.files = {index}};
    cVrk3Parser parser;
    parser.deliverOnly(m_choice.id, m_choice.type);
    cStreamFiles streams(m_choice, open, index, feed, parser);
    feed.run(parser, progress, [&] { return streams.isDone(); });

    RESULT_T result{.warnings = headerWarnings(archive, feed.account())};
    if (!streams.isDone()) {
        result.failure = feed.error().isEmpty() ? whyNoArchive(feed.account()) : feed.error();
        if (result.failure.isEmpty())
            result.failure = streams.finish();
    }
    result.files = streams.files();
    const auto hasItsName = [&](const auto &file) {
        return file != index && isSameOutput(file->name(), m_index);
    };
    if (index && std::any_of(result.files.cbegin(), result.files.cend(), hasItsName))
        result.failure = SAME_OUTPUT;
    if (!result.failure.isEmpty() || streams.isDone())
        return result;
    QStringList parts = {counted(streams.blocks(), "block"), counted(streams.bytes(), "byte"),
                         counted(uselessBytes(feed.account()), "byte") + u" skipped"_s};
    if (m_choice.id < 0)
        parts.prepend(counted(streams.count(), "stream"));
    QList<std::shared_ptr<cOutputFile>> written, skipped;
    std::partition_copy(result.files.cbegin(), result.files.cend(), std::back_inserter(skipped),
                        std::back_inserter(written),
                        [](const auto &file) { return file->isSkipped(); });
    result.summary = parts.join(u", "_s) + u" -> "_s + _names(written);
    if (!skipped.isEmpty())
        result.summary += u"; already there: "_s + _names(skipped);
    return result;
}
