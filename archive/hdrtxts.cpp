#include "archive/hdrtxts.h"

#include <QMetaMethod>

// The text of an archive's string, which carries its closing zero byte.
static QString _text(const QByteArray &string)
{
    return QString::fromUtf8(string.constData());
}

cHdrTxts::cHdrTxts(QObject *parent) : QObject(parent) {}

void cHdrTxts::slot_Data(const HDR_T &d)
{
    // In the raw chain nobody listens, and made-up titles may be long and many.
    static const QMetaMethod signal = QMetaMethod::fromSignal(&cHdrTxts::signal_Data);
    if (!isSignalConnected(signal))
        return;
    Q_EMIT signal_Data(HDRTXT_TITLE, _text(d.title));
    for (const STREAM_T &stream : d.streams) {
        if (stream.type != STREAM_NONE)
            Q_EMIT signal_Data(stream.id, _text(stream.textB));
    }
}
