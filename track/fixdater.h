#ifndef FIXDATER_H
#define FIXDATER_H

#include "track/fix.h"

#include <QList>
#include <QObject>

#include <optional>

// Dates the fixes of a receiver, which come with a time of day and only sometimes with a date.
//
// Without a date, a fix has that of the previous fix, or the next day if midnight has passed. Fixes
// before the first date wait for it and are dated backwards from it. If none comes, the last date
// that the receiver sent without a position is used. If there is none either, the fixes are emitted
// without a date.
//
// Fixes are emitted in the order in which they were added. Memory is bounded: at most MAX_WAITING
// fixes wait for a date. When there are that many, they are emitted as they would be at the end.
class cFixDater : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype MAX_WAITING = 100'000; // more than a day at one per second

    explicit cFixDater(QObject *parent = nullptr) : QObject(parent) {}

    // Adds a fix. Its time, clock and text are set here: `time` is in milliseconds of the day, and
    // `day` counts from 1970-01-01. Each is empty if the receiver did not send it. May emit any
    // number of fixes.
    void addFix(const FIX_T &fix, const std::optional<int> &time, const std::optional<qint64> &day);

    // Adds a date that came without a position. The units are those of addFix.
    void addDate(int time, qint64 day);

    // Call this after the last fix: it emits those that are still waiting. Fixes that follow are
    // those of another receiver, and if they have no date, they are placed after the undated ones
    // emitted so far.
    void finish();

    qint64 fixes() const { return m_fixes; } // emitted so far

Q_SIGNALS:
    // Valid only during the call.
    void signal_Data(const FIX_T &fix);

private:
    qint64 _count(int time);
    void _settle(const std::optional<qint64> &offset);
    void _emit(FIX_T fix, const std::optional<qint64> &offset);

    QList<FIX_T> m_waiting;
    // Times are first counted from midnight of the first day. These offsets convert them to
    // calendar times: the first by the last date that came with a position, the second by the last
    // one that did not.
    std::optional<qint64> m_offset;
    std::optional<qint64> m_guess;
    std::optional<qint64> m_lastTime; // counted that way
    std::optional<qint64> m_undated;  // the latest fix without a date, counted that way
    qint64 m_base = 0;                // added to the times of fixes without a date
    quint32 m_timeless = 0;           // fixes without a time
    quint32 m_text = 0;               // number of the current receiver text
    qint64 m_fixes = 0;
};

#endif
