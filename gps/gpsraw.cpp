#include "gps/gpsraw.h"

cGpsRaw::cGpsRaw(QObject *parent) : QObject(parent) {}

void cGpsRaw::slot_Data(const DATA_T &d)
{
    if (d.streamId == GPS_STREAM_ID && d.stream.type == GPS_STREAM_TYPE)
        Q_EMIT signal_Data(d.payload);
}
