#include "cli/messages.h"

#include "cli/fileid.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{
bool _isPrintable(char32_t c)
{
    constexpr char32_t joiner = 0x200D;
    constexpr char32_t nonJoiner = 0x200C;
    constexpr char32_t firstTag = 0xE0000;
    constexpr char32_t lastTag = 0xE007F;
    if (c == joiner || c == nonJoiner)
        return true;
    if (QChar::isNonCharacter(c) || (c >= firstTag && c <= lastTag))
        return false;
    switch (QChar::category(c)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}
} // namespace

QString printable(const QString &text)
{
    QString result;
    for (const char32_t c : text.toUcs4()) // without lone surrogates
        result += QChar::fromUcs4(_isPrintable(c) ? c : char32_t(QChar::ReplacementCharacter));
    return result;
}

QByteArray printableJson(const QByteArray &json)
{
    QString result;
    for (const char32_t c : QString::fromUtf8(json).toUcs4()) {
        const auto units = QChar::fromUcs4(c);
        if (_isPrintable(c) || c == U'\n') {
            result += units;
            continue;
        }
        for (const char16_t unit : units)
            result += u"\\u%1"_s.arg(uint(unit), 4, 16, QChar(u'0'));
    }
    return result.toUtf8();
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
