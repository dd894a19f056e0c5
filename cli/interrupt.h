#ifndef INTERRUPT_H
#define INTERRUPT_H

// Ctrl-C and its like, so that a run ends with its own message and without a file left behind.

// From now on SIGINT, SIGTERM and SIGHUP are only noted. A second one of the same kind ends the
// process at once, in case the first is waiting for a pipe that nobody reads. A signal that the
// parent process ignores (nohup) stays ignored.
void catchInterrupts();

// Whether one was noted.
bool isInterrupted();

// Ends the process as the noted signal would have: a shell or xargs then knows to stop as well.
[[noreturn]] void endInterrupted();

#endif
