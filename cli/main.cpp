// vrk3: the work of the window as a command, for archives by the hundred and machines without a
// screen.
#include "cli/convert.h"
#include "cli/info.h"
#include "cli/interrupt.h"
#include "cli/plot.h"

#include <QCoreApplication>

#include <array>
#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

static void _showHelp(const QList<cCommand *> &commands)
{
    std::puts("Usage: vrk3 COMMAND [options] ARCHIVE...\n\n"
              "Tells what is in VRK3 archives and writes their GPS tracks.\n\n"
              "Commands:");
    for (const cCommand *command : commands)
        std::printf("  %-9s%s\n", qPrintable(command->name()), qPrintable(command->summary()));
    std::puts("\nOptions:\n"
              "  -h, --help     Shows this help; behind a command, that command's.\n"
              "  -v, --version  Shows the version.");
}

static int _run(const QStringList &arguments)
{
    cConvert convert;
    cInfo info;
    cPlot plot;
    const QList<cCommand *> commands = {&convert, &info, &plot};

    const QString first = arguments.value(1);
    if (first == "--help"_L1 || first == "-h"_L1) {
        _showHelp(commands);
        return EXIT_DONE;
    }
    if (first == "--version"_L1 || first == "-v"_L1) {
        std::puts("vrk3 " VRKTRK_VERSION);
        return EXIT_DONE;
    }
    for (cCommand *command : commands) {
        if (command->name() == first)
            return command->run(arguments.mid(2));
    }
    complain(first.isEmpty() ? u"no command was given (see vrk3 --help)"_s
                             : u"there is no command '%1' (see vrk3 --help)"_s.arg(first));
    return EXIT_WRONG_USE;
}

int main(int argc, char *argv[])
{
    // A reader that has gone away ends the program without a word, also where the parent process
    // had other plans for this signal.
    std::signal(SIGPIPE, SIG_DFL);
    catchInterrupts();

    // Under a locale that is not UTF-8 Qt goes on with UTF-8 and says so, on every start: scripts
    // and cron jobs have such locales, and standard error has one line for each file here.
    const auto silence = [](QtMsgType, const QMessageLogContext &, const QString &) {};
    const QtMessageHandler usual = qInstallMessageHandler(silence);
    const QCoreApplication app(argc, argv);
    qInstallMessageHandler(usual);

    const int status = _run(QCoreApplication::arguments());
    if (std::fflush(stdout) != 0 && status == EXIT_DONE) {
        complain(u"standard output: "_s + qt_error_string());
        return EXIT_SOME_FAILED;
    }
    return status;
}
