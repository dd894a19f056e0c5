#include "cli/trackreader.h"

cTrackReader::cTrackReader()
{
    const auto connect = [](const QObject &sender, const char *signal, const QObject &receiver,
                            const char *slot) {
        QObject::connect(&sender, signal, &receiver, slot);
    };
    connect(m_parser, SIGNAL(signal_Data(DATA_T)), m_raw, SLOT(slot_Data(DATA_T)));
    connect(m_raw, SIGNAL(signal_Data(QByteArray)), m_nmea, SLOT(slot_Data(QByteArray)));
    connect(m_raw, SIGNAL(signal_Data(QByteArray)), m_stats, SLOT(slot_Data(QByteArray)));
    connect(m_nmea, SIGNAL(signal_Data(nmea_data)), m_stats, SLOT(slot_Data(nmea_data)));
}

QString cTrackReader::read(const ARCHIVE_T &archive, cProgress &progress)
{
    m_feed.emplace(archive);
    m_feed->run(m_parser, progress);
    return m_feed->error();
}
