#include "interrupt.h"

#include <csignal>
#include <cstdlib>
#include <initializer_list>

static volatile std::sig_atomic_t g_signal = 0;

static void _note(int number)
{
    g_signal = number;
}

void catchInterrupts()
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction old = {};
        sigaction(number, nullptr, &old);
        if (old.sa_handler == SIG_IGN)
            continue;
        // Without SA_RESTART: a read or write that waits comes back.
        struct sigaction action = {};
        action.sa_handler = _note;
        action.sa_flags = int(SA_RESETHAND);
        sigaction(number, &action, nullptr);
    }
}

bool isInterrupted()
{
    return g_signal != 0;
}

void endInterrupted()
{
    const int number = g_signal;
    std::signal(number, SIG_DFL);
    std::raise(number);
    std::abort();
}
