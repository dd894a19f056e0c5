// vrk3: what the window does, as a command, for many archives and for machines without a screen.
#include "cli/convert.h"
#include "cli/info.h"
#include "cli/interrupt.h"
#include "cli/messages.h"
#include "cli/plot.h"
#include "cli/startup.h"

#include <QCoreApplication>

#include <cstdio>
#include <new>

using namespace Qt::StringLiterals;

namespace
{
void _showHelp(const QList<cCommand *> &commands)
{
    std::puts("Usage: vrk3 COMMAND [options] ARCHIVE...\n\n"
              "Reports what VRK3 archives contain and writes their GPS tracks.\n\n"
              "Commands:");
    for (const cCommand *command : commands)
        std::printf("  %-9s%s\n", qPrintable(command->name()), qPrintable(command->summary()));
    std::puts("\nOptions:\n"
              "  -h, --help     Print this help; after a command, that command's.\n"
              "  -v, --version  Print the version.");
}

int _run(const QStringList &arguments)
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
    complain(first.isEmpty() ? u"no command given; see vrk3 --help"_s
                             : u"unknown command '%1'; see vrk3 --help"_s.arg(first));
    return EXIT_WRONG_USE;
}
} // namespace

int main(int argc, char *argv[])
{
    openStandardStreams();
    setSignals();
    catchInterrupts();

    // Under a locale that is not UTF-8, Qt switches to UTF-8 and warns at every start. Scripts and
    // cron jobs often have such locales, and standard error is for one line per file.
    const auto silence = [](QtMsgType, const QMessageLogContext &, const QString &) {};
    const QtMessageHandler usual = qInstallMessageHandler(silence);
    int one = 1; // Qt would interpret some of the arguments, even after --
    const QCoreApplication app(one, argv);
    qInstallMessageHandler(usual);

    int status = EXIT_SOME_FAILED;
    try {
        status = _run(decodeArguments(argc, argv));
    } catch (const std::bad_alloc &) {
        complain(u"out of memory"_s);
    }
    if (std::fflush(stdout) != 0 && status == EXIT_DONE) {
        complain(u"standard output: "_s + qt_error_string());
        return EXIT_SOME_FAILED;
    }
    return status;
}
