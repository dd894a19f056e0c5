#include "track/fixdater.h"

#include <chrono>
#include <utility>

namespace
{
// A time of day that steps back by less than this is late; otherwise a new day has begun.
constexpr qint64 MAX_BACKWARD = MS_PER_HOUR;
// Some receivers change the date a few seconds after midnight.
constexpr int MAX_OLD_DATE = 10 * MS_PER_SECOND;
} // namespace

void cFixDater::addFix(const FIX_T &fix, const std::optional<int> &time,
                       const std::optional<qint64> &day)
{
    FIX_T added = fix;
    added.text = m_text;
    const qint64 before = m_lastTime.value_or(0);
    if (time) {
        added.time = _count(*time);
        added.clock = FIX_CLOCK::TIME_OF_DAY;
    } else {
        added.time = before;
        added.clock = FIX_CLOCK::NONE;
        added.repeat = m_timeless++;
    }
    if (time && day) {
        const qint64 offset = *day * MS_PER_DAY + *time - added.time;
        const bool isOld = m_offset == offset + MS_PER_DAY && *time < MAX_OLD_DATE &&
                           added.time - before < MAX_OLD_DATE;
        if (!isOld) {
            m_offset = offset;
            _settle(offset);
        }
    }
    if (m_offset) {
        _emit(added, m_offset);
        return;
    }
    m_waiting.append(added);
    if (m_waiting.size() == MAX_WAITING)
        _settle(m_guess);
}

void cFixDater::addDate(int time, qint64 day)
{
    m_guess = day * MS_PER_DAY + time - _count(time);
}

void cFixDater::finish()
{
    _settle(m_guess);
    ++m_text;
    m_offset.reset();
    m_guess.reset();
    m_lastTime.reset();
    if (m_undated)
        m_base += (*m_undated / MS_PER_DAY + 1) * MS_PER_DAY;
    m_undated.reset();
}

// Converts a time of day to milliseconds since midnight of the first day, following the last time.
qint64 cFixDater::_count(int time)
{
    const qint64 earliest = m_lastTime ? *m_lastTime - MAX_BACKWARD : 0;
    const std::chrono::milliseconds toGo(earliest - time);
    m_lastTime = std::chrono::ceil<std::chrono::days>(toGo).count() * MS_PER_DAY + time;
    return *m_lastTime;
}

// Emits the waiting fixes with their dates, or without if there is no offset.
void cFixDater::_settle(const std::optional<qint64> &offset)
{
    const QList<FIX_T> fixes = std::exchange(m_waiting, {});
    for (const FIX_T &fix : fixes)
        _emit(fix, offset);
}

void cFixDater::_emit(FIX_T fix, const std::optional<qint64> &offset)
{
    if (!offset)
        m_undated = qMax(m_undated.value_or(0), fix.time);
    else if (fix.clock == FIX_CLOCK::TIME_OF_DAY)
        fix.clock = FIX_CLOCK::FULL;
    fix.time += offset.value_or(m_base);
    ++m_fixes;
    Q_EMIT signal_Data(fix);
}
