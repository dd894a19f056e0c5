#ifndef OUTPUTFILE_H
#define OUTPUTFILE_H

#include "cli/inputfile.h"

#include <QObject>
#include <QTemporaryFile>

// The end of a chain that does not forgive: the output appears under its name whole, or not at all.
//
// Bytes go to a file of no name in the output's folder, where the file system can have one (else of
// a hidden name), and commit() gives it the name. Whatever ends the process before, even a kill,
// leaves an older file of that name as it was. Standard output, devices and pipes are written
// straight to.
class cOutputFile : public QObject
{
    Q_OBJECT

public:
    // Opens the output; "-" is standard output. A regular file that exists is an error unless
    // overwrite is set, and one of the inputs is an error in any case.
    cOutputFile(const QString &name, bool overwrite, const QList<FILEID_T> &inputs);
    // What was not committed is thrown away.
    ~cOutputFile() override;
    Q_DISABLE_COPY_MOVE(cOutputFile)

    // The last step. False: it failed, and nothing has changed under the output's name.
    bool commit();

    // What went wrong first; empty if all is well.
    const QString &error() const { return m_error; }
    // Bytes taken in.
    qint64 size() const { return m_size; }

public Q_SLOTS:
    // Takes the bytes in, unless something went wrong before. They are not needed behind the call.
    void slot_Data(const QByteArray &a);

private:
    void _openTemporary(const struct stat *old);
    bool _flush();
    bool _publish();
    bool _fail(const QString &reason);
    bool _failBySystem();

    QString m_name;
    bool m_overwrite = false;
    int m_fd = -1;
    QTemporaryFile m_file; // not open for standard output, devices and pipes
    mode_t m_mode = 0;
    QByteArray m_buffer;
    qint64 m_size = 0;
    QString m_error;
};

#endif
