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
    const cBorrowedHeader *header = nullptr; // what to read it with, if not null
};

// Replaces each folder in the arguments by the files in it whose names end in .vrk3 in any case,
// sorted by name; if recursive is set, also by those below it. Hidden files and folders are left
// out, and links to folders are not followed. A folder that cannot be read or has no such files
// stays in the list, with a failure.
QList<ARCHIVE_T> findArchives(const QStringList &arguments, bool recursive);

#endif
