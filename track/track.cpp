#include "track/track.h"

#include <QGeoCoordinate>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace
{
// Fixes are sorted in blocks of this many.
constexpr qsizetype BLOCK = 1 << 14;
// Number of fixes of each run that are in memory at a time.
constexpr qsizetype READ_AHEAD = 64;
// Metres per second. Civilian receivers must stop working at 515, and jet fighters reach 900.
// Anything faster is a jump to a wrong position or back.
constexpr double MAX_SPEED = 1000;

// Metres. Two fixes of one instant are the same if they are closer than this. In overlapping
// archives, their positions may differ, because each archive can lack other sentences. In a single
// receiver text, two positions of an instant mean that the receiver's clock was set back.
constexpr double SAME_PLACE_IN_OTHER_TEXT = 10;
constexpr double SAME_PLACE = 1;

auto _order(const FIX_T &fix)
{
    return std::tuple(fix.time, fix.clock, fix.repeat, fix.lat, fix.lon);
}

double _distance(const FIX_T &a, const FIX_T &b)
{
    return QGeoCoordinate(a.lat, a.lon).distanceTo(QGeoCoordinate(b.lat, b.lon));
}

bool _isSame(const FIX_T &a, const FIX_T &b, double limit)
{
    return a.time == b.time && a.clock == b.clock && a.repeat == b.repeat &&
           _distance(a, b) < limit;
}

bool _isEarlier(const FIX_T &a, const FIX_T &b)
{
    return _order(a) < _order(b);
}

qint64 _timeOfDay(qint64 time)
{
    const qint64 rest = time % MS_PER_DAY;
    return rest < 0 ? rest + MS_PER_DAY : rest;
}

// Fills in missing values from a duplicate of the fix.
void _complete(FIX_T &fix, const FIX_T &same)
{
    for (double FIX_T::*value : {&FIX_T::altitude, &FIX_T::speed, &FIX_T::course, &FIX_T::hdop}) {
        if (std::isnan(fix.*value))
            fix.*value = same.*value;
    }
    if (fix.satellites < 0)
        fix.satellites = same.satellites;
    fix.kind = qMax(fix.kind, same.kind);
}
} // namespace

cTrack::cTrack(QObject *parent) : QObject(parent) {}

void cTrack::setLimits(const std::optional<TRACK_LIMIT_T> &from,
                       const std::optional<TRACK_LIMIT_T> &until)
{
    m_from = from;
    m_until = until;
}

bool cTrack::_isWanted(const FIX_T &fix) const
{
    const auto known = [&fix](const std::optional<TRACK_LIMIT_T> &limit) {
        return !limit || fix.clock >= (limit->daily ? FIX_CLOCK::TIME_OF_DAY : FIX_CLOCK::FULL);
    };
    const auto time = [&fix](const TRACK_LIMIT_T &limit) {
        return limit.daily ? _timeOfDay(fix.time) : fix.time;
    };
    if (!known(m_from) || !known(m_until))
        return false;
    const bool after = !m_from || time(*m_from) >= m_from->time;
    const bool before = !m_until || time(*m_until) <= m_until->time;
    const bool night =
        m_from && m_until && m_from->daily && m_until->daily && m_from->time > m_until->time;
    return night ? after || before : after && before;
}

void cTrack::slot_Data(const FIX_T &fix)
{
    if (!_isWanted(fix))
        return;
    m_block.append(fix);
    if (m_block.size() == BLOCK)
        finish();
}

void cTrack::finish()
{
    if (m_block.isEmpty())
        return;
    std::stable_sort(m_block.begin(), m_block.end(), _isEarlier);
    if (m_runs.isEmpty() || _isEarlier(m_block.first(), m_last))
        m_runs.append({m_store.size(), m_store.size()});
    m_store.append(m_block);
    m_runs.last().end = m_store.size();
    m_last = m_block.last();
    m_block.clear();
}

cTrackCursor::cTrackCursor(const cTrack &track) : m_track(&track)
{
    for (const cTrack::RUN_T &run : track.m_runs) {
        HEAD_T head{{}, 0, run};
        if (_refill(head))
            m_heads.append(head);
    }
    std::make_heap(m_heads.begin(), m_heads.end(), _isLater);
    _take();
}

// Of two equal fixes, the one that was received first comes first.
bool cTrackCursor::_isLater(const HEAD_T &a, const HEAD_T &b)
{
    return std::pair(_order(_front(a)), a.rest.end) > std::pair(_order(_front(b)), b.rest.end);
}

// Reads more fixes of a run. Returns false if there are none.
bool cTrackCursor::_refill(HEAD_T &head) const
{
    const auto n =
        static_cast<qsizetype>(qMin<qint64>(READ_AHEAD, head.rest.end - head.rest.begin));
    head.fixes = m_track->m_store.read(head.rest.begin, n);
    head.position = 0;
    head.rest.begin += n;
    return !head.fixes.isEmpty();
}

// Takes the earliest fix from the runs.
FIX_T cTrackCursor::_pop()
{
    std::pop_heap(m_heads.begin(), m_heads.end(), _isLater);
    HEAD_T &head = m_heads.last();
    const FIX_T fix = head.fixes.at(head.position++);
    if (head.position < head.fixes.size() || _refill(head))
        std::push_heap(m_heads.begin(), m_heads.end(), _isLater);
    else
        m_heads.removeLast();
    return fix;
}

// Takes the earliest fix and its duplicates. Returns false at the end.
bool cTrackCursor::_take()
{
    m_atEnd = m_heads.isEmpty() || m_track->m_isStopped;
    if (m_atEnd)
        return false;
    m_fix = _pop();
    QVarLengthArray<quint32, 16> texts = {m_fix.text};
    while (!m_heads.isEmpty()) {
        const FIX_T &same = _front(m_heads.first());
        const bool isKnown = texts.contains(same.text);
        if (!_isSame(m_fix, same, isKnown ? SAME_PLACE : SAME_PLACE_IN_OTHER_TEXT))
            break;
        if (!isKnown)
            texts.append(same.text);
        _complete(m_fix, _pop());
    }
    return true;
}

void cTrackCursor::next()
{
    const FIX_T before = m_fix;
    if (!_take())
        return;
    const qint64 elapsed = m_fix.time - before.time;
    const double seconds = elapsed > 0 ? double(elapsed) / MS_PER_SECOND : 1; // for repeats
    m_distance = _distance(before, m_fix);
    const bool isDated = m_fix.clock == FIX_CLOCK::FULL;
    m_startsSegment = elapsed > m_track->m_gap || m_distance > MAX_SPEED * seconds ||
                      isDated != (before.clock == FIX_CLOCK::FULL);
    if (m_startsSegment)
        m_distance = 0;
}

void cTrackCursor::nextSegment()
{
    do
        next();
    while (!m_atEnd && !m_startsSegment);
}
