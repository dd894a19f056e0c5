#ifndef STARTUP_H
#define STARTUP_H

#include <QStringList>

// The steps of main before it reads the command.

// Opens a stand-in for each standard descriptor that is closed, so that no file opened later gets
// its number. Reading from the stand-in for standard input fails, and so does writing to the
// others. Call this before anything opens a file.
void openStandardStreams();

// Makes writing to a closed pipe end the program silently and writing beyond the permitted file
// size fail like any other error. Prints "out of memory" and exits if memory runs out where no
// exception can be caught.
void setSignals();

// Permits as many open files as the system allows. The default of 1024 is too low for the outputs
// of a few archives with many streams.
void raiseFileLimit();

// Returns false and sets errno if the limit on open files is used up. QCoreApplication would then
// abort. Call this after everything else that keeps a file open.
bool canOpenFile();

// Sets the environment variable TZ to the system's time zone unless it is set. The zone remains the
// same, but the C library no longer checks at each conversion whether it has changed, which takes
// longer than the conversion itself.
void setTimeZone();

// Decodes the program's arguments with decodeFileName.
QStringList decodeArguments(int argc, char **argv);

#endif
