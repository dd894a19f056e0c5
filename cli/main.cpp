// vrk3: the command line. It inspects archives and writes their tracks, many at once and without a
// screen.
#include "cli/convert.h"
#include "cli/extract.h"
#include "cli/info.h"
#include "cli/interrupt.h"
#include "cli/messages.h"
#include "cli/plot.h"
#include "cli/startup.h"
#include "cli/track.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <new>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
using commands = QList<cCommand *>;

const QString HELP = u"help"_s;

void _showHelp(const commands &all)
{
    std::puts(
        "Usage: vrk3 COMMAND [options] ARCHIVE...\n\n"
        "Reports what VRK3 archives contain, and writes their GPS tracks and other streams.\n\n"
        "Commands:");
    for (const cCommand *command : all)
        std::printf("  %-9s%s\n", qPrintable(command->name()), qPrintable(command->summary()));
    std::puts("  help     Print this help, or that of a command.\n\n"
              "Options:\n"
              "  -h, --help         Print this help; after a command, that command's.\n"
              "  -v, -V, --version  Print the version.");
}

cCommand *_find(const commands &all, const QString &name)
{
    const auto it = std::find_if(all.begin(), all.end(),
                                 [&](const cCommand *command) { return command->name() == name; });
    return it == all.end() ? nullptr : *it;
}

// Returns how many letters must be inserted, removed or replaced to turn one word into the other.
qsizetype _distance(const QString &from, const QString &to)
{
    QList<qsizetype> row(to.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (const QChar letter : from) {
        qsizetype diagonal = row[0]++;
        for (qsizetype i = 1; i < row.size(); ++i) {
            const qsizetype replaced = diagonal + (letter == to.at(i - 1) ? 0 : 1);
            diagonal = row[i];
            row[i] = std::min({replaced, row[i] + 1, row[i - 1] + 1});
        }
    }
    return row.constLast();
}

// Suggests what the user may have meant by an unknown command: a similar one, or a command for an
// archive.
QString _suggestion(const commands &all, const QString &word)
{
    QStringList names = {HELP};
    for (const cCommand *command : all)
        names.append(command->name());
    QString best;
    qsizetype least = 3; // a word with so many different letters is not similar
    for (const QString &name : std::as_const(names)) {
        const bool isStart = name.startsWith(word, Qt::CaseInsensitive);
        const qsizetype distance = isStart ? 0 : _distance(word.toLower(), name);
        if (distance < least) {
            least = distance;
            best = name;
        }
    }
    if (!best.isEmpty())
        return u"did you mean vrk3 %1?"_s.arg(best);
    if (word.endsWith(".vrk3"_L1, Qt::CaseInsensitive))
        return u"did you mean vrk3 %1 %2?"_s.arg(all.constFirst()->name(), word);
    return u"see vrk3 --help"_s;
}

int _unknownCommand(const commands &all, const QString &word)
{
    complain(u"unknown command '%1'; %2"_s.arg(word, _suggestion(all, word)));
    return EXIT_WRONG_USE;
}

int _run(const QStringList &arguments)
{
    cTrackCommand track;
    cConvert convert;
    cInfo info;
    cPlot plot;
    cExtract extract;
    // The first is suggested for an archive.
    const commands all = {&track, &convert, &info, &plot, &extract};

    const QString first = arguments.value(1);
    if (first.isEmpty()) {
        complain(u"no command given; see vrk3 --help"_s);
        return EXIT_WRONG_USE;
    }
    const QStringList help = {u"-h"_s, u"--help"_s, HELP};
    if (help.contains(first)) {
        const QString topic = arguments.value(2);
        if (first != HELP || topic.isEmpty() || help.contains(topic)) {
            _showHelp(all);
            return EXIT_DONE;
        }
        cCommand *const command = _find(all, topic);
        return command ? command->run({u"--help"_s}) : _unknownCommand(all, topic);
    }
    if (QStringList{u"-v"_s, u"-V"_s, u"--version"_s}.contains(first)) {
        std::puts("vrk3 " VRKTRK_VERSION);
        return EXIT_DONE;
    }
    cCommand *const command = _find(all, first);
    return command ? command->run(arguments.mid(2)) : _unknownCommand(all, first);
}
} // namespace

int main(int argc, char *argv[])
{
    openStandardStreams();
    setSignals();
    raiseFileLimit();
    catchInterrupts();
    setTimeZone();
    if (!canOpenFile()) {
        complain(qt_error_string());
        return EXIT_SOME_FAILED;
    }

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
