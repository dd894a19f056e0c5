#include "cli/messages.h"

#include "cli/fileid.h"

#include <cstdio>

using namespace Qt::StringLiterals;

QString printable(const QString &text)
{
    const auto isPrintable = [](QChar c) {
        const bool joins = c == QChar(0x200C) || c == QChar(0x200D); // some scripts need these
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

QString counted(qint64 count, const char *noun)
{
    return u"%1 %2%3"_s.arg(count).arg(QLatin1String(noun), QLatin1String(count == 1 ? "" : "s"));
}

void complain(const QString &message)
{
    std::fprintf(stderr, "vrk3: %s\n", qPrintable(printable(message)));
}
