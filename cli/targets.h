#ifndef TARGETS_H
#define TARGETS_H

#include "cli/command.h"

#include <QCommandLineParser>
#include <QString>

#include <memory>

// Where the outputs of a command go: the options -o, -d and --overwrite, shared by all commands
// that write files.
class cTargets
{
public:
    static void addOptions(QCommandLineParser &parser);

    // Reads the options for these archives, which have one output if isJoined is set. Returns an
    // error message, empty on success.
    QString read(const QCommandLineParser &parser, const QList<ARCHIVE_T> &archives,
                 bool isJoined = false);

    // Opens the output for an archive, in a subfolder that is created if -d reproduces a tree. The
    // extension, with its dot, is used unless -o names the file. Never null. If the output is not
    // open, there is nothing to do: return it in RESULT_T::files, and cCommand reports why.
    std::shared_ptr<cOutputFile> open(const ARCHIVE_T &archive, const QString &extension,
                                      const QSet<FILEID_T> &inputs) const;

    // Opens another output under the same rules for existing files. Never null.
    std::shared_ptr<cOutputFile> openFile(const QString &name, const QSet<FILEID_T> &inputs) const;
    // The name of the output for an archive.
    QString nameFor(const ARCHIVE_T &archive, const QString &extension) const;

    // Whether -o was given.
    bool isFileSet() const { return !m_file.isEmpty(); }
    // The extension of -o's file with its dot, in lower case; empty if there is none.
    QString extension() const;
    // The error message for an extension that the command does not know.
    QString unknownFormat() const;

private:
    QString m_file;
    QString m_folder;
    EXISTING_T m_existing = EXISTING_FAIL;
};

#endif
