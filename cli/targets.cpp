#include "cli/targets.h"

#include "cli/command.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

static const QString OUTPUT = u"output"_s;
static const QString FOLDER = u"folder"_s;
static const QString OVERWRITE = u"overwrite"_s;
static const QString QUIET = u"quiet"_s;

void cTargets::addOptions(QCommandLineParser &parser)
{
    parser.addOption({{u"o"_s, OUTPUT},
                      u"Writes to FILE; - is standard output. For one archive only."_s,
                      u"FILE"_s});
    parser.addOption(
        {{u"d"_s, FOLDER}, u"Writes into FOLDER instead of beside each archive."_s, u"FOLDER"_s});
    parser.addOption({{u"y"_s, OVERWRITE}, u"Replaces outputs that exist already."_s});
    parser.addOption({{u"q"_s, QUIET}, u"Shows neither results nor progress, only errors."_s});
}

QString cTargets::read(const QCommandLineParser &parser, const QStringList &archives)
{
    m_file = parser.value(OUTPUT);
    m_folder = parser.value(FOLDER);
    m_overwrite = parser.isSet(OVERWRITE);
    m_quiet = parser.isSet(QUIET);
    if (parser.isSet(OUTPUT) && parser.isSet(FOLDER))
        return u"-o and -d exclude each other"_s;
    if (parser.isSet(OUTPUT) && m_file.isEmpty())
        return u"-o needs the name of a file"_s;
    if (parser.isSet(FOLDER) && m_folder.isEmpty())
        return u"-d needs the name of a folder"_s;
    if (parser.isSet(OUTPUT) && archives.size() > 1)
        return u"-o takes one archive only; -d is for several"_s;
    if (parser.isSet(FOLDER) && archives.contains(STANDARD_STREAM))
        return u"standard input has no name to write under; use -o"_s;
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
    return suffix.isEmpty() ? QString() : u'.' + suffix.toLower();
}

QString cTargets::conclude(const QString &archive, const QString &name, cOutputFile &output,
                           const QString &summary)
{
    const QString shownName = displayName(name, u"standard output"_s);
    const QString cannotWrite = u"cannot write %1: %2"_s;
    if (m_written.contains(name) && name != STANDARD_STREAM)
        return cannotWrite.arg(shownName, u"it is the output of another archive"_s);
    if (!output.commit())
        return cannotWrite.arg(shownName, output.error());
    m_written.insert(name);
    if (!m_quiet) {
        const QString line =
            u"%1: %2 -> %3"_s.arg(displayName(archive, u"standard input"_s), summary, shownName);
        std::fprintf(stderr, "%s\n", qPrintable(printable(line)));
    }
    return {};
}
