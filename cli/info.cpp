#include "cli/info.h"

#include "cli/contents.h"
#include "cli/contentsjson.h"
#include "cli/contentstext.h"
#include "cli/contentstsv.h"
#include "cli/messages.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{
const QString OPTION_JSON = u"json"_s;
const QString OPTION_JSONL = u"jsonl"_s;
const QString OPTION_TSV = u"tsv"_s;

QByteArray _json(const cContents &contents, QJsonDocument::JsonFormat format)
{
    return printableJson(QJsonDocument(contentsJson(contents)).toJson(format));
}
} // namespace

cInfo::cInfo()
    : cCommand(u"info"_s, u"[options] ARCHIVE..."_s,
               u"Report what archives contain and where they are damaged."_s)
{
}

void cInfo::addOptions(QCommandLineParser &parser)
{
    parser.addOption({OPTION_JSON, u"Print a JSON array with one object per archive."_s});
    parser.addOption({OPTION_JSONL, u"Print one line with a JSON object per archive."_s});
    parser.addOption({OPTION_TSV, u"Print a table: a header line, then one line per archive, with "
                                  "tabs between the columns."_s});
}

QString cInfo::readOptions(const QCommandLineParser &parser)
{
    if (parser.isSet(OPTION_JSON) + parser.isSet(OPTION_JSONL) + parser.isSet(OPTION_TSV) > 1)
        return u"--json, --jsonl and --tsv cannot be combined"_s;
    m_form = parser.isSet(OPTION_JSON)    ? JSON
             : parser.isSet(OPTION_JSONL) ? JSONL
             : parser.isSet(OPTION_TSV)   ? TSV
                                          : TEXT;
    return {};
}

RESULT_T cInfo::process(const ARCHIVE_T &archive, cProgress &progress) const
{
    cContents contents;
    RESULT_T result;
    result.failure = contents.read(archive, progress);
    if (!result.failure.isEmpty())
        return result;
    result.warnings = contents.warnings();
    if (m_form == TEXT)
        result.output = contentsText(contents).toUtf8();
    else if (m_form == TSV)
        result.output = contentsTsv(contents).toUtf8();
    else if (m_form == JSON)
        result.output = _json(contents, QJsonDocument::Indented).trimmed();
    else
        result.output = _json(contents, QJsonDocument::Compact) + '\n';
    return result;
}

QByteArray cInfo::before(bool isFirst) const
{
    if (m_form == JSON)
        return isFirst ? "[\n" : ",\n";
    if (m_form == TEXT)
        return isFirst ? "" : "\n";
    if (m_form == TSV && isFirst)
        return contentsTsvHeader().toUtf8();
    return {};
}

QByteArray cInfo::after(bool isEmpty) const
{
    if (m_form == JSON)
        return isEmpty ? "[]\n" : "\n]\n";
    if (m_form == TSV && isEmpty)
        return contentsTsvHeader().toUtf8();
    return {};
}
