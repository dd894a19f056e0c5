#ifndef SENTENCENAMES_H
#define SENTENCENAMES_H

#include <QByteArray>
#include <QMap>
#include <QObject>

// Counts the sentences that the window's decoder does not read, by name. It splits the text as the
// decoder does: line ends are ignored, and a chunk ends at its first zero byte.
class cSentenceNames : public QObject
{
    Q_OBJECT

public:
    explicit cSentenceNames(QObject *parent = nullptr);

    // The counts of up to MAX_NAMES names.
    const QMap<QByteArray, qint64> &counts() const { return m_counts; }
    // Sentences with any other name, or without a valid name.
    qint64 others() const { return m_others; }

    // Noise can contain any number of names.
    static constexpr qsizetype MAX_NAMES = 64;

public Q_SLOTS:
    void slot_Data(const QByteArray &a);

private:
    void _endName();

    bool m_inName = false;
    QByteArray m_name;
    QMap<QByteArray, qint64> m_counts;
    qint64 m_others = 0;
};

#endif
