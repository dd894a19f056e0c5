#include "cli/interrupt.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <poll.h>
#include <unistd.h>

static volatile std::sig_atomic_t g_signal = 0;

// What the handler writes into and waitForInput waits for: a signal that comes just before the wait
// is found all the same.
static std::array<int, 2> g_wake = {-1, -1};

static void _note(int number)
{
    const int error = errno;
    g_signal = number;
    [[maybe_unused]] const auto written = ::write(g_wake[1], "", 1);
    errno = error;
}

void catchInterrupts()
{
    if (::pipe2(g_wake.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        g_wake = {-1, -1}; // which poll passes over
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

bool waitForInput(int fd)
{
    std::array<pollfd, 2> waits = {{{fd, POLLIN, 0}, {g_wake[0], POLLIN, 0}}};
    while (!isInterrupted() && ::poll(waits.data(), waits.size(), -1) < 0 && errno == EINTR) {
    }
    return !isInterrupted();
}

void endInterrupted()
{
    const int number = g_signal;
    std::signal(number, SIG_DFL);
    std::raise(number);
    std::abort();
}
