#ifndef RUN_H
#define RUN_H

#include <QtGlobal>

class QFile;

// Converts the first input of gParams to the format of its filter: asks for an output name, then
// reads the input under a progress dialog until its end or until the user cancels. Cancel keeps
// what has been written so far. Leaves the chosen name, or nothing, in the outputs of gParams.
//
// Reports nothing. If the input cannot be opened or the user chooses no name, no file is touched.
void runExtraction();

// Returns how much of the file has been read, in percent; 0 for special files without a size.
// `size` is the caller's copy of the file's size and starts at 0. It is updated once the position
// has passed it, so a file may grow while it is read.
int percentRead(const QFile &file, qint64 *size);

#endif
