#include "cli/command.h"

#include "cli/interrupt.h"
#include "cli/messages.h"

#include <cstdio>
#include <new>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

cCommand::cCommand(QString name, QString usage, QString summary)
    : m_name(std::move(name)), m_usage(std::move(usage)), m_summary(std::move(summary))
{
}

int cCommand::run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(m_summary);
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Print this help."_s);
    const QCommandLineOption quiet({u"q"_s, u"quiet"_s},
                                   u"Print only errors and warnings, and show no progress."_s);
    parser.addOption(help);
    addOptions(parser);
    parser.addOption(quiet);
    parser.addPositionalArgument(u"ARCHIVE"_s, u"VRK3 archives; - is standard input."_s);
    // The parser expects the program's name first.
    if (!parser.parse(QStringList(m_name) + arguments))
        return _wrongUse(parser.errorText().chopped(1)); // without its full stop
    if (parser.isSet(help)) {
        _showHelp(parser);
        return EXIT_DONE;
    }
    for (const QString &option : parser.optionNames()) {
        for (const QString &value : parser.values(option)) {
            if (!value.isValidUtf16())
                return _wrongUse(u"'%1' is not valid UTF-8"_s.arg(value));
        }
    }
    m_quiet = parser.isSet(quiet);
    for (const QString &name : parser.positionalArguments()) {
        m_archives.append({name});
        struct stat status = {};
        if (fileStatus(name, STDIN_FILENO, status) && S_ISREG(status.st_mode))
            m_inputs.insert(fileId(status));
    }
    if (m_archives.isEmpty())
        return _wrongUse(u"no archive given"_s);
    const QString wrong = readOptions(parser);
    if (!wrong.isEmpty())
        return _wrongUse(wrong);

    for (const ARCHIVE_T &archive : std::as_const(m_archives)) {
        _run(archive);
        if (isInterrupted())
            endInterrupted();
    }
    _write(after(m_isFirst));
    if (m_output && !m_output->commit())
        _fail(u"standard output"_s, m_output->error());
    return m_status;
}

QByteArray cCommand::before(bool) const
{
    return {};
}

QByteArray cCommand::after(bool) const
{
    return {};
}

// The result is gone on return, and with it any temporary file.
void cCommand::_run(const ARCHIVE_T &archive)
{
    RESULT_T result;
    if (!archive.name.isValidUtf16()) {
        result.failure = u"its name is not valid UTF-8"_s;
    } else {
        cProgress progress(archive.name, !m_quiet);
        try {
            result = process(archive, progress);
        } catch (const std::bad_alloc &) {
            result.failure = u"out of memory"_s;
        }
    }
    _conclude(archive, result);
}

// Commits and prints the result of an archive.
void cCommand::_conclude(const ARCHIVE_T &archive, RESULT_T &result)
{
    const QString name = displayName(archive.name, u"standard input"_s);
    if (result.failure.isEmpty())
        result.failure = _commit(result);
    for (const QString &warning : std::as_const(result.warnings))
        complain(u"%1: warning: %2"_s.arg(name, warning));
    if (!result.failure.isEmpty()) {
        _fail(name, result.failure);
        return;
    }
    if (!result.summary.isEmpty() && !m_quiet)
        std::fprintf(stderr, "%s\n", qPrintable(printable(name + u": "_s + result.summary)));
    if (!result.output.isEmpty()) {
        _write(before(m_isFirst) + result.output);
        m_isFirst = false;
    }
}

// Gives the files of a result their names. Returns an error message, empty on success.
QString cCommand::_commit(const RESULT_T &result)
{
    for (const auto &file : result.files) {
        struct stat status = {};
        const auto isFile = [&] {
            return file->name() != STANDARD_STREAM &&
                   fileStatus(file->name(), STDOUT_FILENO, status) && S_ISREG(status.st_mode);
        };
        QString reason;
        if (isFile() && m_written.contains(fileId(status)))
            reason = u"another archive has the same output"_s;
        else if (!file->commit())
            reason = file->error();
        if (!reason.isEmpty()) {
            const QString name = displayName(file->name(), u"standard output"_s);
            return u"cannot write %1: %2"_s.arg(name, reason);
        }
        if (isFile())
            m_written.insert(fileId(status));
    }
    return {};
}

void cCommand::_write(const QByteArray &bytes)
{
    if (bytes.isEmpty())
        return;
    if (!m_output)
        m_output = std::make_unique<cOutputFile>(STANDARD_STREAM, false, m_inputs);
    m_output->slot_Data(bytes);
}

void cCommand::_fail(const QString &file, const QString &reason)
{
    complain(file + u": "_s + reason);
    m_status = EXIT_SOME_FAILED;
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
