#include "archive/hdrreader.h"

#include <utility>

namespace
{
// Any two entries of a table are less than this many bytes apart.
constexpr qint64 TABLE_SIZE = 1 << 16;

// Converts an offset in the archive to an index in data.bytes().
qsizetype _index(const cDataSplitter &data, qint64 offset)
{
    return static_cast<qsizetype>(offset - data.offset());
}

// Returns the index of an entry in m_leadsTo.
qsizetype _slot(qint64 entry)
{
    return static_cast<qsizetype>(entry % TABLE_SIZE);
}

bool _isTag(int byte)
{
    return byte >= 1 && byte <= TAG_MAX;
}

QByteArray _string(const cDataSplitter &data, int &pos)
{
    // Large tables consist of empty strings, so these share one array.
    static const QByteArray empty(1, '\0');
    if (data.bytes()[pos] != '\0')
        return data.get_string(pos);
    ++pos;
    return empty;
}
} // namespace

cHdrReader::RESULT_T cHdrReader::read(const cDataSplitter &data, HDR_T &hdr, qsizetype &size)
{
    if (data.size() < HDR_TITLE_OFFSET)
        return INCOMPLETE;
    int pos = 0;
    hdr.magic = data.get_quint32(pos);
    hdr.hdrLen = data.get_quint16(pos);
    hdr.txtLen = data.get_quint16(pos);
    const int end = hdr.hdrLen + hdr.txtLen;
    size = 1;
    if (end == 0)
        return NO_RECORD;
    if (data.size() < end)
        return INCOMPLETE;
    if (_isOpen(data, hdr, size))
        return data.size() < HDR_STRING_LIMIT ? INCOMPLETE : NO_RECORD;

    hdr.title = _string(data, pos);
    hdr.streams.clear();
    while (pos < hdr.hdrLen) {
        STREAM_T stream;
        stream.id = data.get_quint8(pos);
        stream.type = data.get_quint8(pos);
        stream.textA = _string(data, pos);
        stream.textB = _string(data, pos);
        stream.textC = _string(data, pos);
        if (pos <= hdr.hdrLen)
            hdr.streams.append(stream);
    }
    pos = hdr.hdrLen;
    static const QList<QByteArray> noTexts(TAG_MAX + 1);
    hdr.texts = noTexts;
    while (pos < end) {
        const int tag = data.get_quint8(pos);
        if (_isTag(tag))
            hdr.texts[tag] = _string(data, pos);
    }
    size = pos;
    return RECORD;
}

// Finds the last zero bytes before the limit, or among the bytes that have arrived.
void cHdrReader::_findLastZeros(const cDataSplitter &data)
{
    const qint64 front = data.offset();
    if (m_zerosTo < front) {
        m_zeros.fill(-1);
        m_zerosTo = front;
    }
    const qsizetype end = qMin<qsizetype>(HDR_STRING_LIMIT, data.size());
    const QByteArrayView bytes = data.bytes().first(end);
    for (qsizetype i = _index(data, m_zerosTo); (i = bytes.indexOf('\0', i)) >= 0; ++i)
        m_zeros = {m_zeros[1], m_zeros[2], front + i};
    m_zerosTo = qMax(m_zerosTo, front + end);
}

// Returns true if a string of the record at the front is open at the limit, or at the end of the
// bytes that have arrived. Sets size as read() does.
bool cHdrReader::_isOpen(const cDataSplitter &data, const HDR_T &hdr, qsizetype &size)
{
    _findLastZeros(data);
    const qint64 front = data.offset();
    const qint64 tableEnd = front + hdr.hdrLen;
    const qint64 end = tableEnd + hdr.txtLen;
    const qint64 run = m_zeros.back() + 1; // the bytes from here on are not zero
    if (run <= front + HDR_TITLE_OFFSET) {
        // The title is open, and so are all titles that begin later and reach the limit.
        const qsizetype zero = data.bytes().indexOf('\0', _index(data, m_zerosTo));
        m_zerosTo = front + (zero < 0 ? data.size() : zero);
        size = qMax<qsizetype>(1, _index(data, m_zerosTo) - HDR_STRING_LIMIT + 1);
        return true;
    }
    // The table ends with a zero byte at or after its last byte.
    if (run < tableEnd)
        return true;
    // After any zero byte, the tag texts continue with a tag or a filler. So the first tag in the
    // run begins a string that is open.
    m_tag = qMax(m_tag, run);
    while (m_tag < end && !_isTag(data.bytes()[_index(data, m_tag)]))
        ++m_tag;
    return m_tag < end || _isTableOpen(data, tableEnd);
}

// The same for the stream table alone. The title is not open.
bool cHdrReader::_isTableOpen(const cDataSplitter &data, qint64 tableEnd)
{
    const qint64 front = data.offset();
    const auto afterZero = [&](qint64 pos) {
        return front + data.bytes().indexOf('\0', _index(data, pos)) + 1;
    };
    // An entry is open if fewer than three zero bytes follow its first two bytes.
    const qint64 open = m_zeros.front() - 1;
    if (open >= tableEnd)
        return false;
    if (m_leadsTo.isEmpty())
        m_leadsTo.resize(TABLE_SIZE);
    m_path.clear();
    qint64 entry = afterZero(front + HDR_TITLE_OFFSET);
    while (entry < open && entry < tableEnd) {
        m_path.append(entry);
        const qint64 leadsTo = m_leadsTo.at(_slot(entry));
        entry = leadsTo > entry ? leadsTo : afterZero(afterZero(afterZero(entry + 2)));
    }
    if (entry >= tableEnd)
        return false;
    for (const qint64 passed : std::as_const(m_path))
        m_leadsTo[_slot(passed)] = entry;
    return true;
}
