#include "cli/trackstats.h"

#include <cmath>
#include <numbers>

namespace
{
constexpr double RADIANS = std::numbers::pi / 180;
constexpr double FULL_TURN = 360;
constexpr double MAX_LATITUDE = 90;
constexpr double MAX_LONGITUDE = 180;

// Returns the angle between two points on a sphere, from their differences and the product of the
// cosines of their latitudes. Over the distance travelled in a second, the earth is flat to ten
// digits.
double _angle(double lat, double lon, double cosines)
{
    constexpr double small = 1e-5;
    if (std::fabs(lat) + std::fabs(lon) < small)
        return std::sqrt(lat * lat + cosines * lon * lon);
    const double sinLat = std::sin(lat / 2);
    const double sinLon = std::sin(lon / 2);
    const double chord = sinLat * sinLat + cosines * sinLon * sinLon;
    return 2 * std::asin(std::sqrt(qMin(chord, 1.0)));
}

// Returns true if a point has a usable position.
bool _isLocated(const nmea_data &n)
{
    const bool onEarth = std::fabs(n.lat) <= MAX_LATITUDE && std::fabs(n.lon) <= MAX_LONGITUDE;
    return onEarth && (n.lat != 0 || n.lon != 0);
}
} // namespace

cTrackStats::cTrackStats(QObject *parent) : QObject(parent) {}

double cTrackStats::nearestTurn(double lon, double before)
{
    return lon + FULL_TURN * std::round((before - lon) / FULL_TURN);
}

void cTrackStats::slot_Data(const QByteArray &a)
{
    ++m_textBlocks;
    m_textBytes += a.size();
}

void cTrackStats::slot_Data(const nmea_data &n)
{
    ++m_points;
    if (!_isLocated(n))
        return;
    if (m_located++ == 0) {
        m_first = n;
        m_lon = m_west = m_east = n.lon;
        m_south = m_north = n.lat;
        m_cos = std::cos(n.lat * RADIANS);
    } else if (n.lat != m_last.lat || n.lon != m_last.lon) { // RMC and GGA repeat each position
        _extend(n, nearestTurn(n.lon, m_lon));
    }
    m_last = n;
    if (n.time >= 0 && n.time < SECONDS_PER_DAY)
        m_seconds.set(size_t(n.time));
}

void cTrackStats::_extend(const nmea_data &n, double lon)
{
    const double cosine = std::cos(n.lat * RADIANS);
    m_metres += EARTH_RADIUS *
                _angle((n.lat - m_last.lat) * RADIANS, (lon - m_lon) * RADIANS, m_cos * cosine);
    m_cos = cosine;
    m_lon = lon;
    m_west = qMin(m_west, lon);
    m_east = qMax(m_east, lon);
    m_south = qMin(m_south, n.lat);
    m_north = qMax(m_north, n.lat);
}

double cTrackStats::west() const
{
    return m_east - m_west >= FULL_TURN ? -MAX_LONGITUDE : nearestTurn(m_west, 0);
}

double cTrackStats::east() const
{
    return m_east - m_west >= FULL_TURN ? MAX_LONGITUDE : nearestTurn(m_east, 0);
}
