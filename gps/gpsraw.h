#ifndef GPSRAW_H
#define GPSRAW_H

#include "archive/vrk3format.h"

#include <QObject>

// The GPS stream is the one with both this id and this type.
inline constexpr int GPS_STREAM_ID = 0xFD;
inline constexpr int GPS_STREAM_TYPE = STREAM_TYPE_4;

// Passes on the payloads of the GPS stream, byte for byte, and discards all other blocks.
class cGpsRaw : public QObject
{
    Q_OBJECT

public:
    explicit cGpsRaw(QObject *parent = nullptr);

public Q_SLOTS:
    void slot_Data(const DATA_T &d);

Q_SIGNALS:
    // A payload of receiver text, which may end within a sentence. Valid only during the call.
    void signal_Data(const QByteArray &a);
};

#endif
