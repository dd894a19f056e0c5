#include "cli/headertext.h"

#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace
{
// Enough for MAX_LENGTH code units of any text and a few more, so that a character cut in two is
// not shown.
constexpr qsizetype MAX_BYTES = 4 * cHeaderText::MAX_LENGTH;
} // namespace

cHeaderText::cHeaderText(const QByteArray &string)
    : m_start(string.left(qMin(string.size() - 1, MAX_BYTES))), m_size(string.size() - 1)
{
}

QString cHeaderText::start() const
{
    QString text = QString::fromUtf8(m_start);
    if (text.size() <= MAX_LENGTH)
        return text;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(MAX_LENGTH);
    qsizetype end = finder.isAtBoundary() ? MAX_LENGTH : finder.toPreviousBoundary();
    if (end <= 0) // a single character with endless accents
        end = MAX_LENGTH - (text.at(MAX_LENGTH).isLowSurrogate() ? 1 : 0);
    return text.left(end);
}

bool cHeaderText::isCut() const
{
    return m_size > m_start.size() || QString::fromUtf8(m_start).size() > MAX_LENGTH;
}

QString cHeaderText::shown() const
{
    return isCut() ? u"%1\u2026 (%2 bytes)"_s.arg(start(), QString::number(m_size)) : start();
}
