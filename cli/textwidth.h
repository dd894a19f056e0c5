#ifndef TEXTWIDTH_H
#define TEXTWIDTH_H

#include <QString>

// Estimates of the width of texts in a wide bold font. There is no font to measure, because the
// viewer of a picture chooses it. An em is the size of the font.

// Returns the width of a text in ems.
double textEms(const QString &text);

// Shortens a text to this many ems, without splitting what readers see as one character.
QString fittedText(const QString &text, double ems);

#endif
