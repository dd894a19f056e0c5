#ifndef TARGETS_H
#define TARGETS_H

#include "cli/outputfile.h"

#include <QCommandLineParser>
#include <QSet>
#include <QString>
#include <QStringList>

// Where the outputs of a command go: the options -o, -d, --overwrite and -q, which all commands
// that write files have in common.
class cTargets
{
public:
    static void addOptions(QCommandLineParser &parser);

    // Gives what is wrong with the options for these archives; empty if nothing is.
    QString read(const QCommandLineParser &parser, const QStringList &archives);

    // The output of an archive, "-" for standard output. The extension comes with its dot; it
    // counts where the command line does not name the file.
    QString nameFor(const QString &archive, const QString &extension) const;

    // The extension of -o's file, dot included, in lower case; empty without one.
    QString extension() const;

    // The last step for an archive that was read without failure: commits its output, which has the
    // name that nameFor gave, and tells so in a line with the summary. A name is given once in a
    // run: of two archives of one name the second fails. Gives why it failed; empty if it did not.
    QString conclude(const QString &archive, const QString &name, cOutputFile &output,
                     const QString &summary);

    bool overwrite() const { return m_overwrite; }
    bool quiet() const { return m_quiet; }

private:
    QString m_file;
    QString m_folder;
    bool m_overwrite = false;
    bool m_quiet = false;
    QSet<QString> m_written;
};

#endif
