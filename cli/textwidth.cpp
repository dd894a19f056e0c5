#include "cli/textwidth.h"

#include <QList>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace
{
double _ems(char32_t c)
{
    const QChar::Category category = QChar::category(c);
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing ||
        category == QChar::Other_Format)
        return 0;
    const auto within = [c](char32_t from, char32_t to) { return c >= from && c <= to; };
    if (within(0x1F000, 0x1FFFF)) // pictographs
        return 1.3;
    // East Asian characters.
    if (within(0x1100, 0x115F) || within(0x2E80, 0xA4CF) || within(0xAC00, 0xD7A3) ||
        within(0xF900, 0xFAFF) || within(0xFE30, 0xFE6F) || within(0xFF00, 0xFF60) ||
        within(0xFFE0, 0xFFE6) || within(0x20000, 0x3FFFF))
        return 1;
    if (u" !'()*,-./:;I[]fijlrt|"_s.contains(QChar::fromUcs4(c)))
        return 0.5;
    if (u"%@MWmw"_s.contains(QChar::fromUcs4(c)))
        return 1.1;
    const bool isAscii = c < 0x80;
    if (QChar::isUpper(c))
        return isAscii ? 0.85 : 1.3;
    return isAscii ? 0.7 : 0.75;
}
} // namespace

double textEms(const QString &text)
{
    double ems = 0;
    for (const char32_t c : text.toUcs4())
        ems += _ems(c);
    return ems;
}

QString fittedText(const QString &text, double ems)
{
    if (textEms(text) <= ems)
        return text;
    const QString ellipsis(QChar(0x2026));
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.toEnd();
    qsizetype end = finder.position();
    while (end > 0 && textEms(text.left(end) + ellipsis) > ems)
        end = finder.toPreviousBoundary();
    return text.left(end).trimmed() + ellipsis;
}
