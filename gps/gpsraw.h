#ifndef GPSRAW_H
#define GPSRAW_H

#include "archive/vrk3format.h"

#include <QObject>

// The stream that holds what the GPS receiver said: this id and this type, both.
inline constexpr int GPS_STREAM_ID = 0xFD;
inline constexpr int GPS_STREAM_TYPE = STREAM_TYPE_4;

// Lets the payloads of the GPS stream through, byte for byte, and drops every other block.
class cGpsRaw : public QObject
{
    Q_OBJECT

public:
    explicit cGpsRaw(QObject *parent = nullptr);

public Q_SLOTS:
    void slot_Data(const DATA_T &d);

Q_SIGNALS:
    // A payload of the receiver's text; it may end in the middle of a sentence. Good for the length
    // of the call.
    void signal_Data(const QByteArray &a);
};

#endif
