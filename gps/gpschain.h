#ifndef GPSCHAIN_H
#define GPSCHAIN_H

#include "archive/hdrtxts.h"
#include "archive/vrk3parser.h"
#include "gps/gpsgpx.h"
#include "gps/gpskml.h"
#include "gps/gpsplt.h"
#include "gps/gpsraw.h"

// The row of filters from an archive's bytes to the bytes of the output in one format.
//
// The archive goes in through parser().slot_Data; the output comes out at the sink. The destructor
// sends what the chosen writer still holds: the sink has to outlive the chain.
class cGpsChain
{
public:
    // The format is read out of a file dialog's filter text: "*.gpx", "*.plt" or "*.kml" in it, or
    // none of them for the receiver's raw text. The sink has a slot slot_Data(const QByteArray &);
    // it is not owned.
    cGpsChain(const QString &filter, QObject *sink);

    cVrk3Parser &parser() { return m_parser; }
    const cGpsRaw &raw() const { return m_raw; }
    // The decoder of the chosen writer, owned by the chain; null for the raw text.
    const cNmea *decoder() const { return m_decoder; }

private:
    // The order is that of the data. All writers are there whatever the format; one that is not
    // connected receives nothing and sends into nothing.
    cVrk3Parser m_parser;
    cHdrTxts m_hdrTxts;
    cGpsRaw m_raw;
    cGpsGpx m_gpx;
    cGpsPlt m_plt;
    cGpsKml m_kml;
    const cNmea *m_decoder = nullptr;
};

#endif
