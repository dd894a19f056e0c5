#include "cli/fileid.h"

#include <QFile>

#include <cerrno>

QString decodeFileName(const char *name)
{
    constexpr QChar invalid(0xDCFF);
    QString decoded = QFile::decodeName(name);
    if (QFile::encodeName(decoded) != name)
        decoded.replace(QChar::ReplacementCharacter, invalid);
    // Decoding also drops a byte order mark.
    if (decoded.isValidUtf16() && QFile::encodeName(decoded) != name)
        decoded.prepend(invalid);
    return decoded;
}

bool fileStatus(const QString &name, int standardStream, struct stat &status)
{
    if (name == STANDARD_STREAM)
        return ::fstat(standardStream, &status) == 0;
    if (!name.isValidUtf16()) { // encoded, it would be the name of another file
        errno = EILSEQ;
        return false;
    }
    return ::stat(QFile::encodeName(name).constData(), &status) == 0;
}

std::optional<FILEID_T> regularFile(const QString &name, int standardStream)
{
    struct stat status = {};
    if (!fileStatus(name, standardStream, status) || !S_ISREG(status.st_mode))
        return {};
    return fileId(status);
}
