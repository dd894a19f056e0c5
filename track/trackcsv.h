#ifndef TRACKCSV_H
#define TRACKCSV_H

#include "track/fixwriter.h"

// Writes comma-separated values (RFC 4180): a header line, then a line for each fix. A value that
// the receiver did not send is left empty. The title is not written.
class cTrackCsv : public cFixWriter
{
    Q_OBJECT

public:
    explicit cTrackCsv(QObject *parent = nullptr) : cFixWriter(parent) {}
    bool write(const cTrack &track, const QString &title) override;
};

#endif
