#include "archive/hdrtxts.h"

QString hdrText(const QByteArray &string)
{
    const qsizetype zero = string.indexOf('\0');
    return QString::fromUtf8(QByteArrayView(string).first(zero < 0 ? string.size() : zero));
}

cHdrTxts::cHdrTxts(QObject *parent) : QObject(parent) {}

void cHdrTxts::slot_Data(const HDR_T &d)
{
    Q_EMIT signal_Data(HDRTXT_TITLE, hdrText(d.title));
    for (const STREAM_T &stream : d.streams) {
        if (stream.type != STREAM_NONE)
            Q_EMIT signal_Data(stream.id, hdrText(stream.textB));
    }
}
