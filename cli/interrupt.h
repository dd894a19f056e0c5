#ifndef INTERRUPT_H
#define INTERRUPT_H

// Handling of Ctrl-C and similar signals: the run stops and leaves no partial output.

// Installs the handlers. After this, SIGINT, SIGTERM and SIGHUP are only remembered. A second one
// of the same kind ends the process at once, in case it is stuck on a pipe that nobody reads. A
// signal that the parent process ignores (nohup) stays ignored.
void catchInterrupts();

// Returns true if one of the signals has arrived.
bool isInterrupted();

// Waits until a read from the descriptor would not block. Returns false if a signal has arrived.
// Calling isInterrupted and then reading is not enough: a signal that arrives in between would
// leave the read waiting forever.
bool waitForInput(int fd);

// Ends the process as the remembered signal would have, so that a shell or xargs stops as well.
[[noreturn]] void endInterrupted();

#endif
