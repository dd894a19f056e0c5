#ifndef TARGETS_H
#define TARGETS_H

#include "cli/archives.h"
#include "cli/fileid.h"
#include "cli/outputfile.h"

#include <QCommandLineParser>
#include <QList>
#include <QSet>
#include <QString>

#include <memory>

// Determines where the outputs of a command are written. It reads the options -o, -d, --overwrite
// and --skip-existing, which all commands that write files have.
class cTargets
{
public:
    static void addOptions(QCommandLineParser &parser);

    // Reads the options. If isJoined is set, all archives have one output. Returns an error
    // message, empty on success.
    QString read(const QCommandLineParser &parser, const QList<ARCHIVE_T> &archives,
                 bool isJoined = false);

    // Opens the output for an archive. With -d, creates the archive's subfolder in that folder. The
    // extension begins with a dot and is not used if -o names the file. Never returns null. If the
    // output is not open, return it in RESULT_T::files, and cResults reports the reason.
    std::shared_ptr<cOutputFile> open(const ARCHIVE_T &archive, const QString &extension,
                                      const QSet<FILEID_T> &inputs) const;

    // Opens another output, with the same rules for existing files. Never returns null.
    std::shared_ptr<cOutputFile> openFile(const QString &name, const QSet<FILEID_T> &inputs) const;
    // Returns the name of the output for an archive. For standard input, that is "-" unless -o is
    // used.
    QString nameFor(const ARCHIVE_T &archive, const QString &extension) const;

    // Returns true if -o was used.
    bool isFileSet() const { return !m_file.isEmpty(); }
    // Returns the extension of -o's file with its dot, in lower case; empty if there is none.
    QString extension() const;
    // Returns the error message for an extension that the command does not know.
    QString unknownFormat() const;

private:
    QString m_file;
    QString m_folder;
    EXISTING_T m_existing = EXISTING_FAIL;
};

#endif
