#include "targets.h"

#include "command.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

static const QString OUTPUT = QStringLiteral("output");
static const QString FOLDER = QStringLiteral("folder");
static const QString OVERWRITE = QStringLiteral("overwrite");
static const QString QUIET = QStringLiteral("quiet");

void cTargets::addOptions(QCommandLineParser &parser)
{
    parser.addOption({{QStringLiteral("o"), OUTPUT},
                      QStringLiteral("Writes to FILE; - is standard output. For one archive only."),
                      QStringLiteral("FILE")});
    parser.addOption({{QStringLiteral("d"), FOLDER},
                      QStringLiteral("Writes into FOLDER instead of beside each archive."),
                      QStringLiteral("FOLDER")});
    parser.addOption(
        {{QStringLiteral("y"), OVERWRITE}, QStringLiteral("Replaces outputs that exist already.")});
    parser.addOption({{QStringLiteral("q"), QUIET},
                      QStringLiteral("Shows neither results nor progress, only errors.")});
}

QString cTargets::read(const QCommandLineParser &parser, const QStringList &archives)
{
    m_file = parser.value(OUTPUT);
    m_folder = parser.value(FOLDER);
    m_overwrite = parser.isSet(OVERWRITE);
    m_quiet = parser.isSet(QUIET);
    if (parser.isSet(OUTPUT) && parser.isSet(FOLDER))
        return QStringLiteral("-o and -d exclude each other");
    if (parser.isSet(OUTPUT) && m_file.isEmpty())
        return QStringLiteral("-o needs the name of a file");
    if (parser.isSet(FOLDER) && m_folder.isEmpty())
        return QStringLiteral("-d needs the name of a folder");
    if (parser.isSet(OUTPUT) && archives.size() > 1)
        return QStringLiteral("-o takes one archive only; -d is for several");
    if (parser.isSet(FOLDER) && archives.contains(STANDARD_STREAM))
        return QStringLiteral("standard input has no name to write under; use -o");
    return {};
}

QString cTargets::nameFor(const QString &archive, const QString &extension) const
{
    if (!m_file.isEmpty())
        return m_file;
    if (archive == STANDARD_STREAM)
        return STANDARD_STREAM;
    const QFileInfo info(archive);
    // A hidden file without an extension has nothing in front of its dot.
    const QString base =
        info.completeBaseName().isEmpty() ? info.fileName() : info.completeBaseName();
    if (!m_folder.isEmpty())
        return QDir(m_folder).filePath(base + extension);
    return archive.left(archive.size() - info.fileName().size()) + base + extension;
}

QString cTargets::extension() const
{
    const QString suffix = QFileInfo(m_file).suffix();
    return suffix.isEmpty() ? QString() : QLatin1Char('.') + suffix.toLower();
}

QString cTargets::conclude(const QString &archive, const QString &name, cOutputFile &output,
                           const QString &summary)
{
    const QString shownName = displayName(name, QStringLiteral("standard output"));
    const QString cannotWrite = QStringLiteral("cannot write %1: %2");
    if (m_written.contains(name) && name != STANDARD_STREAM)
        return cannotWrite.arg(shownName, QStringLiteral("it is the output of another archive"));
    if (!output.commit())
        return cannotWrite.arg(shownName, output.error());
    m_written.insert(name);
    if (!m_quiet) {
        const QString line =
            QStringLiteral("%1: %2 -> %3")
                .arg(displayName(archive, QStringLiteral("standard input")), summary, shownName);
        std::fprintf(stderr, "%s\n", qPrintable(printable(line)));
    }
    return {};
}
