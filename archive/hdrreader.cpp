#include "archive/hdrreader.h"

#include <algorithm>
#include <utility>

namespace
{
// Offsets of entries within one table are below this value.
constexpr qint64 TABLE_SIZE = 1 << 16;

bool _isTag(int byte)
{
    return byte >= 1 && byte <= TAG_MAX;
}
} // namespace

bool cHdrReader::read(const cDataSplitter &data, HDR_T &hdr, qsizetype &size)
{
    int pos = 0;
    hdr.magic = data.get_quint32(pos);
    hdr.hdrLen = data.get_quint16(pos);
    hdr.txtLen = data.get_quint16(pos);
    const int end = hdr.hdrLen + hdr.txtLen;
    size = 1;
    if (end == 0)
        return false;
    data.require(end); // the record is at least this long
    if (data.size() < HDR_STRING_LIMIT) {
        _requireOpenString(data);
    } else {
        m_openString = 0;
        _findLastZeros(data);
        size = _openTitles(data);
        if (size > 0)
            return false;
        size = 1;
        if (_overruns(data, hdr))
            return false;
    }
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
    return true;
}

// Throws if the string for which the record waited is still open.
void cHdrReader::_requireOpenString(const cDataSplitter &data)
{
    if (m_openString == 0)
        return;
    const qsizetype from = m_openString - data.offset();
    m_openString = data.offset() + data.size();
    if (data.bytes().indexOf('\0', from) < 0)
        data.require(data.size() + 1);
    m_openString = 0;
}

QByteArray cHdrReader::_string(const cDataSplitter &data, int &pos)
{
    m_openString = data.offset() + pos;
    QByteArray string = data.get_string(pos);
    m_openString = 0;
    return string;
}

// Finds the last three zero bytes before the limit.
void cHdrReader::_findLastZeros(const cDataSplitter &data)
{
    const qint64 front = data.offset();
    if (m_zerosTo < front) {
        m_zeros.fill(-1);
        m_zerosTo = front;
    }
    const QByteArrayView bytes = data.bytes().first(HDR_STRING_LIMIT);
    for (qsizetype i = m_zerosTo - front; (i = bytes.indexOf('\0', i)) >= 0; ++i)
        m_zeros = {m_zeros[1], m_zeros[2], front + i};
    m_zerosTo = std::max(m_zerosTo, front + HDR_STRING_LIMIT);
}

// Returns how many bytes at the front are followed by a title that is open at the limit.
qsizetype cHdrReader::_openTitles(const cDataSplitter &data)
{
    const qint64 front = data.offset();
    if (m_zeros.back() >= front + HDR_TITLE_OFFSET)
        return 0;
    const qsizetype zero = data.bytes().indexOf('\0', m_zerosTo - front);
    m_zerosTo = front + (zero < 0 ? data.size() : zero);
    return m_zerosTo - front - HDR_STRING_LIMIT + 1;
}

// Whether a string of the table or of the tag texts is open at the limit. The title is not.
bool cHdrReader::_overruns(const cDataSplitter &data, const HDR_T &hdr)
{
    const qint64 front = data.offset();
    const qint64 tableEnd = front + hdr.hdrLen;
    const qint64 end = tableEnd + hdr.txtLen;
    // The bytes from here to the limit are not zero.
    const qint64 run = m_zeros.back() + 1;
    // The reading of the table stops only after a zero byte.
    if (run < tableEnd)
        return true;
    // The reading of the tag texts gets to the first byte after any zero byte, and then to the
    // first tag.
    m_tag = std::max(m_tag, run);
    while (m_tag < end && !_isTag(data.bytes()[m_tag - front]))
        ++m_tag;
    return m_tag < end || _tableOverruns(data, tableEnd);
}

// The same for the table alone.
bool cHdrReader::_tableOverruns(const cDataSplitter &data, qint64 tableEnd)
{
    const qint64 front = data.offset();
    const auto afterZero = [&](qint64 pos) {
        return front + data.bytes().indexOf('\0', pos - front) + 1;
    };
    // An entry overruns if fewer than three zero bytes follow its first two bytes.
    const qint64 overrun = m_zeros.front() - 1;
    if (overrun >= tableEnd)
        return false;
    if (m_leadsTo.empty())
        m_leadsTo.resize(TABLE_SIZE);
    m_path.clear();
    qint64 entry = afterZero(front + HDR_TITLE_OFFSET);
    while (entry < overrun && entry < tableEnd) {
        const qint64 leadsTo = m_leadsTo.at(entry % TABLE_SIZE);
        if (leadsTo >= entry) {
            // The overrunning entry was longer than any table, so it is the last one here, too.
            entry = leadsTo;
            break;
        }
        m_path.append(entry);
        entry = afterZero(afterZero(afterZero(entry + 2)));
    }
    const bool overruns = entry >= overrun && entry < tableEnd;
    if (overruns) {
        for (const qint64 passed : std::as_const(m_path))
            m_leadsTo[passed % TABLE_SIZE] = entry;
    }
    return overruns;
}
