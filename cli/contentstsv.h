#ifndef CONTENTSTSV_H
#define CONTENTSTSV_H

#include <QString>

class cContents;

// Return the line with the names of the columns, and the contents of an archive as one line of the
// table. Columns are separated by tabs, and both lines end with a line feed. Cells contain no tabs
// or line ends; a cell is empty if its value is unknown.
QString contentsTsvHeader();
QString contentsTsv(const cContents &contents);

#endif
