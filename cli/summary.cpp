#include "cli/summary.h"

#include "cli/messages.h"
#include "gps/tracktext.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

QString whyNoArchive(const ACCOUNT_T &account)
{
    if (account.received == 0)
        return u"it is empty"_s;
    if (account.hdr + account.idx + account.heads == 0)
        return u"not a VRK3 archive, or its header is missing (see --header-from)"_s;
    return {};
}

QString whyNoTrack(const ACCOUNT_T &account, const cTrackStats &stats)
{
    QString reason = whyNoArchive(account);
    if (reason.isEmpty() && stats.textBlocks() == 0)
        return u"it contains no GPS data"_s;
    return reason;
}

QStringList headerWarnings(const ARCHIVE_T &archive, const ACCOUNT_T &account)
{
    constexpr qint64 minLength = 1024; // a smaller group would hardly contain a track
    const STRETCH_T first = account.stretches.value(0);
    if (archive.header || account.hdr == 0 || first.offset > 0 || first.length < minLength)
        return {};
    return {
        u"its first %1 could not be read (see --header-from)"_s.arg(counted(first.length, "byte"))};
}

qint64 uselessBytes(const ACCOUNT_T &account)
{
    return account.received - account.hdr - account.idx - account.heads - account.delivered;
}

QString pointTime(const nmea_data &n)
{
    const std::optional<CIVIL_T> t = localTime(nearestSecond(n));
    if (!t)
        return {};
    return QString::asprintf("%04d-%02d-%02dT%02d:%02d:%02dZ", t->year, t->month, t->day, t->hour,
                             t->minute, t->second);
}

namespace
{
// "12:01:07 to 13:20:44 UTC", with dates if they differ. At least one point must have a position.
QString _span(const cTrackStats &stats)
{
    constexpr int dateLength = 10;
    QString first = pointTime(stats.first());
    QString last = pointTime(stats.last());
    if (first.isEmpty() || last.isEmpty())
        return u"times unknown"_s;
    const bool sameDay = last.startsWith(first.left(dateLength));
    for (QString *time : {&first, &last}) {
        time->chop(1); // the Z
        if (sameDay)
            time->remove(0, dateLength + 1);
        else
            time->replace(dateLength, 1, u' ');
    }
    return u"%1 to %2 UTC"_s.arg(first, last);
}
} // namespace

QString trackSummary(const QString &amount, const cTrackStats &stats, const ACCOUNT_T &account,
                     const QString &output)
{
    const QString span = stats.located() > 0 ? _span(stats) + u", "_s : QString();
    return u"%1, %2%3 skipped -> %4"_s.arg(amount, span, counted(uselessBytes(account), "byte"),
                                           displayName(output, u"standard output"_s));
}

QString countedFixes(qint64 count)
{
    return count == 1 ? u"1 fix"_s : u"%1 fixes"_s.arg(count);
}

QString timeSpan(const TRACK_SUMMARY_T &track)
{
    if (!track.first || !track.last)
        return u"no date"_s;
    const QDateTime first = QDateTime::fromMSecsSinceEpoch(*track.first, Qt::UTC);
    const QDateTime last = QDateTime::fromMSecsSinceEpoch(*track.last, Qt::UTC);
    const QString whole = u"yyyy-MM-dd hh:mm:ss"_s;
    return u"%1 to %2 UTC"_s.arg(
        first.toString(whole), last.toString(first.date() == last.date() ? u"hh:mm:ss"_s : whole));
}

QString trackSummary(const TRACK_SUMMARY_T &track, const QString &output)
{
    return u"%1 in %2, %3, %4 km -> %5"_s.arg(
        countedFixes(track.fixes), counted(track.segments, "segment"), timeSpan(track),
        QString::number(track.metres / METRES_PER_KILOMETRE, 'f', 2),
        displayName(output, u"standard output"_s));
}
