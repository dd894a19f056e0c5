#include "cli/trackreader.h"

#include "cli/inputfile.h"
#include "cli/pump.h"

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

QString cTrackReader::read(const QString &archive, cProgress &progress)
{
    cInputFile input(archive);
    pump(input, m_parser, progress);
    return input.error();
}
