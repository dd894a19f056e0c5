#include "cli/command.h"

#include "cli/interrupt.h"

#include <cstdio>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

QString printable(const QString &text)
{
    const auto isPrintable = [](QChar c) {
        const bool joins = c == QChar(0x200C) || c == QChar(0x200D); // as some languages need it
        return joins || (c.category() != QChar::Other_Control &&
                         c.category() != QChar::Other_Format && !c.isNonCharacter());
    };
    QString result = text;
    for (QChar &c : result) {
        if (!isPrintable(c))
            c = QChar::ReplacementCharacter;
    }
    return result;
}

QString displayName(const QString &name, const QString &standardStream)
{
    return name == STANDARD_STREAM ? standardStream : name;
}

void complain(const QString &message)
{
    std::fprintf(stderr, "vrk3: %s\n", qPrintable(printable(message)));
}

cCommand::cCommand(QString name, QString usage, QString summary)
    : m_name(std::move(name)), m_usage(std::move(usage)), m_summary(std::move(summary))
{
}

int cCommand::run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(m_summary);
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Shows this help."_s);
    parser.addOption(help);
    addOptions(parser);
    parser.addPositionalArgument(u"ARCHIVE"_s, u"VRK3 archives; - is standard input."_s);
    // The first entry stands for the program, which the parser leaves out.
    if (!parser.parse(QStringList(m_name) + arguments))
        return _wrongUse(parser.errorText());
    if (parser.isSet(help)) {
        _showHelp(parser);
        return EXIT_DONE;
    }
    m_archives = parser.positionalArguments();
    if (m_archives.isEmpty())
        return _wrongUse(u"no archive was given"_s);
    const QString wrong = readOptions(parser);
    if (!wrong.isEmpty())
        return _wrongUse(wrong);

    int status = EXIT_DONE;
    const auto judge = [&status](const QString &file, const QString &reason) {
        if (!reason.isEmpty()) {
            complain(file + u": "_s + reason);
            status = EXIT_SOME_FAILED;
        }
    };
    for (const QString &archive : std::as_const(m_archives)) {
        judge(displayName(archive, u"standard input"_s), process(archive));
        if (isInterrupted())
            endInterrupted();
    }
    judge(u"standard output"_s, finish());
    return status;
}

QList<FILEID_T> cCommand::archiveIds() const
{
    QList<FILEID_T> ids;
    for (const QString &archive : m_archives) {
        struct stat status = {};
        if (fileStatus(archive, STDIN_FILENO, status) && S_ISREG(status.st_mode))
            ids.append(fileId(status));
    }
    return ids;
}

int cCommand::_wrongUse(const QString &reason) const
{
    complain(u"%1: %2 (see vrk3 %1 --help)"_s.arg(m_name, reason));
    return EXIT_WRONG_USE;
}

void cCommand::_showHelp(const QCommandLineParser &parser) const
{
    // The first line would name the program by its path and know nothing of commands.
    const QString help = parser.helpText();
    std::printf("Usage: vrk3 %s %s\n%s", qPrintable(m_name), qPrintable(m_usage),
                qPrintable(help.mid(help.indexOf(u'\n') + 1)));
}
