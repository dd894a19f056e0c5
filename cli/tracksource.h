#ifndef TRACKSOURCE_H
#define TRACKSOURCE_H

#include "archive/vrk3format.h"
#include "cli/archives.h"
#include "cli/headertext.h"
#include "cli/results.h"
#include "gps/gpsraw.h"
#include "track/fixreader.h"
#include "track/track.h"
#include "track/tracksummary.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

class cProgress;

// Reads the fixes of archives into one track. Unlike the window, it reads those of any receiver.
class cTrackSource : public QObject
{
    Q_OBJECT

public:
    explicit cTrackSource(QObject *parent = nullptr);

    // The track. Set its gap and its limits before the first archive.
    cTrack &track() { return m_track; }

    // Adds an archive. Returns why it failed, if it did, and warnings about it.
    RESULT_T read(const ARCHIVE_T &archive, cProgress &progress);

    // The number of fixes in all archives so far.
    qint64 fixes() const { return m_reader.fixes(); }

    // Ends the track. Call either this or write(), once, after the last archive. Returns why the
    // track cannot be used: it has no fix, or its fixes cannot be read. Empty on success.
    QString finish();
    // Figures about the track. Valid only if finish() has succeeded.
    const TRACK_SUMMARY_T &summary() const { return m_summary; }

    // Finishes the track and calls `write`, which must write it to the output. `write` returns
    // false if the track cannot be written as XML.
    RESULT_T write(const std::shared_ptr<cOutputFile> &output, const std::function<bool()> &write);

    // Returns the first title that is not empty. If there is none, returns the file name of the
    // first archive without its extension, or "Track" for standard input.
    QString title() const;

private Q_SLOTS:
    void slot_Data(const HDR_T &hdr);
    void slot_Data(const QByteArray &a);

private:
    cGpsRaw m_raw;
    cFixReader m_reader;
    cTrack m_track;
    TRACK_SUMMARY_T m_summary;
    qint64 m_textBytes = 0;
    cHeaderText m_title;
    QString m_name;
};

#endif
