#include "cli/borrowedheader.h"

#include "archive/vrk3parser.h"
#include "cli/inputfile.h"
#include "gps/gpsraw.h"

#include <QList>
#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
template <typename T>
void _append(QByteArray &bytes, T value)
{
    const T stored = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char *>(&stored), sizeof(T));
}

bool _isMagic(const QByteArray &start, qsizetype pos)
{
    const auto value = qFromLittleEndian<quint32>(start.constData() + pos);
    return value == IDX_MAGIC || value == HDR_MAGIC;
}

// Returns the record of a header, without its title and its numbered texts.
QByteArray _record(const HDR_T &hdr)
{
    QByteArray table(1, '\0');
    for (const STREAM_T &stream : hdr.streams) {
        _append(table, stream.id);
        _append(table, stream.type);
        table += stream.textA + stream.textB + stream.textC;
    }
    QByteArray record;
    _append(record, HDR_MAGIC);
    _append(record, quint16(HDR_TITLE_OFFSET + table.size()));
    _append(record, quint16(0));
    return record + table;
}

// Returns true if the rest of a block is receiver text that contains the start of a sentence. It
// may begin with the rest of the block's head.
bool _isReceiverText(const QByteArray &rest)
{
    const auto isText = [](char c) { return (c >= ' ' && c <= '~') || c == '\r' || c == '\n'; };
    const auto *const text = rest.begin() + qMin(rest.size(), HEAD_SIZE - 1);
    return rest.contains('$') && std::all_of(text, rest.end(), isText);
}
} // namespace

QString cBorrowedHeader::read(const QString &archive)
{
    cVrk3Parser parser;
    QObject::connect(&parser, qOverload<const HDR_T &>(&cVrk3Parser::signal_Data),
                     [this](const HDR_T &hdr) {
                         if (!m_record.isEmpty())
                             return;
                         m_record = _record(hdr);
                         // Backwards, so that the first entry with an id counts.
                         std::for_each(hdr.streams.crbegin(), hdr.streams.crend(),
                                       [this](const STREAM_T &s) { m_types.at(s.id) = s.type; });
                     });
    cInputFile input(archive);
    QByteArray block;
    while (m_record.isEmpty() && input.next(block))
        parser.slot_Data(block);
    if (m_record.isEmpty() && input.error().isEmpty())
        return u"it has no header"_s;
    return input.error();
}

cBorrowedHeader::LEAD_T cBorrowedHeader::lead(const QByteArray &start) const
{
    LEAD_T lead;
    lead.bytes = m_record;
    lead.hdr = m_record.size();
    const qsizetype first = _firstBlock(start);
    if (first < 0)
        return lead;
    _append(lead.bytes, IDX_MAGIC);
    lead.bytes.append(IDX_SIZE - MAGIC_SIZE, '\0');
    lead.idx = IDX_SIZE;
    lead.skipped = first;
    if (m_types.at(GPS_STREAM_ID) != GPS_STREAM_TYPE)
        return lead;
    // The bytes before the first block are the rest of a block that has lost its head. If they are
    // receiver text, they get a new head. Fragments that follow need a first fragment in any case.
    const bool isText = first <= MAX_PAYLOAD && _isReceiverText(start.left(first));
    const bool isContinued = _continuesText(start, first);
    if (!isText && !isContinued)
        return lead;
    _append(lead.bytes, quint16(isText ? first : 0));
    _append(lead.bytes, quint8((isContinued ? FRAG_FIRST : FRAG_WHOLE) << FRAG_SHIFT));
    _append(lead.bytes, quint8(GPS_STREAM_ID));
    lead.heads = HEAD_SIZE;
    if (isText)
        lead.skipped = 0;
    return lead;
}

// Reads the head at pos as a parser does. The end is 0 if it is not the head of a known stream.
cBorrowedHeader::BLOCK_T cBorrowedHeader::_blockAt(const QByteArray &start, qsizetype pos) const
{
    const auto *const head = reinterpret_cast<const uchar *>(start.constData() + pos);
    BLOCK_T block;
    block.size = qFromLittleEndian<quint16>(head);
    block.kind = head[2] >> FRAG_SHIFT;
    block.id = head[3];
    const int type = m_types.at(block.id);
    const bool hasExtension = type == STREAM_EXT && block.kind >= FRAG_FIRST;
    if (isStreamType(type))
        block.end = pos + (hasExtension ? EXT_HEAD_SIZE : HEAD_SIZE) + block.size;
    return block;
}

// Returns the offset of the first block before the first record, -1 if there is none.
//
// Random bytes can look like heads, so the longest chain of blocks is used: a chain that begins at
// a wrong place misses blocks. Empty blocks do not count, because zero bytes can look like a chain
// of them. A chain should end at the record, but damage may interrupt it.
qsizetype cBorrowedHeader::_firstBlock(const QByteArray &start) const
{
    qsizetype end = 0;
    while (end + MAGIC_SIZE <= start.size() && !_isMagic(start, end))
        ++end;
    const bool hasRecord = end + MAGIC_SIZE <= start.size();
    if (!hasRecord)
        end = start.size();

    // For each offset, the number of blocks from there to the end, less a penalty for
    // interruptions. `from` assumes that a block begins at the offset; in `after`, it may begin
    // later.
    constexpr int impossible = -1000;
    constexpr int interruption = 4;
    QList<int> from(end + 1, hasRecord ? impossible : 0);
    QList<int> after(end + 1, 0);
    from.last() = 0;
    for (qsizetype pos = end - 1; pos >= 0; --pos) {
        int &count = from[pos];
        if (pos + HEAD_SIZE <= end) {
            const BLOCK_T block = _blockAt(start, pos);
            if (block.end == 0)
                count = impossible;
            else if (block.end <= end)
                count = (block.size > 0 ? 1 : 0) +
                        qMax(from.at(block.end), after.at(block.end) - interruption);
        }
        after[pos] = qMax(count, after.at(pos + 1));
    }
    const auto most = std::max_element(from.begin(), from.end());
    const int enough = hasRecord ? 1 : 2;
    return *most >= enough ? most - from.begin() : -1;
}

// Returns true if the first block of the GPS stream from pos on continues a logical block.
bool cBorrowedHeader::_continuesText(const QByteArray &start, qsizetype pos) const
{
    while (pos + HEAD_SIZE <= start.size() && !_isMagic(start, pos)) {
        const BLOCK_T block = _blockAt(start, pos);
        if (block.end == 0)
            return false;
        if (block.id == GPS_STREAM_ID)
            return block.kind < FRAG_FIRST;
        pos = block.end;
    }
    return false;
}
