#ifndef CONTENTS_H
#define CONTENTS_H

#include "cli/sentencenames.h"
#include "cli/trackreader.h"

#include <QJsonObject>
#include <QMap>
#include <QStringList>

// Everything that `vrk3 info` tells of one archive.
class cContents : public QObject
{
    Q_OBJECT

public:
    // A stream as the headers name it.
    struct STREAM_COUNT_T {
        STREAM_T stream;
        qint64 blocks = 0;
        qint64 bytes = 0;
    };

    explicit cContents(QObject *parent = nullptr);

    // Reads the archive. Gives why that failed; empty if it did not.
    QString read(const QString &archive, bool showProgress);

    // The two forms in which it is told. The text has several lines and ends in one.
    QJsonObject json() const;
    QString text() const;

private Q_SLOTS:
    void slot_Data(const HDR_T &hdr);
    void slot_Data(const IDX_T &idx);
    void slot_Data(const DATA_T &d);

private:
    QJsonObject _gpsJson() const;
    QString _streamText() const;
    QString _sentenceText() const;
    QString _trackText() const;
    QString _damageText() const;

    QString m_archive;
    QStringList m_titles;
    QMap<int, QString> m_texts;          // by tag
    QMap<int, STREAM_COUNT_T> m_streams; // each pair of id and type counts as one
    qint64 m_hdrRecords = 0;
    qint64 m_idxRecords = 0;
    cTrackReader m_reader;
    cSentenceNames m_names;
};

#endif
