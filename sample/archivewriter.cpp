#include "sample/archivewriter.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr quint32 HDR_BYTES = 0xB505B5B5;
constexpr quint32 IDX_BYTES = 0xB5B5B505;
constexpr qsizetype HDR_FIXED_SIZE = 8;
constexpr qsizetype MAX_EXTRA = 0xFF;
constexpr qsizetype MAX_PAYLOAD = 0xFFFF;
constexpr quint8 TYPE_WITH_EXTENSION = 1;
} // namespace

void cArchiveWriter::_u8(quint32 value)
{
    m_bytes.append(char(value & 0xFF));
}

void cArchiveWriter::_u16(quint32 value)
{
    _u8(value);
    _u8(value >> 8);
}

void cArchiveWriter::_u32(quint32 value)
{
    _u16(value);
    _u16(value >> 16);
}

void cArchiveWriter::_string(const QByteArray &text)
{
    m_bytes.append(text);
    m_bytes.append('\0');
}

void cArchiveWriter::header(const QByteArray &title, const QList<ARCHIVESTREAM_T> &streams,
                            const QList<ARCHIVETEXT_T> &texts)
{
    cArchiveWriter table;
    table._string(title);
    for (const ARCHIVESTREAM_T &stream : streams) {
        table._u8(stream.id);
        table._u8(stream.type);
        table._string(stream.textA);
        table._string(stream.textB);
        table._string(stream.textC);
    }
    cArchiveWriter section;
    for (const ARCHIVETEXT_T &text : texts) {
        section._u8(text.tag);
        if (text.tag >= 1 && text.tag <= 8)
            section._string(text.text);
    }
    _u32(HDR_BYTES);
    _u16(quint32(HDR_FIXED_SIZE + table.m_bytes.size()));
    _u16(quint32(section.m_bytes.size()));
    rawBytes(table.m_bytes);
    rawBytes(section.m_bytes);
    m_streams = streams;
}

void cArchiveWriter::index(quint32 word1, quint32 word2, const QByteArray &extra)
{
    _u32(IDX_BYTES);
    _u32(word1);
    _u32(word2);
    const QByteArray kept = extra.left(MAX_EXTRA);
    _u8(quint32(kept.size()));
    rawBytes(kept);
}

bool cArchiveWriter::_hasExtension(quint8 streamId) const
{
    const auto entry = std::find_if(m_streams.cbegin(), m_streams.cend(),
                                    [streamId](const auto &s) { return s.id == streamId; });
    return entry != m_streams.cend() && entry->type == TYPE_WITH_EXTENSION;
}

void cArchiveWriter::block(quint8 streamId, const QByteArray &payload, FRAGMENT_T fragment,
                           quint8 lowFlags, const ARCHIVEEXTENSION_T &extension)
{
    const QByteArray kept = payload.left(MAX_PAYLOAD);
    _u16(quint32(kept.size()));
    _u8(quint32(fragment) << 6 | (lowFlags & 0x3FU));
    _u8(streamId);
    if ((fragment == FRAGMENT_FIRST || fragment == FRAGMENT_WHOLE) && _hasExtension(streamId)) {
        _u16(extension.word);
        _u8(extension.byte1);
        _u8(extension.byte2);
    }
    rawBytes(kept);
}

void cArchiveWriter::fragments(quint8 streamId, const QByteArray &payload, qsizetype pieceSize,
                               const ARCHIVEEXTENSION_T &extension)
{
    const qsizetype step = std::clamp(pieceSize, qsizetype(1), MAX_PAYLOAD);
    block(streamId, payload.left(step), FRAGMENT_FIRST, 0, extension);
    qsizetype pos = step;
    for (; pos + step < payload.size(); pos += step)
        block(streamId, payload.mid(pos, step), FRAGMENT_MIDDLE);
    block(streamId, payload.mid(pos), FRAGMENT_LAST);
}

void cArchiveWriter::rawBytes(const QByteArray &bytes)
{
    m_bytes.append(bytes);
}

QByteArray cArchiveWriter::take()
{
    return std::exchange(m_bytes, QByteArray());
}
