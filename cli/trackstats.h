#ifndef TRACKSTATS_H
#define TRACKSTATS_H

#include "gps/nmea.h"

#include <QObject>

#include <bitset>

// The earth's mean radius in metres.
inline constexpr double EARTH_RADIUS = 6371008.8;

// Collects figures about a track while it is decoded. Connect the signals of the decoder and of the
// GPS stream.
//
// A receiver that has lost its fix reports a position of exactly 0, 0, with either sign. Such a
// point is counted but ignored otherwise, and so is one outside the range of latitude or longitude.
class cTrackStats : public QObject
{
    Q_OBJECT

public:
    explicit cTrackStats(QObject *parent = nullptr);

    // Adds full turns to a longitude in degrees so that it is as close as possible to the previous
    // one. This keeps a track across the antimeridian in one piece.
    static double nearestTurn(double lon, double before);

    qint64 textBlocks() const { return m_textBlocks; } // logical blocks of the GPS stream
    qint64 textBytes() const { return m_textBytes; }   // bytes in these blocks
    qint64 points() const { return m_points; }
    qint64 located() const { return m_located; } // points with a usable position

    // The following are valid only if located() is greater than 0. First and last are in file
    // order.
    const nmea_data &first() const { return m_first; }
    const nmea_data &last() const { return m_last; }
    double south() const { return m_south; }
    double north() const { return m_north; }
    // All four are in degrees. West and east are from -180 to 180; west is greater than east if the
    // track crosses 180.
    double west() const;
    double east() const;
    // The length of the track.
    double metres() const { return m_metres; }

    // Returns true if a point with a usable position has a time in this second of the day.
    bool hasPoint(int second) const { return m_seconds.test(size_t(second)); }

    static constexpr int SECONDS_PER_DAY = 86400;

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
    double m_lon = 0; // of m_last, continuous across full turns
    double m_cos = 0; // of m_last's latitude
    double m_south = 0;
    double m_north = 0;
    double m_west = 0; // continuous across full turns
    double m_east = 0;
    double m_metres = 0;
    std::bitset<SECONDS_PER_DAY> m_seconds; // that have a point
};

#endif
