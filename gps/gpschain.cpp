#include "gps/gpschain.h"

#include "gps/gpsgpx.h"
#include "gps/gpskml.h"
#include "gps/gpsplt.h"

using namespace Qt::StringLiterals;

namespace
{
// Returns the writer that a filter text selects, null for raw text.
std::unique_ptr<cTrackWriter> _writer(const QString &filter)
{
    if (filter.contains("*.kml"_L1))
        return std::make_unique<cGpsKml>();
    if (filter.contains("*.plt"_L1))
        return std::make_unique<cGpsPlt>();
    if (filter.contains("*.gpx"_L1))
        return std::make_unique<cGpsGpx>();
    return nullptr;
}
} // namespace

cGpsChain::cGpsChain(const QString &filter, QObject *sink) : m_writer(_writer(filter))
{
    m_parser.deliverOnly(GPS_STREAM_ID, GPS_STREAM_TYPE);
    QObject::connect(&m_parser, SIGNAL(signal_Data(DATA_T)), &m_raw, SLOT(slot_Data(DATA_T)));
    const QObject *tail = &m_raw;
    if (m_writer) {
        QObject::connect(&m_parser, SIGNAL(signal_Data(HDR_T)), &m_hdrTxts, SLOT(slot_Data(HDR_T)));
        QObject::connect(&m_hdrTxts, SIGNAL(signal_Data(int, QString)), m_writer.get(),
                         SLOT(slot_Data(int, QString)));
        QObject::connect(&m_raw, SIGNAL(signal_Data(QByteArray)), m_writer.get(),
                         SLOT(slot_Data(QByteArray)));
        tail = m_writer.get();
    }
    QObject::connect(tail, SIGNAL(signal_Data(QByteArray)), sink, SLOT(slot_Data(QByteArray)));
}
