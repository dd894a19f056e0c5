#ifndef PROGRESS_H
#define PROGRESS_H

#include <QElapsedTimer>
#include <QString>

// A bar on standard error for work that takes longer than a second. It shows itself on a terminal
// only, and the destructor wipes it away.
class cProgress
{
public:
    // name is the input's, "-" included. size is what position goes up to; 0 if nobody knows, then
    // the bytes read are told instead.
    cProgress(const QString &name, qint64 size, bool enabled);
    ~cProgress();
    Q_DISABLE_COPY_MOVE(cProgress)

    // Cheap enough for every block.
    void setPosition(qint64 position);

private:
    QString m_name;
    qint64 m_size = 0;
    bool m_enabled = false;
    bool m_shown = false;
    qint64 m_nextShow = 0; // in milliseconds of m_timer
    QElapsedTimer m_timer;
};

#endif
