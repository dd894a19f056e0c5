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
constexpr int MAX_NAME_LENGTH = 40; // so that the line does not wrap

// The last characters of a name.
QString _end(const QString &name)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, name);
    finder.setPosition(qMax<qsizetype>(0, name.size() - MAX_NAME_LENGTH));
    if (!finder.isAtBoundary())
        finder.toNextBoundary();
    return name.mid(finder.position());
}
} // namespace

cProgress::cProgress(const QString &name, bool enabled)
    : m_name(_end(printable(displayName(name, u"standard input"_s)))),
      m_enabled(enabled && ::isatty(STDERR_FILENO) == 1),
      m_nextShow(PATIENCE_MS)
{
    m_timer.start();
}

cProgress::~cProgress()
{
    if (m_shown)
        std::fputs("\r\033[K", stderr);
}

void cProgress::setPosition(qint64 position, qint64 size)
{
    if (!m_enabled || m_timer.elapsed() < m_nextShow)
        return;
    m_nextShow = m_timer.elapsed() + INTERVAL_MS;
    m_shown = true;
    if (size > 0) {
        const auto percent = int(qMin(position, size) * 100 / size);
        const QByteArray bar =
            QByteArray(percent * BAR_WIDTH / 100, '#').leftJustified(BAR_WIDTH, '-');
        std::fprintf(stderr, "\r[%s] %3d%% %s\033[K", bar.constData(), percent, qPrintable(m_name));
    } else {
        std::fprintf(stderr, "\r%lld MB %s\033[K", static_cast<long long>(position / 1000000),
                     qPrintable(m_name));
    }
}
