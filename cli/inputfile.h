#ifndef INPUTFILE_H
#define INPUTFILE_H

#include <QByteArray>
#include <QString>

// Reads an archive from start to end, in blocks.
//
// It uses system calls instead of QFile, because QFile restarts an interrupted read, and Ctrl-C
// must end a read that waits for a pipe.
class cInputFile
{
public:
    // Opens the file; "-" is standard input. If that fails, error() returns the reason.
    explicit cInputFile(const QString &name);
    ~cInputFile();
    Q_DISABLE_COPY_MOVE(cInputFile)

    // Replaces block with the next bytes. Pass the same array each time: its memory is reused.
    // Returns false at the end of the file and after an error.
    bool next(QByteArray &block);

    // An error message if the file could not be read completely; empty if it could.
    const QString &error() const { return m_error; }

    // Bytes read so far.
    qint64 position() const { return m_position; }
    // Size in bytes when the file was opened; 0 if it is unknown, as for a pipe.
    qint64 size() const { return m_size; }

private:
    bool _fail(const QString &reason);
    bool _atEnd();

    int m_fd = -1;
    qint64 m_position = 0;
    qint64 m_size = 0;
    QString m_error;
};

#endif
