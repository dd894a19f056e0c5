#ifndef PROGRESS_H
#define PROGRESS_H

#include <QElapsedTimer>
#include <QString>

// A progress bar on standard error for work that takes longer than a second. It appears only on a
// terminal; the destructor erases it.
class cProgress
{
public:
    // name is the input's, possibly "-". A disabled bar never appears.
    cProgress(const QString &name, bool enabled);
    ~cProgress();
    Q_DISABLE_COPY_MOVE(cProgress)

    // Moves the bar to position of size bytes. If size is 0, the size is unknown and the bytes read
    // are shown instead. Cheap enough to call for every block.
    void setPosition(qint64 position, qint64 size);

private:
    QString m_name;
    bool m_enabled = false;
    bool m_shown = false;
    qint64 m_nextShow = 0; // in milliseconds of m_timer
    QElapsedTimer m_timer;
};

#endif
