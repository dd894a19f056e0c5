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

    // Reads the options for these archives. Returns an error message, empty on success.
    QString read(const QCommandLineParser &parser, const QList<ARCHIVE_T> &archives);

    // Opens the output for an archive. The extension, with its dot, is used unless -o names the
    // file. Never null; if opening failed, the output's error() says why.
    std::shared_ptr<cOutputFile> open(const ARCHIVE_T &archive, const QString &extension,
                                      const QSet<FILEID_T> &inputs) const;

    // The extension of -o's file with its dot, in lower case; empty if there is none.
    QString extension() const;

private:
    QString _nameFor(const QString &archive, const QString &extension) const;

    QString m_file;
    QString m_folder;
    bool m_overwrite = false;
};

#endif
