#include "gps/trackwriter.h"

#include "archive/hdrtxts.h"

cTrackWriter::cTrackWriter(QObject *parent) : QObject(parent)
{
    connect(&m_nmea, SIGNAL(signal_Data(nmea_data)), this, SLOT(_slot_Nmea(nmea_data)));
}

void cTrackWriter::slot_Data(const QByteArray &a)
{
    m_nmea.slot_Data(a);
}

void cTrackWriter::slot_Data(int what, const QString &s)
{
    if (what == HDRTXT_TITLE)
        m_name = s;
}
