#include "cli/interrupt.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <poll.h>
#include <unistd.h>

namespace
{
// Atomic because several threads read it; lock-free because a signal handler writes it.
std::atomic<int> g_signal = 0;
static_assert(std::atomic<int>::is_always_lock_free);

// A pipe that the handler writes to and waitForInput polls, so that a signal just before the wait
// is not missed.
std::array<int, 2> g_wake = {-1, -1};

void _note(int number)
{
    const int error = errno;
    g_signal = number;
    [[maybe_unused]] const auto written = ::write(g_wake[1], "", 1);
    errno = error;
}
} // namespace

void catchInterrupts()
{
    if (::pipe2(g_wake.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        g_wake = {-1, -1}; // poll ignores negative descriptors
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction old = {};
        sigaction(number, nullptr, &old);
        if (old.sa_handler == SIG_IGN)
            continue;
        // No SA_RESTART: a blocked read or write must return.
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
