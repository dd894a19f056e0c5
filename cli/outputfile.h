#ifndef OUTPUTFILE_H
#define OUTPUTFILE_H

#include "cli/fileid.h"

#include <QObject>
#include <QTemporaryFile>

// What to do if an output's file exists.
enum EXISTING_T { EXISTING_FAIL, EXISTING_REPLACE, EXISTING_SKIP };

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
    // Opens the output; "-" is standard output. existing is about regular files; a file in inputs
    // is always an error.
    cOutputFile(QString name, EXISTING_T existing, const QSet<FILEID_T> &inputs);
    // Discards what was not committed.
    ~cOutputFile() override;
    Q_DISABLE_COPY_MOVE(cOutputFile)

    const QString &name() const { return m_name; }
    // Whether the output accepts bytes: it was not skipped, and nothing has gone wrong.
    bool isOpen() const { return !m_skipped && m_error.isEmpty(); }
    // Whether the file exists and is to be left alone. All operations then do nothing and succeed.
    bool isSkipped() const { return m_skipped; }

    // Passes what has been received to the operating system. Returns false on failure.
    bool flush();
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
    // Appends the bytes; does nothing unless the output is open. The array need not outlive the
    // call.
    void slot_Data(const QByteArray &a);

private:
    void _openTemporary(const struct stat *old);
    bool _publish();
    bool _fail(const QString &reason);
    bool _failBySystem();

    QString m_name;
    QString m_path; // m_name, or the file that a link of this name points to
    EXISTING_T m_existing = EXISTING_FAIL;
    bool m_skipped = false;
    int m_fd = -1;
    QTemporaryFile m_file; // not open for standard output, devices and pipes
    mode_t m_mode = 0;
    QByteArray m_buffer;
    qint64 m_size = 0;
    bool m_finished = false;
    QString m_error;
};

#endif
