#ifndef READINGCHECK_H
#define READINGCHECK_H

#include "archive/vrk3format.h"
#include "cli/trackstats.h"
#include "track/fixreader.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>

#include <bitset>

// Finds out whether the window's reading of an archive is wrong: with misread positions, or without
// fixes that its receiver sent. Connect the signals for HDR records and for the GPS stream, the
// latter after that decoder and those statistics.
//
// It costs next to nothing where the decoder finds points: only blocks in which it finds none are
// read for fixes as well.
class cReadingCheck : public QObject
{
    Q_OBJECT

public:
    // stats must outlive the object.
    explicit cReadingCheck(const cTrackStats &stats, QObject *parent = nullptr);

    // Returns the warnings, at most one about the track and one about the title. Call it once after
    // the archive. reader is what reads like that: "this format", for instance. The title is
    // checked for the formats "gpx" and "kml" if format contains them.
    QStringList warnings(const NMEA_ACCOUNT_T &account, const QString &reader,
                         const QString &format);

public Q_SLOTS:
    void slot_Data(const HDR_T &hdr);
    void slot_Data(const QByteArray &a);

private Q_SLOTS:
    void slot_Data(const FIX_T &fix);

private:
    static constexpr int SECONDS_PER_DAY = 86400;

    void _markSeen();
    QString _trackWarning(const NMEA_ACCOUNT_T &account, const QString &reader) const;

    const cTrackStats &m_stats;
    qint64 m_located = 0;                // points with a position, at the end of the last block
    int m_second = -1;                   // of the day, of the last of them
    std::bitset<SECONDS_PER_DAY> m_seen; // seconds of the day with a point
    cFixReader m_reader;
    qint64 m_unseen = 0; // fixes in other seconds
    bool m_hasText = false;
    QByteArray m_gpxTitle; // as the header has it
    QByteArray m_kmlTitle;
};

#endif
