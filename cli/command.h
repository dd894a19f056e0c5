#ifndef COMMAND_H
#define COMMAND_H

#include "cli/archives.h"
#include "cli/fileid.h"
#include "cli/outputfile.h"
#include "cli/progress.h"

#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

// The exit statuses of the program.
enum { EXIT_DONE = 0, EXIT_SOME_FAILED = 1, EXIT_WRONG_USE = 2 };

// The result of processing an archive. Nothing has been printed yet, and the files do not have
// their names yet: cCommand does both, in the order of the archives.
struct RESULT_T {
    QString failure{};      // why the archive failed; empty on success
    QStringList warnings{}; // each a sentence about the archive
    QString summary{};      // what was done, for people; not used if all files were skipped
    QByteArray output{};    // for standard output
    QList<std::shared_ptr<cOutputFile>> files{}; // an error in one fails the archive
};

// One of the program's commands: reads its options and processes the archives one by one. An
// archive that fails does not stop the others.
class cCommand
{
public:
    virtual ~cCommand() = default;
    Q_DISABLE_COPY_MOVE(cCommand)

    const QString &name() const { return m_name; }
    const QString &summary() const { return m_summary; }

    // Runs the command with the arguments that follow its name. Returns the exit status.
    int run(const QStringList &arguments);

protected:
    // `usage` is the part of the usage line after the command's name.
    cCommand(QString name, QString usage, QString summary);

    virtual void addOptions(QCommandLineParser &parser) = 0;
    // Returns an error message, empty on success.
    virtual QString readOptions(const QCommandLineParser &parser) = 0;
    // Processes one archive. It must not print, and it may run on several threads at once.
    virtual RESULT_T process(const ARCHIVE_T &archive, cProgress &progress) const = 0;
    // Returns true if the options ask for one result from all archives. Then processAll() is called
    // instead of process().
    virtual bool joinsArchives() const { return false; }
    // Processes all archives. Appends those that could not be used to `failed`, with their
    // failures. Called only if joinsArchives() returns true.
    virtual RESULT_T processAll(cProgress &progress, QList<ARCHIVE_T> &failed) const;
    // Return what is printed before the output of each archive, and after that of the last one.
    virtual QByteArray before(bool isFirst) const;
    virtual QByteArray after(bool isEmpty) const;

    // The archives on the command line. Valid from readOptions() on.
    const QList<ARCHIVE_T> &archives() const { return m_archives; }
    // The regular files among the inputs, which must not be overwritten.
    const QSet<FILEID_T> &inputs() const { return m_inputs; }

private:
    QString _readCommonOptions(const QCommandLineParser &parser);
    int _wrongUse(const QString &reason) const;
    void _showHelp(const QCommandLineParser &parser) const;
    void _runOne(qsizetype index, cProgress &progress);
    void _runParallel(cProgress &progress);
    void _runJoined(cProgress &progress);
    RESULT_T _process(const ARCHIVE_T &archive, cProgress &progress) const;
    void _conclude(const ARCHIVE_T &archive, RESULT_T result);
    QString _commit(const RESULT_T &result);
    void _write(const QByteArray &bytes);
    void _fail(const QString &file, const QString &reason);

    QString m_name;
    QString m_usage;
    QString m_summary;
    bool m_quiet = false;
    int m_jobs = 1;
    cBorrowedHeader m_header;
    QList<ARCHIVE_T> m_archives;
    QSet<FILEID_T> m_inputs;

    QSet<FILEID_T> m_outputs;              // files that this run must not replace
    std::unique_ptr<cOutputFile> m_output; // standard output; null until the first byte
    bool m_isFirst = true;
    int m_status = EXIT_DONE;
};

#endif
