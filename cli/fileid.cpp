#include "cli/fileid.h"

#include <QFile>

bool fileStatus(const QString &name, int standardStream, struct stat &status)
{
    if (name == STANDARD_STREAM)
        return ::fstat(standardStream, &status) == 0;
    return ::stat(QFile::encodeName(name).constData(), &status) == 0;
}
