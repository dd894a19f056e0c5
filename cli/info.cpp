#include "cli/info.h"

#include "cli/contents.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

static const QString JSON = u"json"_s;

cInfo::cInfo()
    : cCommand(u"info"_s, u"[--json] ARCHIVE..."_s,
               u"Tells what is in archives, and what is damaged."_s)
{
}

void cInfo::addOptions(QCommandLineParser &parser)
{
    parser.addOption({{u"j"_s, JSON}, u"Writes a JSON array with an object for each archive."_s});
}

QString cInfo::readOptions(const QCommandLineParser &parser)
{
    m_json = parser.isSet(JSON);
    m_output = std::make_unique<cOutputFile>(STANDARD_STREAM, false, archiveIds());
    return {};
}

QString cInfo::process(const QString &archive)
{
    cContents contents;
    QString failure = contents.read(archive, true);
    if (!failure.isEmpty())
        return failure;
    if (m_json) {
        const QByteArray object = QJsonDocument(contents.json()).toJson().trimmed();
        _write((m_first ? "[\n" : ",\n") + object);
    } else {
        _write((m_first ? QByteArray() : QByteArray("\n")) + contents.text().toUtf8());
    }
    m_first = false;
    return {};
}

QString cInfo::finish()
{
    if (m_json)
        _write(m_first ? "[]\n" : "\n]\n");
    m_output->commit();
    return m_output->error();
}

void cInfo::_write(const QByteArray &bytes)
{
    m_output->slot_Data(bytes);
}
