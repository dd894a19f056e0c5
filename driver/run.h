#ifndef RUN_H
#define RUN_H

#include <QtGlobal>

class QFile;

// Converts the first input of gParams to the format that the filter of gParams names. Asks for an
// output name, then shows a progress dialog until the whole input has been read or the user
// cancels. Cancel keeps what has been written so far.
//
// Afterwards the outputs of gParams hold the chosen name or nothing. Errors are not reported. If
// the input cannot be opened or the user chooses no name, no file is written.
void runExtraction();

// Returns how much of the file has been read, in percent; 0 for special files without a size.
// `size` is the caller's copy of the file's size and starts at 0. It is updated once the position
// has passed it, so a file may grow while it is read.
int percentRead(const QFile &file, qint64 *size);

#endif
