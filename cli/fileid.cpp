#include "cli/fileid.h"

#include <QFile>

QString decodeFileName(const char *name)
{
    constexpr QChar invalid(0xDCFF);
    QString decoded = QFile::decodeName(name);
    if (QFile::encodeName(decoded) != name)
        decoded.replace(QChar::ReplacementCharacter, invalid);
    return decoded;
}

bool fileStatus(const QString &name, int standardStream, struct stat &status)
{
    if (name == STANDARD_STREAM)
        return ::fstat(standardStream, &status) == 0;
    return ::stat(QFile::encodeName(name).constData(), &status) == 0;
}
