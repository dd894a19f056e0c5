#include "info.h"

#include "contents.h"

#include <QJsonDocument>

static const QString JSON = QStringLiteral("json");

cInfo::cInfo()
    : cCommand(QStringLiteral("info"), QStringLiteral("[--json] ARCHIVE..."),
               QStringLiteral("Tells what is in archives, and what is damaged."))
{
}

void cInfo::addOptions(QCommandLineParser &parser)
{
    parser.addOption({{QStringLiteral("j"), JSON},
                      QStringLiteral("Writes a JSON array with an object for each archive.")});
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
