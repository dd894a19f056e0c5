#include "cli/contents.h"

#include "cli/summary.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
int _key(const STREAM_T &stream)
{
    return stream.id << 8 | stream.type;
}
} // namespace

cContents::cContents(QObject *parent) : QObject(parent)
{
    connect(&m_parser, SIGNAL(signal_Data(HDR_T)), SLOT(slot_Data(HDR_T)));
    connect(&m_parser, SIGNAL(signal_Data(IDX_T)), SLOT(slot_Data(IDX_T)));
    connect(&m_parser, SIGNAL(signal_Data(DATA_T)), SLOT(slot_Data(DATA_T)));
    connect(&m_parser, SIGNAL(signal_Data(DATA_T)), &m_raw, SLOT(slot_Data(DATA_T)));
    connect(&m_raw, SIGNAL(signal_Data(QByteArray)), &m_names, SLOT(slot_Data(QByteArray)));
    // The window's reading of the archive, and whether it is right.
    connect(&m_raw, SIGNAL(signal_Data(QByteArray)), &m_nmea, SLOT(slot_Data(QByteArray)));
    connect(&m_raw, SIGNAL(signal_Data(QByteArray)), &m_stats, SLOT(slot_Data(QByteArray)));
    connect(&m_nmea, SIGNAL(signal_Data(nmea_data)), &m_stats, SLOT(slot_Data(nmea_data)));
    connect(&m_parser, SIGNAL(signal_Data(HDR_T)), &m_check, SLOT(slot_Data(HDR_T)));
    connect(&m_raw, SIGNAL(signal_Data(QByteArray)), &m_check, SLOT(slot_Data(QByteArray)));
    // The fixes.
    connect(&m_raw, SIGNAL(signal_Data(QByteArray)), &m_fixReader, SLOT(slot_Data(QByteArray)));
    connect(&m_fixReader, SIGNAL(signal_Data(FIX_T)), &m_track, SLOT(slot_Data(FIX_T)));
    connect(&m_fixReader, SIGNAL(signal_Data(FIX_T)), &m_check, SLOT(slot_Data(FIX_T)));
}

QString cContents::read(const ARCHIVE_T &archive, cProgress &progress)
{
    m_archive = archive.name;
    cFeed feed(archive);
    m_feed = &feed;
    feed.run(m_parser, progress);
    m_feed = nullptr;
    m_account = feed.account();
    m_fixReader.finish();
    m_track.finish();
    m_summary = summarize(m_track);
    m_warnings = m_check.warnings(sentences(), u"the window"_s, u"gpx kml"_s);
    const QString failure = feed.error().isEmpty() ? whyNoArchive(m_account) : feed.error();
    return failure.isEmpty() ? m_track.error() : failure;
}

void cContents::slot_Data(const HDR_T &hdr)
{
    if (!m_feed->isBorrowed()) {
        ++m_hdrRecords;
        const cHeaderText title(hdr.title);
        if (!m_titles.contains(title) && m_titles.size() < MAX_TITLES)
            m_titles.append(title);
    }
    for (int tag = 1; tag <= TAG_MAX; ++tag) {
        if (!hdr.texts.at(tag).isEmpty())
            m_texts[tag] = cHeaderText(hdr.texts.at(tag));
    }
    for (const STREAM_T &stream : hdr.streams) {
        if (STREAM_COUNT_T *const count = _count(stream))
            count->texts = {cHeaderText(stream.textA), cHeaderText(stream.textB),
                            cHeaderText(stream.textC)};
    }
}

// Returns the stream's entry, null if the list is full.
cContents::STREAM_COUNT_T *cContents::_count(const STREAM_T &stream)
{
    const int key = _key(stream);
    const auto it = m_streams.find(key);
    if (it != m_streams.end())
        return &*it;
    if (m_streams.size() < MAX_STREAMS)
        return &*m_streams.insert(key, {stream.id, stream.type, {}, 0, 0});
    m_notListed.set(size_t(key));
    return nullptr;
}

cContents::OMITTED_T cContents::omitted() const
{
    OMITTED_T omitted = m_omitted;
    omitted.streams = qint64(m_notListed.count());
    const auto isCut = [](const cHeaderText &text) { return text.isCut(); };
    omitted.texts = std::count_if(m_titles.begin(), m_titles.end(), isCut) +
                    std::count_if(m_texts.begin(), m_texts.end(), isCut);
    for (const STREAM_COUNT_T &count : m_streams)
        omitted.texts += std::count_if(count.texts.begin(), count.texts.end(), isCut);
    return omitted;
}

void cContents::slot_Data(const IDX_T &)
{
    if (!m_feed->isBorrowed())
        ++m_idxRecords;
}

void cContents::slot_Data(const DATA_T &d)
{
    STREAM_COUNT_T *const listed = _count(d.stream);
    ++(listed ? listed->blocks : m_omitted.blocks);
    (listed ? listed->bytes : m_omitted.bytes) += d.payload.size();
}
