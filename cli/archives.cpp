#include "cli/archives.h"

#include "cli/fileid.h"
#include "cli/interrupt.h"

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

// Appends the archives in a subfolder of root. It does not use QDirIterator, which silently skips
// folders that it cannot read.
void _appendFolder(const fs::path &root, const fs::path &subfolder, bool recursive,
                   QList<ARCHIVE_T> &archives)
{
    const fs::path path = subfolder.empty() ? root : root / subfolder;
    std::error_code error;
    for (fs::directory_iterator it(path, error), end; !error && it != end && !isInterrupted();
         it.increment(error)) {
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
            archives.append(
                {argument,
                 {},
                 recursive ? u"no .vrk3 files in this folder or its subfolders"_s
                           : u"no .vrk3 files in this folder (use -r to search its subfolders)"_s});
        std::sort(archives.begin() + first, archives.end(),
                  [](const ARCHIVE_T &a, const ARCHIVE_T &b) { return a.name < b.name; });
    }
    return archives;
}
