#include "cli/tracksource.h"

#include "cli/feed.h"
#include "cli/fileid.h"
#include "cli/messages.h"
#include "cli/summary.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

cTrackSource::cTrackSource(QObject *parent) : QObject(parent)
{
    connect(&m_raw, SIGNAL(signal_Data(QByteArray)), SLOT(slot_Data(QByteArray)));
    connect(&m_raw, SIGNAL(signal_Data(QByteArray)), &m_reader, SLOT(slot_Data(QByteArray)));
    connect(&m_reader, SIGNAL(signal_Data(FIX_T)), &m_track, SLOT(slot_Data(FIX_T)));
}

RESULT_T cTrackSource::read(const ARCHIVE_T &archive, cProgress &progress)
{
    if (m_name.isEmpty())
        m_name = archive.name == STANDARD_STREAM ? u"Track"_s
                                                 : QFileInfo(archive.name).completeBaseName();
    cVrk3Parser parser;
    parser.deliverOnly(GPS_STREAM_ID, GPS_STREAM_TYPE);
    connect(&parser, SIGNAL(signal_Data(HDR_T)), SLOT(slot_Data(HDR_T)));
    connect(&parser, SIGNAL(signal_Data(DATA_T)), &m_raw, SLOT(slot_Data(DATA_T)));
    cFeed feed(archive);
    feed.run(parser, progress);
    m_reader.finish();
    return {feed.error().isEmpty() ? whyNoArchive(feed.account()) : feed.error(),
            headerWarnings(archive, feed.account())};
}

QString cTrackSource::finish()
{
    m_track.finish();
    m_summary = summarize(m_track);
    // Walking through a long track reads a temporary file, which may fail.
    if (!m_track.error().isEmpty() || m_summary.fixes > 0)
        return m_track.error();
    if (m_textBytes == 0)
        return u"it contains no GPS data"_s;
    if (m_reader.fixes() == 0)
        return counted(m_reader.sentences().count(), "GPS sentence") + u", none with a position"_s;
    return u"%1, none within --from and --until"_s.arg(countedFixes(m_reader.fixes()));
}

RESULT_T cTrackSource::write(const std::shared_ptr<cOutputFile> &output,
                             const std::function<bool()> &write)
{
    const QString failure = finish();
    if (!failure.isEmpty())
        return {failure};
    connect(output.get(), SIGNAL(signal_Failed()), &m_track, SLOT(slot_Stop()));
    const bool isWritten = write();
    // Writing walks through the track again.
    if (!m_track.error().isEmpty())
        return {m_track.error()};
    if (!isWritten)
        return {u"the track cannot be written as XML"_s};
    output->finish();
    return {.summary = trackSummary(m_summary, output->name()), .files = {output}};
}

QString cTrackSource::title() const
{
    return m_title.size() > 0 ? m_title.start() : m_name;
}

void cTrackSource::slot_Data(const HDR_T &hdr)
{
    if (m_title.size() == 0)
        m_title = cHeaderText(hdr.title);
}

void cTrackSource::slot_Data(const QByteArray &a)
{
    m_textBytes += a.size();
}
