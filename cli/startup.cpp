#include "cli/startup.h"

#include "cli/fileid.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>

namespace
{
// A writer sends its last bytes from its destructor, which must not throw.
[[noreturn]] void _terminate()
{
    try {
        if (std::current_exception())
            std::rethrow_exception(std::current_exception());
    } catch (const std::bad_alloc &) {
        constexpr std::string_view message = "vrk3: out of memory\n";
        [[maybe_unused]] const auto written =
            ::write(STDERR_FILENO, message.data(), message.size());
        ::_exit(EXIT_FAILURE);
    } catch (...) {
        // Not expected; abort shows where it came from.
    }
    std::abort();
}
} // namespace

void openStandardStreams()
{
    // The wrong direction, so that using the stand-in is an error.
    constexpr std::array<int, 3> modes = {O_WRONLY, O_RDONLY, O_RDONLY};
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
        if (::fcntl(fd, F_GETFD) < 0) // open returns the lowest free number, which is this one
            (void)::open("/dev/null", modes.at(size_t(fd)));
    }
}

void setSignals()
{
    // If the parent process ignores SIGPIPE, scripts would otherwise see errors about a closed
    // pipe.
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGXFSZ, SIG_IGN);
    std::set_terminate(_terminate);
}

void raiseFileLimit()
{
    struct rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max;
        (void)::setrlimit(RLIMIT_NOFILE, &limit);
    }
}

bool canOpenFile()
{
    const int fd = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
    return fd >= 0 && ::close(fd) == 0;
}

void setTimeZone()
{
    if (!qEnvironmentVariableIsSet("TZ"))
        qputenv("TZ", ":/etc/localtime");
}

QStringList decodeArguments(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(decodeFileName(argv[i]));
    return arguments;
}
