#ifndef COMMAND_H
#define COMMAND_H

#include "cli/inputfile.h"

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

// The exit statuses of the program.
enum { EXIT_DONE = 0, EXIT_SOME_FAILED = 1, EXIT_WRONG_USE = 2 };

// Text for a terminal or a picture: control characters, of which names and titles can be full,
// replaced.
QString printable(const QString &text);

// How a file is called in a message: "-" has a name of its own.
QString displayName(const QString &name, const QString &standardStream);

// Writes "vrk3: MESSAGE" to standard error.
void complain(const QString &message);

// One of the program's commands: reads its options and does its work on one archive after the
// other. An archive that fails does not stop those behind it.
class cCommand
{
public:
    virtual ~cCommand() = default;
    Q_DISABLE_COPY_MOVE(cCommand)

    const QString &name() const { return m_name; }
    const QString &summary() const { return m_summary; }

    // Takes the arguments behind the command's name and gives the exit status.
    int run(const QStringList &arguments);

protected:
    // usage is what stands behind the command's name in its help.
    cCommand(QString name, QString usage, QString summary);

    virtual void addOptions(QCommandLineParser &parser) = 0;
    // Gives what is wrong with the command line; empty if nothing is.
    virtual QString readOptions(const QCommandLineParser &parser) = 0;
    // Gives why the archive failed; empty if it did not.
    virtual QString process(const QString &archive) = 0;
    // Comes behind the last archive; gives why that failed.
    virtual QString finish() { return {}; }

    // The archives of the command line, "-" for standard input, known from readOptions on.
    const QStringList &archives() const { return m_archives; }
    // Those of them that are regular files.
    QList<FILEID_T> archiveIds() const;

private:
    int _wrongUse(const QString &reason) const;
    void _showHelp(const QCommandLineParser &parser) const;

    QString m_name;
    QString m_usage;
    QString m_summary;
    QStringList m_archives;
};

#endif
