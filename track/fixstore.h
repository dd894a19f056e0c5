#ifndef FIXSTORE_H
#define FIXSTORE_H

#include "track/fix.h"

#include <QList>
#include <QString>
#include <QTemporaryFile>

// A list of fixes of any length. A short one is kept in memory, a long one in a temporary file,
// which disappears with the object or the process.
class cFixStore
{
public:
    // Appends fixes. Does nothing after an error.
    void append(const QList<FIX_T> &fixes);

    qint64 size() const { return m_size; }
    // Returns the n fixes from index on, which must exist. Returns an empty list if they cannot be
    // read.
    QList<FIX_T> read(qint64 index, qsizetype n);

    // The operating system's message for the first error; empty if there was none.
    const QString &error() const { return m_error; }

private:
    static constexpr qint64 KEPT_IN_MEMORY = 1 << 16;

    void _write(const QList<FIX_T> &fixes);
    void _fail();

    QList<FIX_T> m_fixes; // unless they are in the file
    QTemporaryFile m_file;
    qint64 m_size = 0;
    QString m_error;
};

#endif
