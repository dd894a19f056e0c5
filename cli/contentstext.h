#ifndef CONTENTSTEXT_H
#define CONTENTSTEXT_H

#include <QString>

class cContents;

// The contents of an archive as lines of text for people. The last line is terminated.
QString contentsText(const cContents &contents);

#endif
