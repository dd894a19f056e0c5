#ifndef HDRTXTS_H
#define HDRTXTS_H

#include "archive/vrk3format.h"

#include <QObject>
#include <QString>

// The number under which cHdrTxts sends an archive's title. Ids of streams are smaller.
inline constexpr int HDRTXT_TITLE = 256;

// Sends the texts of a HDR record on, one by one, as numbered text: first the title, then the
// second text of each stream in the order of the table, under the stream's id. Entries of type 0
// are no streams and are left out. Bytes that are not UTF-8 become replacement characters. It keeps
// nothing.
class cHdrTxts : public QObject
{
    Q_OBJECT

public:
    explicit cHdrTxts(QObject *parent = nullptr);

public Q_SLOTS:
    void slot_Data(const HDR_T &d);

Q_SIGNALS:
    void signal_Data(int what, const QString &s);
};

#endif
