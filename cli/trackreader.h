#ifndef TRACKREADER_H
#define TRACKREADER_H

#include "archive/vrk3parser.h"
#include "cli/trackstats.h"
#include "gps/gpsraw.h"
#include "gps/nmea.h"

// The chain without a writer, for who wants to know what is in an archive: whatever else is to be
// told is connected to its signals.
class cTrackReader
{
public:
    cTrackReader();

    // Reads an archive whole, with a bar on standard error if showProgress is set. Gives why that
    // failed; empty if it did not.
    QString read(const QString &archive, bool showProgress);

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
