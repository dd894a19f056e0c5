#ifndef CONTENTS_H
#define CONTENTS_H

#include "archive/vrk3parser.h"
#include "cli/feed.h"
#include "cli/headertext.h"
#include "cli/readingcheck.h"
#include "cli/sentencenames.h"
#include "cli/trackstats.h"
#include "gps/gpsraw.h"
#include "gps/nmea.h"
#include "track/fixreader.h"
#include "track/track.h"
#include "track/tracksummary.h"

#include <QList>
#include <QMap>

#include <array>
#include <bitset>

// Collects everything that `vrk3 info` reports about one archive. contentsText, contentsJson and
// contentsTsv turn it into the output forms.
class cContents : public QObject
{
    Q_OBJECT

public:
    // An entry of a header's stream table, with what was read from its stream.
    struct STREAM_COUNT_T {
        quint8 id = 0;
        quint8 type = 0;
        std::array<cHeaderText, 3> texts;
        qint64 blocks = 0; // logical blocks
        qint64 bytes = 0;  // payload bytes in them
    };
    // What the lists leave out, so that an archive cannot make them arbitrarily long.
    struct OMITTED_T {
        qint64 texts = 0;   // texts that are cut
        qint64 streams = 0; // streams that are not listed
        qint64 blocks = 0;  // logical blocks of these streams
        qint64 bytes = 0;   // payload bytes in them
    };

    explicit cContents(QObject *parent = nullptr);

    // Reads the archive. Call this once per object. Returns an error message, empty on success.
    QString read(const ARCHIVE_T &archive, cProgress &progress);

    // The name of the archive that was read.
    const QString &archive() const { return m_archive; }
    // The headers' distinct titles in file order, MAX_TITLES at most.
    const QList<cHeaderText> &titles() const { return m_titles; }
    // The headers' numbered texts by number. A later text replaces an earlier one.
    const QMap<int, cHeaderText> &texts() const { return m_texts; }
    // The first MAX_STREAMS streams of the headers, sorted by id and type. An id with two types
    // counts as two streams.
    QList<STREAM_COUNT_T> streams() const { return m_streams.values(); }
    OMITTED_T omitted() const;
    qint64 hdrRecords() const { return m_hdrRecords; }
    qint64 idxRecords() const { return m_idxRecords; }

    // The account of the archive's bytes.
    const ACCOUNT_T &account() const { return m_account; }
    const NMEA_ACCOUNT_T &sentences() const { return m_nmea.account(); }
    // The sentences that the window's decoder does not read.
    const cSentenceNames &unread() const { return m_names; }
    // Figures about the points that the window would write.
    const cTrackStats &stats() const { return m_stats; }
    // The track as `vrk3 track` would write it.
    const TRACK_SUMMARY_T &track() const { return m_summary; }
    // Warnings about the files that the window would write; empty if there are none.
    const QStringList &warnings() const { return m_warnings; }

    static constexpr qsizetype MAX_TITLES = 16;
    static constexpr qsizetype MAX_STREAMS = 256;

private Q_SLOTS:
    void slot_Data(const HDR_T &hdr);
    void slot_Data(const IDX_T &idx);
    void slot_Data(const DATA_T &d);

private:
    STREAM_COUNT_T *_count(const STREAM_T &stream);

    QString m_archive;
    QList<cHeaderText> m_titles;
    QMap<int, cHeaderText> m_texts;
    QMap<int, STREAM_COUNT_T> m_streams;
    std::bitset<0x10000> m_notListed; // by the keys of m_streams
    OMITTED_T m_omitted;
    qint64 m_hdrRecords = 0;
    qint64 m_idxRecords = 0;
    const cFeed *m_feed = nullptr; // set while the archive is read
    ACCOUNT_T m_account;
    cVrk3Parser m_parser;
    cGpsRaw m_raw;
    cNmea m_nmea;
    cTrackStats m_stats;
    cSentenceNames m_names;
    cReadingCheck m_check{m_stats};
    cFixReader m_fixReader;
    cTrack m_track;
    TRACK_SUMMARY_T m_summary;
    QStringList m_warnings;
};

#endif
