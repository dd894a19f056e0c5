#include "cli/command.h"

#include "cli/interrupt.h"
#include "cli/messages.h"

#include <QCoreApplication>
#include <QScopeGuard>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <future>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{
const QString HELP = u"help"_s;
const QString HEADER_FROM = u"header-from"_s;
const QString JOBS = u"jobs"_s;
const QString QUIET = u"quiet"_s;
const QString RECURSIVE = u"recursive"_s;

constexpr int MAX_JOBS = 256;
constexpr std::chrono::milliseconds PROGRESS_INTERVAL(100);
// No archive is begun while the results that wait for that of an earlier archive hold this many
// files open. A result without files counts as one, because its output takes memory.
constexpr qsizetype MAX_WAITING = 64;

qsizetype _waitingFiles(const RESULT_T &result)
{
    return qMax<qsizetype>(1, result.files.size());
}

void _addCommonOptions(QCommandLineParser &parser)
{
    parser.addOption(
        {HEADER_FROM,
         u"If the header of an archive is missing, use that of GOOD, an archive of the "
         "same recorder."_s,
         u"GOOD"_s});
    parser.addOption({{u"r"_s, RECURSIVE}, u"Look for archives in subfolders as well."_s});
    parser.addOption({{u"j"_s, JOBS},
                      u"Process N archives at once; 0 means one per processor. The default is 1."_s,
                      u"N"_s});
    parser.addOption({{u"q"_s, QUIET}, u"Print only errors and warnings, and show no progress."_s});
    parser.addPositionalArgument(u"ARCHIVE"_s, u"VRK3 archives, or folders with .vrk3 files; - is "
                                               "standard input."_s);
}
} // namespace

cCommand::cCommand(QString name, QString usage, QString summary)
    : m_name(std::move(name)), m_usage(std::move(usage)), m_summary(std::move(summary))
{
}

int cCommand::run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(m_summary);
    parser.addOption({{u"h"_s, HELP}, u"Print this help."_s});
    addOptions(parser);
    _addCommonOptions(parser);
    // The parser expects the program's name first.
    if (!parser.parse(QStringList(m_name) + arguments))
        return _wrongUse(parser.errorText().chopped(1)); // without its full stop
    if (parser.isSet(HELP)) {
        _showHelp(parser);
        return EXIT_DONE;
    }
    for (const QString &option : parser.optionNames()) {
        for (const QString &value : parser.values(option)) {
            if (!value.isValidUtf16())
                return _wrongUse(u"'%1' is not valid UTF-8"_s.arg(value));
        }
    }
    QString wrong = _readCommonOptions(parser);
    if (wrong.isEmpty())
        wrong = readOptions(parser);
    if (isInterrupted()) // while folders were searched or a header was read
        endInterrupted();
    if (!wrong.isEmpty())
        return _wrongUse(wrong);

    cResults results(m_inputs, m_quiet);
    // The output for standard input goes to standard output, which may be redirected to the file of
    // another archive.
    if (const auto id = regularFile(STANDARD_STREAM, STDOUT_FILENO);
        id && parser.positionalArguments().contains(STANDARD_STREAM))
        results.protect(*id);
    {
        cProgress progress(m_archives.size(), !m_quiet);
        if (joinsArchives())
            _runJoined(progress, results);
        else if (m_jobs > 1 && m_archives.size() > 1)
            _runParallel(progress, results);
        else
            for (qsizetype i = 0; i < m_archives.size() && !isInterrupted(); ++i)
                _runOne(i, progress, results);
    }
    if (isInterrupted())
        endInterrupted();
    return results.finish(after(results.isEmpty()));
}

// Returns an error message, empty on success.
QString cCommand::_readCommonOptions(const QCommandLineParser &parser)
{
    if (parser.isSet(JOBS)) {
        bool isNumber = false;
        m_jobs = parser.value(JOBS).toInt(&isNumber);
        if (!isNumber || m_jobs < 0 || m_jobs > MAX_JOBS)
            return u"-j needs a number from 0 to %1"_s.arg(MAX_JOBS);
        if (m_jobs == 0)
            m_jobs = QThread::idealThreadCount();
    }
    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        return u"no archive given"_s;
    const QString good = parser.value(HEADER_FROM);
    if ((arguments + QStringList(good)).count(STANDARD_STREAM) > 1)
        return u"standard input can be read only once"_s;
    m_quiet = parser.isSet(QUIET);
    m_archives = findArchives(arguments, parser.isSet(RECURSIVE));
    const auto protect = [this](const QString &input) {
        if (const auto id = regularFile(input, STDIN_FILENO))
            m_inputs.insert(*id);
    };
    for (ARCHIVE_T &archive : m_archives) {
        if (!archive.name.isValidUtf16())
            archive.failure = u"its name is not valid UTF-8"_s;
        protect(archive.name);
        if (parser.isSet(HEADER_FROM))
            archive.header = &m_header;
    }
    if (!parser.isSet(HEADER_FROM))
        return {};
    protect(good);
    const QString wrong = m_header.read(good);
    return wrong.isEmpty() ? QString() : u"--header-from %1: %2"_s.arg(good, wrong);
}

