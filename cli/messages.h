#ifndef MESSAGES_H
#define MESSAGES_H

#include <QString>

// Texts for people.

// Makes text safe to show on a terminal or in a picture: control and formatting characters, which
// names and titles may contain, become U+FFFD.
QString printable(const QString &text);

// A file's name as messages show it: standardStream instead of "-".
QString displayName(const QString &name, const QString &standardStream);

// A number with its noun: "1 point", "2 points". The plural adds an s.
QString counted(qint64 count, const char *noun);

// Writes "vrk3: MESSAGE" to standard error.
void complain(const QString &message);

#endif
