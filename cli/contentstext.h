#ifndef CONTENTSTEXT_H
#define CONTENTSTEXT_H

#include <QString>

class cContents;

// Returns the contents of an archive as readable text. Each line ends with a line feed.
QString contentsText(const cContents &contents);

#endif
