#ifndef MESSAGES_H
#define MESSAGES_H

#include <QString>

// Texts for people.

// Names and titles may contain characters that control a terminal, reverse the direction of what
// follows or hide it: controls, formatting characters, line separators and tags. Both functions
// leave the two joiners, which some scripts need.

// Makes text safe to show on a terminal or in a picture: such characters become U+FFFD.
QString printable(const QString &text);

// Makes JSON safe to show on a terminal without changing its meaning: such characters are escaped.
QByteArray printableJson(const QByteArray &json);

// A file's name as messages show it: standardStream instead of "-".
QString displayName(const QString &name, const QString &standardStream);

// A number with its noun: "1 point", "2 points". The plural adds an s.
QString counted(qint64 count, const char *noun);

// Writes "vrk3: MESSAGE" to standard error.
void complain(const QString &message);

#endif
