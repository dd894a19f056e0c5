#include "cli/info.h"

#include "cli/contents.h"
#include "cli/contentsjson.h"
#include "cli/contentstext.h"
#include "cli/messages.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace
{
const QString JSON = u"json"_s;
}

cInfo::cInfo()
    : cCommand(u"info"_s, u"[options] ARCHIVE..."_s,
               u"Report what archives contain and where they are damaged."_s)
{
}

void cInfo::addOptions(QCommandLineParser &parser)
{
    parser.addOption({{u"j"_s, JSON}, u"Print a JSON array with one object per archive."_s});
}

QString cInfo::readOptions(const QCommandLineParser &parser)
{
    m_json = parser.isSet(JSON);
    return {};
}

RESULT_T cInfo::process(const ARCHIVE_T &archive, cProgress &progress) const
{
    cContents contents;
    RESULT_T result;
    result.failure = contents.read(archive.name, progress);
    if (result.failure.isEmpty())
        result.output =
            m_json ? printableJson(QJsonDocument(contentsJson(contents)).toJson().trimmed())
                   : contentsText(contents).toUtf8();
    return result;
}

QByteArray cInfo::before(bool isFirst) const
{
    if (m_json)
        return isFirst ? "[\n" : ",\n";
    return isFirst ? "" : "\n";
}

QByteArray cInfo::after(bool isEmpty) const
{
    if (m_json)
        return isEmpty ? "[]\n" : "\n]\n";
    return {};
}
