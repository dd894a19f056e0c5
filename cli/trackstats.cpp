#include "cli/trackstats.h"

#include <cmath>
#include <numbers>

using namespace Qt::StringLiterals;

static constexpr double EARTH_RADIUS = 6371008.8; // the mean one, in metres
static constexpr double RADIANS = std::numbers::pi / 180;
static constexpr double FULL_TURN = 360;
static constexpr double MAX_LATITUDE = 90;
static constexpr double MAX_LONGITUDE = 180;

cTrackStats::cTrackStats(QObject *parent) : QObject(parent) {}

double cTrackStats::nearestTurn(double lon, double before)
{
    return lon + FULL_TURN * std::round((before - lon) / FULL_TURN);
}

bool cTrackStats::isLocated(const nmea_data &n)
{
    const bool onEarth = std::fabs(n.lat) <= MAX_LATITUDE && std::fabs(n.lon) <= MAX_LONGITUDE;
    return onEarth && (n.lat != 0 || n.lon != 0);
}

void cTrackStats::slot_Data(const QByteArray &a)
{
    ++m_textBlocks;
    m_textBytes += a.size();
}

void cTrackStats::slot_Data(const nmea_data &n)
{
    ++m_points;
    if (!isLocated(n))
        return;
    if (m_located++ == 0) {
        m_first = n;
        m_lon = m_west = m_east = n.lon;
        m_south = m_north = n.lat;
        m_cos = std::cos(n.lat * RADIANS);
    } else if (n.lat != m_last.lat || n.lon != m_last.lon) { // receivers tell each position twice
        _extend(n, nearestTurn(n.lon, m_lon));
    }
    m_last = n;
}

// The angle between two points on a sphere, from their differences and the product of the cosines
// of their latitudes. From one second to the next the earth is flat to ten digits.
static double _angle(double lat, double lon, double cosines)
{
    constexpr double small = 1e-5;
    if (std::fabs(lat) + std::fabs(lon) < small)
        return std::sqrt(lat * lat + cosines * lon * lon);
    const double sinLat = std::sin(lat / 2);
    const double sinLon = std::sin(lon / 2);
    const double chord = sinLat * sinLat + cosines * sinLon * sinLon;
    return 2 * std::asin(std::sqrt(qMin(chord, 1.0)));
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

QString whyNoArchive(const ACCOUNT_T &account)
{
    if (account.received == 0)
        return u"it is empty"_s;
    if (account.hdr == 0)
        return u"it is no VRK3 archive, or its header is lost"_s;
    return {};
}

QString whyNoTrack(const ACCOUNT_T &account, const cTrackStats &stats)
{
    QString reason = whyNoArchive(account);
    if (reason.isEmpty() && stats.textBlocks() == 0)
        return u"it holds no data of a GPS receiver"_s;
    return reason;
}

QString pointTime(const nmea_data &n)
{
    cLocalClock clock;
    const cLocalClock::CIVIL *const t = clock.civil(nearestSecond(n));
    if (!t)
        return {};
    return QString::asprintf("%04d-%02d-%02dT%02d:%02d:%02dZ", t->year, t->month, t->day, t->hour,
                             t->minute, t->second);
}

QString timeSpan(const cTrackStats &stats, bool withDate)
{
    constexpr int dateLength = 10;
    QString first = pointTime(stats.first());
    QString last = pointTime(stats.last());
    if (first.isEmpty() || last.isEmpty())
        return u"times unknown"_s;
    const QString date = first.left(dateLength);
    const bool sameDay = last.startsWith(date);
    for (QString *time : {&first, &last}) {
        time->chop(1); // the letter for UTC
        if (sameDay)
            time->remove(0, dateLength + 1);
        else
            time->replace(dateLength, 1, u' ');
    }
    const QString span = u"%1 to %2 UTC"_s.arg(first, last);
    return sameDay && withDate ? date + u", "_s + span : span;
}

QString trackSummary(const QString &amount, const cTrackStats &stats, const ACCOUNT_T &account)
{
    const QString span = stats.located() > 0 ? timeSpan(stats) + u", "_s : QString();
    const qint64 used = account.hdr + account.idx + account.heads + account.delivered;
    return u"%1, %2%3 bytes skipped"_s.arg(amount, span).arg(account.received - used);
}
