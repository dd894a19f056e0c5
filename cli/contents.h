#ifndef CONTENTS_H
#define CONTENTS_H

#include "cli/sentencenames.h"
#include "cli/trackreader.h"

#include <QMap>
#include <QStringList>

// Collects everything that `vrk3 info` reports about one archive. contentsText and contentsJson
// turn it into the two output forms.
class cContents : public QObject
{
    Q_OBJECT

public:
    // An entry of a header's stream table, with what was read from its stream.
    struct STREAM_COUNT_T {
        STREAM_T stream;
        qint64 blocks = 0; // logical blocks
        qint64 bytes = 0;  // payload bytes in them
    };

    explicit cContents(QObject *parent = nullptr);

    // Reads the archive, once per object. Returns an error message, empty on success.
    QString read(const QString &archive, cProgress &progress);

    // The name passed to read().
    const QString &archive() const { return m_archive; }
    // The headers' distinct titles in file order, MAX_TITLES at most.
    const QStringList &titles() const { return m_titles; }
    // The headers' numbered texts by number. A later text replaces an earlier one.
    const QMap<int, QString> &texts() const { return m_texts; }
    // The streams by id and type.
    QList<STREAM_COUNT_T> streams() const { return m_streams.values(); }
    qint64 hdrRecords() const { return m_hdrRecords; }
    qint64 idxRecords() const { return m_idxRecords; }

    ACCOUNT_T account() const { return m_reader.parser().account(); }
    const NMEA_ACCOUNT_T &sentences() const { return m_reader.nmea().account(); }
    const cSentenceNames &unread() const { return m_names; }
    const cTrackStats &stats() const { return m_reader.stats(); }

    static constexpr qsizetype MAX_TITLES = 16;

private Q_SLOTS:
    void slot_Data(const HDR_T &hdr);
    void slot_Data(const IDX_T &idx);
    void slot_Data(const DATA_T &d);

private:
    QString m_archive;
    QStringList m_titles;
    QMap<int, QString> m_texts;
    QMap<int, STREAM_COUNT_T> m_streams;
    qint64 m_hdrRecords = 0;
    qint64 m_idxRecords = 0;
    cTrackReader m_reader;
    cSentenceNames m_names;
};

// Decodes a string of a record, which ends in a zero byte.
QString decodeString(const QByteArray &string);

#endif
