#ifndef MESSAGES_H
#define MESSAGES_H

#include <QString>

// Helpers for messages to the user.

// Names and titles may contain characters that control a terminal, reverse the direction of what
// follows or hide it: controls, formatting characters, line separators and tags. The next two
// functions keep the zero-width joiner and non-joiner, which some scripts need.

// Makes text safe to show on a terminal or in a picture: replaces such characters with U+FFFD.
QString printable(const QString &text);

// Makes JSON safe to show on a terminal without changing its meaning: escapes such characters.
QByteArray printableJson(const QByteArray &json);

// Returns a file's name as messages show it: standardStream instead of "-".
QString displayName(const QString &name, const QString &standardStream);

// Returns a number with its noun: "1 point", "2 points". The plural adds an s.
QString counted(qint64 count, const char *noun);

// Prints "vrk3: MESSAGE" to standard error, with the message made printable.
void complain(const QString &message);

#endif
