#ifndef READINGCHECK_H
#define READINGCHECK_H

#include "archive/vrk3format.h"
#include "cli/trackstats.h"
#include "track/fixreader.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>

#include <bitset>

// Checks whether the window misreads an archive: whether its positions are wrong, or fixes that the
// receiver sent are missing. Connect the signals for HDR records and for the GPS stream. Connect
// the latter after the window's decoder and the statistics are connected to it.
//
// It costs almost nothing if the decoder finds points: only blocks without points are also read for
// fixes.
class cReadingCheck : public QObject
{
    Q_OBJECT

public:
    // stats must outlive the object.
    explicit cReadingCheck(const cTrackStats &stats, QObject *parent = nullptr);

    // Returns the warnings, at most one about the track and one about the title. Call it once after
    // the archive. `reader` is the subject of the warnings, such as "this format". The title is
    // checked for GPX if `format` contains "gpx", and for KML if it contains "kml".
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
    qint64 m_located = 0;                // points with a position up to the last block
    int m_second = -1;                   // of the day, of the last of them
    std::bitset<SECONDS_PER_DAY> m_seen; // seconds of the day with a point
    cFixReader m_reader;
    qint64 m_unseen = 0; // fixes in other seconds
    bool m_hasText = false;
    QByteArray m_gpxTitle; // as in the header
    QByteArray m_kmlTitle;
};

#endif
