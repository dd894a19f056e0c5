#ifndef INTERRUPT_H
#define INTERRUPT_H

// Ctrl-C and its like, so that a run ends with its own message and without a file left behind.

// From now on SIGINT, SIGTERM and SIGHUP are only noted. A second one of the same kind ends the
// process at once, in case the first is waiting for a pipe that nobody reads. A signal that the
// parent process ignores (nohup) stays ignored.
void catchInterrupts();

// Whether one was noted.
bool isInterrupted();

// Waits until the descriptor has something to read, or its end or an error to tell. False: a signal
// was noted before. Asking isInterrupted and then reading is not enough: the signal may come in
// between, and the read may wait for ever.
bool waitForInput(int fd);

// Ends the process as the noted signal would have: a shell or xargs then knows to stop as well.
[[noreturn]] void endInterrupted();

#endif
