#ifndef TRACKREADER_H
#define TRACKREADER_H

#include "archive/vrk3parser.h"
#include "cli/feed.h"
#include "cli/progress.h"
#include "cli/trackstats.h"
#include "gps/gpsraw.h"
#include "gps/nmea.h"

#include <optional>

// The chain without a writer, for commands that inspect an archive. Connect to the signals of its
// parts to collect more.
class cTrackReader
{
public:
    cTrackReader();

    // Reads an archive completely. Returns an error message, empty on success.
    QString read(const ARCHIVE_T &archive, cProgress &progress);
    // Returns true while the parser reads a borrowed header.
    bool isBorrowed() const { return m_feed && m_feed->isBorrowed(); }
    // The account of the archive's bytes. Valid only after read() has returned.
    const ACCOUNT_T &account() const { return m_feed->account(); }

    const cVrk3Parser &parser() const { return m_parser; }
    const cGpsRaw &raw() const { return m_raw; }
    const cNmea &nmea() const { return m_nmea; }
    const cTrackStats &stats() const { return m_stats; }

private:
    std::optional<cFeed> m_feed;
    cVrk3Parser m_parser;
    cGpsRaw m_raw;
    cNmea m_nmea;
    cTrackStats m_stats;
};

#endif
