#include "cli/targets.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
const QString OUTPUT = u"output"_s;
const QString FOLDER = u"folder"_s;
const QString OVERWRITE = u"overwrite"_s;
const QString SKIP = u"skip-existing"_s;

bool _isStandardInput(const ARCHIVE_T &archive)
{
    return archive.name == STANDARD_STREAM;
}
} // namespace

void cTargets::addOptions(QCommandLineParser &parser)
{
    parser.addOption({{u"o"_s, OUTPUT},
                      u"Write to FILE, or to standard output if FILE is -. For a single output."_s,
                      u"FILE"_s});
    parser.addOption({{u"d"_s, FOLDER},
                      u"Write to FOLDER instead of the folder of each archive."_s,
                      u"FOLDER"_s});
    parser.addOption({{u"y"_s, OVERWRITE}, u"Replace existing files."_s});
    parser.addOption({SKIP, u"Skip archives whose output exists."_s});
}

QString cTargets::read(const QCommandLineParser &parser, const QList<ARCHIVE_T> &archives,
                       bool isJoined)
{
    m_file = parser.value(OUTPUT);
    m_folder = parser.value(FOLDER);
    m_existing = parser.isSet(OVERWRITE) ? EXISTING_REPLACE
                 : parser.isSet(SKIP)    ? EXISTING_SKIP
                                         : EXISTING_FAIL;
    if (parser.isSet(OVERWRITE) && parser.isSet(SKIP))
        return u"-y and --skip-existing cannot be combined"_s;
    if (parser.isSet(OUTPUT) && parser.isSet(FOLDER))
        return u"-o and -d cannot be combined"_s;
    if (parser.isSet(OUTPUT) && m_file.isEmpty())
        return u"-o needs the name of a file"_s;
    if (parser.isSet(FOLDER) && m_folder.isEmpty())
        return u"-d needs the name of a folder"_s;
    if (isJoined && !parser.isSet(OUTPUT))
        return u"--join needs -o"_s;
    if (parser.isSet(OUTPUT) && archives.size() > 1 && !isJoined)
        return u"-o works with a single archive; use -d for several"_s;
    if (parser.isSet(FOLDER) && std::any_of(archives.begin(), archives.end(), _isStandardInput))
        return u"-d cannot name the output of standard input; use -o"_s;
    if (parser.isSet(FOLDER) && !QFileInfo(m_folder).isDir())
        return u"there is no folder '%1'"_s.arg(m_folder);
    return {};
}

std::shared_ptr<cOutputFile> cTargets::open(const ARCHIVE_T &archive, const QString &extension,
                                            const QSet<FILEID_T> &inputs) const
{
    if (!m_folder.isEmpty() && !archive.subfolder.isEmpty())
        (void)QDir(m_folder).mkpath(archive.subfolder); // on failure the next line fails
    return openFile(nameFor(archive, extension), inputs);
}

std::shared_ptr<cOutputFile> cTargets::openFile(const QString &name,
                                                const QSet<FILEID_T> &inputs) const
{
    return std::make_shared<cOutputFile>(name, m_existing, inputs);
}

QString cTargets::nameFor(const ARCHIVE_T &archive, const QString &extension) const
{
    if (!m_file.isEmpty())
        return m_file;
    if (_isStandardInput(archive))
        return STANDARD_STREAM;
    const QFileInfo info(archive.name);
    // A hidden file without an extension has no base name: nothing comes before its dot.
    const QString base =
        info.completeBaseName().isEmpty() ? info.fileName() : info.completeBaseName();
    if (!m_folder.isEmpty()) {
        const QString below = archive.subfolder.isEmpty() ? QString() : archive.subfolder + u'/';
        return QDir(m_folder).filePath(below + base + extension);
    }
    return archive.name.left(archive.name.size() - info.fileName().size()) + base + extension;
}

QString cTargets::extension() const
{
    const QString suffix = QFileInfo(m_file).suffix();
    return suffix.isEmpty() ? QString() : u'.' + suffix.toLower();
}

QString cTargets::unknownFormat() const
{
    return u"%1: unknown format; use --to"_s.arg(m_file);
}
