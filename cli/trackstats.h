#ifndef TRACKSTATS_H
#define TRACKSTATS_H

#include "archive/vrk3parser.h"
#include "gps/nmea.h"
#include "gps/tracktext.h"

#include <QObject>
#include <QString>

// Sums up a track as it goes by: connect the decoder's signal, and that of the GPS stream.
//
// A point at exactly 0, 0 of either sign is what a receiver says that has lost its fix: it is
// counted, and left out of everything else. So is a point that lies nowhere on earth.
class cTrackStats : public QObject
{
    Q_OBJECT

public:
    explicit cTrackStats(QObject *parent = nullptr);

    // A longitude that differs by full turns only, as near as can be to the one before, so that a
    // track across the 180th meridian stays in one piece.
    static double nearestTurn(double lon, double before);

    // Whether a point has a position that counts.
    static bool isLocated(const nmea_data &n);

    qint64 textBlocks() const { return m_textBlocks; } // logical blocks of the GPS stream
    qint64 textBytes() const { return m_textBytes; }   // and bytes in them
    qint64 points() const { return m_points; }
    qint64 located() const { return m_located; } // points with a position that counts

    // All below are good only if located() is above 0. First and last go by the order of the file.
    const nmea_data &first() const { return m_first; }
    const nmea_data &last() const { return m_last; }
    double south() const { return m_south; }
    double north() const { return m_north; }
    // In degrees from -180 to 180; west is greater than east where the track crosses 180.
    double west() const;
    double east() const;
    double metres() const { return m_metres; }

public Q_SLOTS:
    void slot_Data(const nmea_data &n);
    void slot_Data(const QByteArray &a);

private:
    void _extend(const nmea_data &n, double lon);

    qint64 m_textBlocks = 0;
    qint64 m_textBytes = 0;
    qint64 m_points = 0;
    qint64 m_located = 0;
    nmea_data m_first;
    nmea_data m_last;
    double m_lon = 0; // of m_last, counted on over full turns
    double m_cos = 0; // of m_last's latitude
    double m_south = 0;
    double m_north = 0;
    double m_west = 0; // counted on over full turns
    double m_east = 0;
    double m_metres = 0;
};

// Why what was read whole is no archive; empty if it is one.
QString whyNoArchive(const ACCOUNT_T &account);

// Why an archive that was read whole has no track to give; empty if it has.
QString whyNoTrack(const ACCOUNT_T &account, const cTrackStats &stats);

// The time of a point as it stands in a GPX file, "2011-03-23T12:01:07Z"; empty where the year does
// not have four digits.
QString pointTime(const nmea_data &n);

// "12:01:07 to 13:20:44 UTC": with dates if they differ or withDate is set. The track has a point
// with a position.
QString timeSpan(const cTrackStats &stats, bool withDate = false);

// What became of an archive, in a line: "1234 points, 12:01:07 to 13:20:44 UTC, 56 bytes skipped",
// where amount is the first part. Bytes skipped are all that came to nothing.
QString trackSummary(const QString &amount, const cTrackStats &stats, const ACCOUNT_T &account);

#endif
