#ifndef GPSCHAIN_H
#define GPSCHAIN_H

#include "archive/hdrtxts.h"
#include "archive/vrk3parser.h"
#include "gps/gpsraw.h"
#include "gps/trackwriter.h"

#include <memory>

// The chain of filters that turns an archive's bytes into the bytes of an output file.
//
// Pass the archive to parser().slot_Data; the output arrives at the sink. The destructor sends the
// writer's last bytes, so the sink must outlive the chain.
class cGpsChain
{
public:
    // `filter` is a filter text of a file dialog, such as "OziExplorer track (*.plt)". The chain
    // writes GPX, PLT or KML if the text contains "*.gpx", "*.plt" or "*.kml", and otherwise the
    // receiver's raw text. The sink has a slot slot_Data(const QByteArray &) and is not owned.
    cGpsChain(const QString &filter, QObject *sink);

    // Takes the archive. Of its blocks, it emits only those of the GPS stream.
    cVrk3Parser &parser() { return m_parser; }
    const cGpsRaw &raw() const { return m_raw; }
    // The writer's decoder, owned by the chain; null for raw text.
    const cNmea *decoder() const { return m_writer ? &m_writer->nmea() : nullptr; }

private:
    // In the order of the data. The writer is destroyed first.
    cVrk3Parser m_parser;
    cHdrTxts m_hdrTxts;
    cGpsRaw m_raw;
    std::unique_ptr<cTrackWriter> m_writer; // null for raw text
};

#endif
