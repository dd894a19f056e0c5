#include "cli/archives.h"

#include "cli/fileid.h"

#include <QFile>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

namespace
{
QString _decode(const fs::path &path)
{
    return decodeFileName(path.c_str());
}

// Appends the archives in a folder, with paths relative to its root. This is not QDirIterator
// because that skips folders that it may not read without a word.
void _appendFolder(const fs::path &root, const fs::path &subfolder, bool recursive,
                   QList<ARCHIVE_T> &archives)
{
    const fs::path path = subfolder.empty() ? root : root / subfolder;
    std::error_code error;
    for (fs::directory_iterator it(path, error), end; !error && it != end; it.increment(error)) {
        const fs::path name = it->path().filename();
        std::error_code ignored;
        if (_decode(name).startsWith(u'.'))
            continue;
        if (it->is_directory(ignored)) {
            if (recursive && !it->is_symlink(ignored))
                _appendFolder(root, subfolder / name, recursive, archives);
        } else if (!it->is_other(ignored) &&
                   _decode(name).endsWith(".vrk3"_L1, Qt::CaseInsensitive)) {
            archives.append({_decode(it->path()), _decode(subfolder)});
        }
    }
    if (error)
        archives.append({_decode(path), {}, QString::fromStdString(error.message())});
}
} // namespace

QList<ARCHIVE_T> findArchives(const QStringList &arguments, bool recursive)
{
    QList<ARCHIVE_T> archives;
    for (const QString &argument : arguments) {
        struct stat status = {};
        if (argument == STANDARD_STREAM || !fileStatus(argument, -1, status) ||
            !S_ISDIR(status.st_mode)) {
            archives.append({argument});
            continue;
        }
        const qsizetype first = archives.size();
        _appendFolder(QFile::encodeName(argument).toStdString(), {}, recursive, archives);
        if (archives.size() == first)
            archives.append({argument,
                             {},
                             recursive ? u"no .vrk3 files in or below this folder"_s
                                       : u"no .vrk3 files in this folder (-r looks below it)"_s});
        std::sort(archives.begin() + first, archives.end(),
                  [](const ARCHIVE_T &a, const ARCHIVE_T &b) { return a.name < b.name; });
    }
    return archives;
}
