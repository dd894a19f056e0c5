#ifndef CONTENTSTSV_H
#define CONTENTSTSV_H

#include <QString>

class cContents;

// The contents of an archive as one line of a table with tabs between the columns, and the line
// that names the columns. Both are terminated. Cells contain no tabs or line ends, and are empty
// where a value is unknown.
QString contentsTsvHeader();
QString contentsTsv(const cContents &contents);

#endif
