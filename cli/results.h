#ifndef RESULTS_H
#define RESULTS_H

#include "cli/fileid.h"
#include "cli/outputfile.h"

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>

// The exit statuses of the program.
enum { EXIT_DONE = 0, EXIT_SOME_FAILED = 1, EXIT_WRONG_USE = 2 };

// The result of processing an archive. Nothing has been printed yet, and the files do not have
// their names yet: cResults does both, in the order of the archives.
struct RESULT_T {
    QString failure{};      // why the archive failed; empty on success
    QStringList warnings{}; // each a sentence about the archive
    QString summary{};      // what was done, for people; not used if all files were skipped
    QByteArray output{};    // for standard output
    QList<std::shared_ptr<cOutputFile>> files{}; // an error in one fails the archive
};

// Prints the results of a run and gives their files their names.
class cResults
{
public:
    // If isQuiet is set, summaries are not printed. Writing to standard output fails if it is one
    // of the inputs.
    cResults(QSet<FILEID_T> inputs, bool isQuiet);

    // A file that must not be replaced. The published files are protected as well.
    void protect(const FILEID_T &file) { m_protected.insert(file); }

    // Publishes and prints the result of an archive. `before` is printed before its output, if it
    // has any. Files that were not published are gone on return.
    void add(const QString &archive, RESULT_T result, const QByteArray &before);
    // Prints why an archive or another file failed.
    void fail(const QString &file, const QString &reason);
    // Returns true until a result with output has been added.
    bool isEmpty() const { return m_isEmpty; }

    // Prints `after` and closes standard output. Returns the exit status.
    int finish(const QByteArray &after);

private:
    QString _publish(const RESULT_T &result);
    void _write(const QByteArray &bytes);

    QSet<FILEID_T> m_inputs;
    bool m_isQuiet = false;
    QSet<FILEID_T> m_protected;
    std::unique_ptr<cOutputFile> m_output; // standard output; null until the first byte
    bool m_isEmpty = true;
    int m_status = EXIT_DONE;
};

#endif
