#ifndef INPUTFILE_H
#define INPUTFILE_H

#include <QByteArray>
#include <QList>
#include <QString>

#include <sys/stat.h>

// The name that stands for standard input or output.
inline const QString STANDARD_STREAM = QStringLiteral("-");

// A regular file by what it is, not by how it is called.
struct FILEID_T {
    dev_t device = 0;
    ino_t inode = 0;
    bool operator==(const FILEID_T &) const = default;
};

// What stat says about the file of that name, links followed, or about the standard stream of that
// descriptor if the name is "-". False: nothing, errno says why.
bool fileStatus(const QString &name, int standardStream, struct stat &status);

inline FILEID_T fileId(const struct stat &status)
{
    return {status.st_dev, status.st_ino};
}

// Reads an archive from front to back, in blocks.
class cInputFile
{
public:
    // "-" is standard input.
    explicit cInputFile(const QString &name);
    ~cInputFile();
    Q_DISABLE_COPY_MOVE(cInputFile)

    // Puts the next bytes into block, in memory that the caller keeps from one call to the next.
    // False: there are none. They have come to their end if error() is empty.
    bool next(QByteArray &block);

    // Why the archive could not be read whole; empty if all is well.
    const QString &error() const { return m_error; }

    const QString &name() const { return m_name; }
    qint64 position() const { return m_position; }
    // In bytes, when it was opened; 0 for what has no size, a pipe for instance.
    qint64 size() const { return m_size; }

private:
    bool _fail(const QString &reason);
    bool _atEnd();

    QString m_name;
    int m_fd = -1;
    qint64 m_position = 0;
    qint64 m_size = 0;
    QString m_error;
};

#endif
