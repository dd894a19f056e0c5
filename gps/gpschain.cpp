#include "gps/gpschain.h"

cGpsChain::cGpsChain(const QString &filter, QObject *sink)
{
    QObject::connect(&m_parser, SIGNAL(signal_Data(HDR_T)), &m_hdrTxts, SLOT(slot_Data(HDR_T)));
    QObject::connect(&m_parser, SIGNAL(signal_Data(DATA_T)), &m_raw, SLOT(slot_Data(DATA_T)));

    const QObject *tail = &m_raw;
    const auto choose = [&](const char *pattern, const auto &writer) {
        if (!filter.contains(QLatin1String(pattern)))
            return;
        QObject::connect(&m_raw, SIGNAL(signal_Data(QByteArray)), &writer,
                         SLOT(slot_Data(QByteArray)));
        QObject::connect(&m_hdrTxts, SIGNAL(signal_Data(int, QString)), &writer,
                         SLOT(slot_Data(int, QString)));
        tail = &writer;
        m_decoder = &writer.nmea();
    };
    choose("*.gpx", m_gpx);
    choose("*.plt", m_plt);
    choose("*.kml", m_kml);
    QObject::connect(tail, SIGNAL(signal_Data(QByteArray)), sink, SLOT(slot_Data(QByteArray)));
}
