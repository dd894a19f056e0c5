#ifndef HDRTXTS_H
#define HDRTXTS_H

#include "archive/vrk3format.h"

#include <QObject>
#include <QString>

// Number of the archive's title in cHdrTxts::signal_Data. Stream ids are less.
inline constexpr int HDRTXT_TITLE = 256;

// Decodes an archive string: UTF-8 up to its closing zero byte. Invalid bytes become replacement
// characters.
QString hdrText(const QByteArray &string);

// Sends the texts of each HDR record, each with a number: first the title with HDRTXT_TITLE, then
// the second text of each stream with the stream's id, in the order of the table. Entries of type 0
// are not streams and are left out. Nothing is stored.
class cHdrTxts : public QObject
{
    Q_OBJECT

public:
    explicit cHdrTxts(QObject *parent = nullptr);

public Q_SLOTS:
    void slot_Data(const HDR_T &d);

Q_SIGNALS:
    // `what` is HDRTXT_TITLE or the id of a stream. The text is valid only during the call.
    void signal_Data(int what, const QString &s);
};

#endif
