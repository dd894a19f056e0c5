#ifndef OUTPUTFILE_H
#define OUTPUTFILE_H

#include "cli/fileid.h"

#include <QObject>
#include <QTemporaryFile>

// The sink of a chain: the complete output appears under its name, or nothing does.
//
// Bytes go to an unnamed file in the output's folder (or to a hidden file where the file system has
// no unnamed ones), and commit() gives it the name. If the process ends before, even by a kill, an
// older file of that name is left as it was. Standard output, devices and pipes are written
// directly.
//
// QSaveFile is not used because it always replaces an existing file and leaves its temporary file
// behind when the process is killed.
class cOutputFile : public QObject
{
    Q_OBJECT

public:
    // Opens the output; "-" is standard output. An existing regular file is an error unless
    // overwrite is set; a file in inputs is always one.
    cOutputFile(QString name, bool overwrite, const QSet<FILEID_T> &inputs);
    // Discards what was not committed.
    ~cOutputFile() override;
    Q_DISABLE_COPY_MOVE(cOutputFile)

    const QString &name() const { return m_name; }

    // Writes everything to the disk; no bytes may follow. Returns false on failure.
    bool finish();
    // Finishes the output if that has not been done, and gives it its name. Returns false on
    // failure; then nothing has changed under that name.
    bool commit();

    // The first thing that went wrong; empty if all is well.
    const QString &error() const { return m_error; }
    // Bytes received.
    qint64 size() const { return m_size; }

public Q_SLOTS:
    // Appends the bytes; does nothing after an error. The array need not outlive the call.
    void slot_Data(const QByteArray &a);

private:
    void _openTemporary(const struct stat *old);
    bool _flush();
    bool _publish();
    bool _fail(const QString &reason);
    bool _failBySystem();

    QString m_name;
    QString m_path; // m_name, or the file that a link of this name points to
    bool m_overwrite = false;
    int m_fd = -1;
    QTemporaryFile m_file; // not open for standard output, devices and pipes
    mode_t m_mode = 0;
    QByteArray m_buffer;
    qint64 m_size = 0;
    bool m_finished = false;
    QString m_error;
};

#endif
