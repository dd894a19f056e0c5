#ifndef SENTENCENAMES_H
#define SENTENCENAMES_H

#include "gps/nmea.h"

#include <QByteArray>
#include <QMap>
#include <QObject>

#include <array>

// What the decoder reads, in the order of its account.
inline constexpr std::array<const char *, NMEA_KINDS> NAMES_READ = {"GPGGA", "GPRMC", "PGRME"};

// Counts the sentences of a receiver's text that the decoder does not read, by their names. It
// follows the decoder's view of the text: line ends count nowhere, and a chunk is read up to its
// first zero byte.
class cSentenceNames : public QObject
{
    Q_OBJECT

public:
    explicit cSentenceNames(QObject *parent = nullptr);

    // Up to MAX_NAMES names with their counts.
    const QMap<QByteArray, qint64> &counts() const { return m_counts; }
    // Sentences of other names, and those whose name is no name.
    qint64 others() const { return m_others; }

    // Noise has any number of names.
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
