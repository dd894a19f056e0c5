#ifndef READINGCHECK_H
#define READINGCHECK_H

#include "archive/vrk3format.h"
#include "cli/trackstats.h"
#include "gps/nmea.h"
#include "track/fix.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>

// Checks whether the window misreads an archive: whether its positions are wrong, or fixes that the
// receiver sent are missing. Connect the signals for HDR records, for the GPS stream and for the
// fixes in it. Connect that of the stream after the window's decoder and the statistics are
// connected to it.
//
// Fixes are expensive to read. A command that needs them for nothing else reads only the text that
// signal_Data passes on, which costs almost nothing if the decoder finds points.
class cReadingCheck : public QObject
{
    Q_OBJECT

public:
    // stats must outlive the object.
    explicit cReadingCheck(const cTrackStats &stats, QObject *parent = nullptr);

    // Returns the warnings, at most one about the track and one about the title. Call it after the
    // last fix. `reader` is the subject of the warnings, such as "this format". The title is
    // checked for GPX if `format` contains "gpx", and for KML if it contains "kml".
    QStringList warnings(const NMEA_ACCOUNT_T &account, const QString &reader,
                         const QString &format) const;

public Q_SLOTS:
    void slot_Data(const HDR_T &hdr);
    void slot_Data(const QByteArray &a);
    void slot_Data(const FIX_T &fix);

Q_SIGNALS:
    // A block of the GPS stream in which the decoder found no point with a position, or in which it
    // skipped a sentence that may have one. Valid only during the call.
    void signal_Data(const QByteArray &a);

private:
    QString _trackWarning(const NMEA_ACCOUNT_T &account, const QString &reader) const;

    const cTrackStats &m_stats;
    qint64 m_located = 0; // points with a position up to the last block
    qint64 m_unseen = 0;  // fixes in seconds without a point
    bool m_hasText = false;
    QByteArray m_gpxTitle; // as in the header
    QByteArray m_kmlTitle;
};

#endif
