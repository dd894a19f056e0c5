#ifndef TRACKREADER_H
#define TRACKREADER_H

#include "archive/vrk3parser.h"
#include "cli/progress.h"
#include "cli/trackstats.h"
#include "gps/gpsraw.h"
#include "gps/nmea.h"

// The chain without a writer, for commands that inspect an archive. Connect to the signals of its
// parts to collect more.
class cTrackReader
{
public:
    cTrackReader();

    // Reads an archive completely. Returns an error message, empty on success.
    QString read(const QString &archive, cProgress &progress);

    const cVrk3Parser &parser() const { return m_parser; }
    const cGpsRaw &raw() const { return m_raw; }
    const cNmea &nmea() const { return m_nmea; }
    const cTrackStats &stats() const { return m_stats; }

private:
    cVrk3Parser m_parser;
    cGpsRaw m_raw;
    cNmea m_nmea;
    cTrackStats m_stats;
};

#endif
