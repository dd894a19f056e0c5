#include "cli/contents.h"

#include "cli/summary.h"

namespace
{
int _key(const STREAM_T &stream)
{
    return stream.id << 8 | stream.type;
}
} // namespace

QString decodeString(const QByteArray &string)
{
    return QString::fromUtf8(string.constData()); // up to the zero byte
}

cContents::cContents(QObject *parent) : QObject(parent)
{
    connect(&m_reader.parser(), SIGNAL(signal_Data(HDR_T)), SLOT(slot_Data(HDR_T)));
    connect(&m_reader.parser(), SIGNAL(signal_Data(IDX_T)), SLOT(slot_Data(IDX_T)));
    connect(&m_reader.parser(), SIGNAL(signal_Data(DATA_T)), SLOT(slot_Data(DATA_T)));
    connect(&m_reader.raw(), SIGNAL(signal_Data(QByteArray)), &m_names,
            SLOT(slot_Data(QByteArray)));
}

QString cContents::read(const QString &archive, cProgress &progress)
{
    m_archive = archive;
    const QString failure = m_reader.read(archive, progress);
    return failure.isEmpty() ? whyNoArchive(account()) : failure;
}

void cContents::slot_Data(const HDR_T &hdr)
{
    ++m_hdrRecords;
    const QString title = decodeString(hdr.title);
    if (!m_titles.contains(title) && m_titles.size() < MAX_TITLES)
        m_titles.append(title);
    for (int tag = 1; tag <= TAG_MAX; ++tag) {
        if (!hdr.texts.at(tag).isEmpty())
            m_texts[tag] = decodeString(hdr.texts.at(tag));
    }
    for (const STREAM_T &stream : hdr.streams)
        m_streams[_key(stream)].stream = stream;
}

void cContents::slot_Data(const IDX_T &)
{
    ++m_idxRecords;
}

void cContents::slot_Data(const DATA_T &d)
{
    STREAM_COUNT_T &count = m_streams[_key(d.stream)];
    ++count.blocks;
    count.bytes += d.payload.size();
}
