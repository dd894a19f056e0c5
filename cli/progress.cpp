#include "cli/progress.h"

#include "cli/command.h"

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

static constexpr qint64 PATIENCE_MS = 1000;
static constexpr qint64 INTERVAL_MS = 100;
static constexpr int BAR_WIDTH = 30;
static constexpr int MAX_NAME_LENGTH = 40; // the line is not to break

cProgress::cProgress(const QString &name, qint64 size, bool enabled)
    : m_name(printable(displayName(name, u"standard input"_s)).right(MAX_NAME_LENGTH)),
      m_size(size),
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

void cProgress::setPosition(qint64 position)
{
    if (!m_enabled || m_timer.elapsed() < m_nextShow)
        return;
    m_nextShow = m_timer.elapsed() + INTERVAL_MS;
    m_shown = true;
    if (m_size > 0) {
        const auto percent = int(qMin(position, m_size) * 100 / m_size);
        const QByteArray bar =
            QByteArray(percent * BAR_WIDTH / 100, '#').leftJustified(BAR_WIDTH, '-');
        std::fprintf(stderr, "\r[%s] %3d%% %s\033[K", bar.constData(), percent, qPrintable(m_name));
    } else {
        std::fprintf(stderr, "\r%lld MB %s\033[K", static_cast<long long>(position / 1000000),
                     qPrintable(m_name));
    }
}
