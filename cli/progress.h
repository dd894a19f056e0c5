#ifndef PROGRESS_H
#define PROGRESS_H

#include <QElapsedTimer>
#include <QString>

// A progress bar on standard error for runs that take longer than a second. It appears only on a
// terminal; the destructor erases it.
class cProgress
{
public:
    // `archives` is the number of archives in the whole run. A disabled bar never appears.
    cProgress(qsizetype archives, bool enabled);
    ~cProgress();
    Q_DISABLE_COPY_MOVE(cProgress)

    // Starts the archive with this number, counted from 1. The name may be "-".
    void begin(qsizetype number, const QString &name);
    // Shows that `position` of `size` bytes have been read. If the size is 0, it is unknown, and
    // only the position is shown. Cheap enough to call for every block.
    void setPosition(qint64 position, qint64 size);
    // Shows the archive again, without a position.
    void refresh();
    // Erases the bar until the next call of one of the functions above. Call this before printing a
    // line.
    void clear();

private:
    bool _isDue();
    void _show(const QByteArray &bar);

    qsizetype m_archives = 0;
    bool m_enabled = false;
    bool m_shown = false;
    QString m_label;
    qint64 m_nextShow = 0; // in milliseconds of m_timer
    QElapsedTimer m_timer;
};

#endif
