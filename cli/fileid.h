#ifndef FILEID_H
#define FILEID_H

#include <QHashFunctions>
#include <QSet>
#include <QString>

#include <optional>
#include <sys/stat.h>

// The name that means standard input or output.
inline const QString STANDARD_STREAM = QChar(u'-');

// Decodes a name from the operating system. If it is not valid UTF-8, its invalid bytes become lone
// surrogates, which QString::isValidUtf16 detects. Such a result is never the name of a file.
QString decodeFileName(const char *name);

// Identifies a file independently of its name.
struct FILEID_T {
    dev_t device = 0;
    ino_t inode = 0;
    bool operator==(const FILEID_T &) const = default;
};

inline size_t qHash(const FILEID_T &id, size_t seed = 0)
{
    return qHashMulti(seed, id.device, id.inode);
}

// Gets the status of the named file, following links, or of the descriptor standardStream if the
// name is "-". With -1, that name is an error. On failure, returns false and sets errno.
bool fileStatus(const QString &name, int standardStream, struct stat &status);

inline FILEID_T fileId(const struct stat &status)
{
    return {status.st_dev, status.st_ino};
}

// Returns the id of a regular file; empty if fileStatus fails or the file is not a regular one.
std::optional<FILEID_T> regularFile(const QString &name, int standardStream);

#endif
