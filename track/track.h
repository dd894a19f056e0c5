#ifndef TRACK_H
#define TRACK_H

#include "track/fix.h"
#include "track/fixstore.h"

#include <QList>
#include <QObject>
#include <QString>

#include <optional>

// The start or the end of the part of a track that is kept.
struct TRACK_LIMIT_T {
    qint64 time = 0;    // milliseconds since 1970-01-01T00:00:00 UTC
    bool daily = false; // time counts from midnight UTC instead, and applies to every day
};

// Collects fixes into a track: sorted by time, without duplicates, cut into segments.
//
// Connect the signal of cFixReader, for one archive or for several that may overlap. Then call
// finish(), and walk through the track with any number of cTrackCursor objects. A long track is
// kept in a temporary file: memory hardly grows with it.
class cTrack : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 USUAL_GAP = 30 * MS_PER_SECOND;

    explicit cTrack(QObject *parent = nullptr);

    // A segment ends if the next fix is more than this many milliseconds later.
    void setGap(qint64 gap) { m_gap = gap; }
    // Ignores all further fixes before `from` or after `until`. If both limits are daily and `from`
    // is later than `until`, the time across midnight is kept. A fix without a date passes only
    // daily limits, and a fix without a time passes none.
    void setLimits(const std::optional<TRACK_LIMIT_T> &from,
                   const std::optional<TRACK_LIMIT_T> &until);

    // Sorts the fixes that are still unsorted. Call this after the last fix.
    void finish();

    // An error message if fixes are missing from the track; empty if none are. Check it again after
    // walking through the track, which may also fail.
    const QString &error() const { return m_store.error(); }

public Q_SLOTS:
    // The order of the fixes does not matter.
    void slot_Data(const FIX_T &fix);
    // Makes all cursors report the end at their next step.
    void slot_Stop() { m_isStopped = true; }

private:
    friend class cTrackCursor;

    // A part of the store that is in order.
    struct RUN_T {
        qint64 begin = 0;
        qint64 end = 0;
    };

    bool _isWanted(const FIX_T &fix) const;

    qint64 m_gap = USUAL_GAP;
    std::optional<TRACK_LIMIT_T> m_from;
    std::optional<TRACK_LIMIT_T> m_until;
    QList<FIX_T> m_block; // unsorted
    FIX_T m_last;         // of the last run
    QList<RUN_T> m_runs;
    bool m_isStopped = false;
    mutable cFixStore m_store; // reading moves the position in its file
};

// Walks through a finished track, starting at its first fix. The track must outlive the cursor.
class cTrackCursor
{
    // A copy would duplicate the fixes that are in memory.
    Q_DISABLE_COPY_MOVE(cTrackCursor)

public:
    explicit cTrackCursor(const cTrack &track);

    // Call the following only while this is false.
    bool atEnd() const { return m_atEnd; }
    const FIX_T &fix() const { return m_fix; }
    // Returns true if the fix is the first one of a segment. Segments end at a gap, at a jump
    // faster than anything moves, and between fixes with and without a date.
    bool startsSegment() const { return m_startsSegment; }
    // Metres from the previous fix; 0 at the start of a segment.
    double distance() const { return m_distance; }
    void next();
    // Goes to the first fix of the next segment, or to the end.
    void nextSegment();

private:
    struct HEAD_T {
        QList<FIX_T> fixes; // of a run, from position on
        qsizetype position = 0;
        cTrack::RUN_T rest; // what comes after them
    };

    static const FIX_T &_front(const HEAD_T &head) { return head.fixes.at(head.position); }
    static bool _isLater(const HEAD_T &a, const HEAD_T &b);
    bool _refill(HEAD_T &head) const;
    FIX_T _pop();
    bool _take();

    const cTrack *m_track;
    QList<HEAD_T> m_heads; // a heap, the earliest fix first
    FIX_T m_fix;
    bool m_atEnd = false;
    bool m_startsSegment = true;
    double m_distance = 0;
};

#endif
