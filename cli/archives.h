#ifndef ARCHIVES_H
#define ARCHIVES_H

#include "cli/borrowedheader.h"

#include <QList>
#include <QString>
#include <QStringList>

// An archive to process.
struct ARCHIVE_T {
    QString name;        // "-" is standard input
    QString subfolder{}; // where it was found, relative to the folder on the command line; or empty
    QString failure{};   // why it cannot be processed; empty if it can
    const cBorrowedHeader *header = nullptr; // used if its own is missing; may be null; not owned
};

// Replaces each folder in the arguments with the files in it whose names end in .vrk3 in upper or
// lower case, sorted by name. If recursive is set, those in subfolders are included. Hidden files
// and folders are left out, and links to folders are not followed. A folder that cannot be read or
// has no such files stays in the list, with a failure.
QList<ARCHIVE_T> findArchives(const QStringList &arguments, bool recursive);

#endif
