#include "cli/progress.h"

#include "cli/messages.h"

#include <QTextBoundaryFinder>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 PATIENCE_MS = 1000;
constexpr qint64 INTERVAL_MS = 100;
constexpr int BAR_WIDTH = 30;
constexpr qsizetype MAX_LABEL_LENGTH = 41; // with the bar, a line of 79 characters

// Returns the last characters of a name, at most `length`.
QString _end(const QString &name, qsizetype length)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, name);
    finder.setPosition(qMax<qsizetype>(0, name.size() - length));
    if (!finder.isAtBoundary())
        finder.toNextBoundary();
    return name.mid(finder.position());
}
} // namespace

cProgress::cProgress(qsizetype archives, bool enabled)
    : m_archives(archives),
      m_enabled(enabled && ::isatty(STDERR_FILENO) == 1),
      m_nextShow(PATIENCE_MS)
{
    m_timer.start();
}

cProgress::~cProgress()
{
    clear();
}

void cProgress::begin(qsizetype number, const QString &name)
{
    if (!m_enabled)
        return;
    const QString shown = printable(displayName(name, u"standard input"_s));
    const QString count =
        m_archives > 1 ? u"archive %1 of %2 "_s.arg(number).arg(m_archives) : QString();
    m_label = count + _end(shown, MAX_LABEL_LENGTH - count.size());
    refresh();
}

void cProgress::refresh()
{
    if (_isDue())
        _show({});
}

void cProgress::setPosition(qint64 position, qint64 size)
{
    if (!_isDue())
        return;
    if (size > 0) {
        const auto percent = int(qMin(position, size) * 100 / size);
        const QByteArray bar =
            QByteArray(percent * BAR_WIDTH / 100, '#').leftJustified(BAR_WIDTH, '-');
        _show('[' + bar + "] " + QByteArray::number(percent).rightJustified(3) + "% ");
    } else {
        _show(QByteArray::number(position / 1000000) + " MB ");
    }
}

void cProgress::clear()
{
    if (m_shown)
        std::fputs("\r\033[K", stderr);
    m_shown = false;
}

bool cProgress::_isDue()
{
    return m_enabled && m_timer.elapsed() >= m_nextShow;
}

void cProgress::_show(const QByteArray &bar)
{
    m_nextShow = m_timer.elapsed() + INTERVAL_MS;
    m_shown = true;
    std::fprintf(stderr, "\r%s%s\033[K", bar.constData(), qPrintable(m_label));
}
