#ifndef OUTPUTFILE_H
#define OUTPUTFILE_H

#include "cli/fileid.h"

#include <QObject>
#include <QTemporaryFile>

// What to do if an output's file exists.
enum EXISTING_T { EXISTING_FAIL, EXISTING_REPLACE, EXISTING_SKIP };

// Returns true if two names of outputs mean the same one. Neither needs to exist.
bool isSameOutput(const QString &a, const QString &b);

// The sink of a chain: the complete output appears under its name, or nothing does.
//
// Bytes are written to an unnamed file in the output's folder (or to a hidden one if the file
// system does not support unnamed files), and commit() gives it its name. If the process ends
// before that, even if it is killed, an older file of that name is unchanged. Standard output,
// devices and pipes are written directly.
//
// QSaveFile is not used because it always replaces an existing file, and leaves its temporary file
// if the process is killed.
class cOutputFile : public QObject
{
    Q_OBJECT

public:
    // Opens the output; "-" is standard output. `existing` applies only to regular files. A link to
    // a file that does not exist is an error unless `existing` is EXISTING_REPLACE. A file in
    // `inputs` is always an error.
    cOutputFile(QString name, EXISTING_T existing, const QSet<FILEID_T> &inputs);
    // Discards the output if it was not committed.
    ~cOutputFile() override;
    Q_DISABLE_COPY_MOVE(cOutputFile)

    const QString &name() const { return m_name; }
    // Returns true if the output accepts bytes: it was not skipped, and there was no error.
    bool isOpen() const { return !m_skipped && m_error.isEmpty(); }
    // Returns true if the file exists and is skipped. All operations then do nothing and succeed.
    bool isSkipped() const { return m_skipped; }

    // Passes the bytes received so far to the operating system. Returns false on failure.
    bool flush();
    // Writes everything to the disk; no bytes may follow. Returns false on failure.
    bool finish();
    // Finishes the output unless that is already done, and names the file. Returns false on
    // failure; an existing file of that name is then unchanged.
    bool commit();

    // The error message; empty if there was no error.
    const QString &error() const { return m_error; }
    // Bytes received.
    qint64 size() const { return m_size; }

public Q_SLOTS:
    // Appends the bytes; does nothing unless the output is open. The array need not outlive the
    // call.
    void slot_Data(const QByteArray &a);

Q_SIGNALS:
    // The output has failed and does not accept any more bytes. error() says why.
    void signal_Failed();

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
