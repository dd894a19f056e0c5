#ifndef COMMAND_H
#define COMMAND_H

#include "cli/archives.h"
#include "cli/fileid.h"
#include "cli/progress.h"
#include "cli/results.h"

#include <QCommandLineParser>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

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
    // Processes all archives. Appends a result for each archive to `parts`, with its failure and
    // its warnings. Called only if joinsArchives() returns true.
    virtual RESULT_T processAll(cProgress &progress, QList<RESULT_T> &parts) const;
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
    void _runOne(qsizetype index, cProgress &progress, cResults &results) const;
    void _runParallel(cProgress &progress, cResults &results) const;
    void _runJoined(cProgress &progress, cResults &results) const;
    RESULT_T _process(const ARCHIVE_T &archive, cProgress &progress) const;

    QString m_name;
    QString m_usage;
    QString m_summary;
    bool m_quiet = false;
    int m_jobs = 1;
    cBorrowedHeader m_header;
    QList<ARCHIVE_T> m_archives;
    QSet<FILEID_T> m_inputs;
};

#endif