QByteArray cCommand::before(bool) const
{
    return {};
}

QByteArray cCommand::after(bool) const
{
    return {};
}

void cCommand::_runOne(qsizetype index, cProgress &progress, cResults &results) const
{
    const ARCHIVE_T &archive = m_archives.at(index);
    progress.begin(index + 1, archive.name);
    RESULT_T result = _process(archive, progress);
    progress.clear();
    results.add(archive.name, std::move(result), before(results.isEmpty()));
}

// Processes the archives on several threads, and adds their results on this thread in their order.
void cCommand::_runParallel(cProgress &progress, cResults &results) const
{
    const qsizetype count = m_archives.size();
    std::vector<std::promise<RESULT_T>> promises{size_t(count)};
    std::mutex mutex; // protects the next two
    qsizetype next = 0;
    qsizetype waiting = 0; // files
    std::condition_variable changed;
    const auto work = [&] {
        for (;;) {
            std::unique_lock lock(mutex);
            changed.wait(lock, [&] { return waiting < MAX_WAITING || next == count; });
            if (next == count)
                return;
            const qsizetype i = next++;
            lock.unlock();
            cProgress none(1, false);
            RESULT_T result = _process(m_archives.at(i), none);
            lock.lock();
            waiting += _waitingFiles(result);
            lock.unlock();
            promises[size_t(i)].set_value(std::move(result));
        }
    };
    std::vector<std::jthread> threads;
    const auto stop = qScopeGuard([&] {
        const std::lock_guard lock(mutex);
        next = count;
        changed.notify_all();
    });
    // QThreadPool would wait forever for a thread that cannot be created.
    try {
        while (threads.size() < size_t(qMin<qsizetype>(m_jobs, count)))
            threads.emplace_back(work);
    } catch (const std::system_error &) {
        // Without memory for all of them, fewer do the work.
    }
    for (qsizetype i = 0; i < count && !isInterrupted(); ++i) {
        if (threads.empty()) {
            _runOne(i, progress, results);
            continue;
        }
        progress.begin(i + 1, m_archives.at(i).name);
        std::future<RESULT_T> future = promises[size_t(i)].get_future();
        while (future.wait_for(PROGRESS_INTERVAL) != std::future_status::ready)
            progress.refresh();
        RESULT_T result = future.get();
        const qsizetype files = _waitingFiles(result);
        progress.clear();
        results.add(m_archives.at(i).name, std::move(result), before(results.isEmpty()));
        const std::lock_guard lock(mutex);
        waiting -= files;
        changed.notify_all();
    }
}

void cCommand::_runJoined(cProgress &progress, cResults &results) const
{
    QList<RESULT_T> parts;
    RESULT_T result;
    try {
        result = processAll(progress, parts);
    } catch (const std::bad_alloc &) {
        result.failure = u"out of memory"_s;
    }
    progress.clear();
    qsizetype used = m_archives.size();
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (!parts.at(i).failure.isEmpty())
            --used;
        results.add(m_archives.at(i).name, parts.at(i), {});
    }
    results.add(counted(used, "archive"), std::move(result), before(results.isEmpty()));
}

RESULT_T cCommand::processAll(cProgress &, QList<RESULT_T> &) const
{
    return {};
}

RESULT_T cCommand::_process(const ARCHIVE_T &archive, cProgress &progress) const
{
    if (!archive.failure.isEmpty())
        return {archive.failure};
    try {
        RESULT_T result = process(archive, progress);
        for (const auto &file : result.files)
            file->moveToThread(QCoreApplication::instance()->thread());
        return result;
    } catch (const std::bad_alloc &) {
        return {u"out of memory"_s};
    }
}

int cCommand::_wrongUse(const QString &reason) const
{
    complain(u"%1: %2; see vrk3 %1 --help"_s.arg(m_name, reason));
    return EXIT_WRONG_USE;
}

void cCommand::_showHelp(const QCommandLineParser &parser) const
{
    // Qt's first line would show the program's path and no command.
    const QString help = parser.helpText();
    std::printf("Usage: vrk3 %s %s\n%s", qPrintable(m_name), qPrintable(m_usage),
                qPrintable(help.mid(help.indexOf(u'\n') + 1)));
}
