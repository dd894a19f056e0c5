#ifndef SUMMARY_H
#define SUMMARY_H

#include "archive/vrk3parser.h"
#include "cli/archives.h"
#include "cli/trackstats.h"
#include "track/tracksummary.h"

#include <QString>
#include <QStringList>

// Texts for the user about archives and their tracks.

inline constexpr double METRES_PER_KILOMETRE = 1000;
inline constexpr double KMH_PER_MPS = 3.6; // kilometres per hour in a metre per second

// Returns why a file that was read completely is not an archive; empty if it is one.
QString whyNoArchive(const ACCOUNT_T &account);

// Returns why an archive that was read completely has no GPS data; empty if it has some.
QString whyNoTrack(const ACCOUNT_T &account, const cTrackStats &stats);

// Returns a warning if an archive has a header but its beginning could not be read, probably
// because that part's header is missing. Empty if a header is borrowed for it.
QStringList headerWarnings(const ARCHIVE_T &archive, const ACCOUNT_T &account);

// Returns the number of bytes of an archive that could not be used, because they are damaged or
// incomplete.
qint64 uselessBytes(const ACCOUNT_T &account);

// Returns the time of a point as in a GPX file, "2011-03-23T12:01:07Z"; empty if the year is not
// from 1 to 9999.
QString pointTime(const nmea_data &n);

// Returns "1234 points, 12:01:07 to 13:20:44 UTC, 56 bytes skipped -> a.gpx". `amount` is the first
// part, and `output` is the name of the file or "-". The bytes skipped are uselessBytes().
QString trackSummary(const QString &amount, const cTrackStats &stats, const ACCOUNT_T &account,
                     const QString &output);

// Returns "1 fix" or "2 fixes".
QString countedFixes(qint64 count);

// Returns "2011-03-23 12:01:07 to 12:12:06 UTC", or "no date".
QString timeSpan(const TRACK_SUMMARY_T &track);

// Returns "1302 fixes in 3 segments, 2011-03-23 12:01:07 to 12:12:06 UTC, 9.48 km -> a.gpx". The
// track must have at least one fix. `output` is the name of the file or "-".
QString trackSummary(const TRACK_SUMMARY_T &track, const QString &output);

#endif
