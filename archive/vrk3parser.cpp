#include "archive/vrk3parser.h"

#include <limits>
#include <utility>

static bool _isAccepted(int type)
{
    return type == STREAM_EXT || type == STREAM_TYPE_2 || type == STREAM_TYPE_4 ||
           type == STREAM_TYPE_8 || type == STREAM_TYPE_16;
}

cVrk3Parser::cVrk3Parser(QObject *parent) : QObject(parent)
{
    m_entryOf.fill(-1);
}

ACCOUNT_T cVrk3Parser::account() const
{
    ACCOUNT_T account = m_account;
    account.buffered = m_data.size();
    account.unfinishedBlocks = m_blocks.size();
    return account;
}

void cVrk3Parser::slot_Data(const QByteArray &a)
{
    m_data.append(a);
    m_account.received += a.size();
    try {
        for (;;) {
            if (m_state == STATE_HDR)
                _parseHDR();
            else if (m_state == STATE_IDX)
                _parseHDRIDX();
            else
                _parseHDRIDXBLOCK();
        }
    } catch (const QString &) {
        // The splitter wants more bytes: the same stage goes on with the next chunk.
    }
}

void cVrk3Parser::_parseHDR()
{
    _scan(HDR_MAGIC, HDR_MAGIC);
    if (m_openString > 0 && !m_data.string_open(m_openString, HDR_STRING_LIMIT))
        m_data.require(m_data.find_zero(m_openString) + 1);
    HDR_T hdr;
    int pos = 0;
    if (!_readHDR(hdr, pos)) {
        _refuseHDR();
        return;
    }
    m_data.skip(pos);
    m_account.hdr += pos;
    _acceptHDR(std::move(hdr));
    m_state = STATE_IDX;
    Q_EMIT signal_Data(m_hdr);
}

// Reads the record in front and moves pos behind it. False: the bytes are no record after all.
bool cVrk3Parser::_readHDR(HDR_T &hdr, int &pos)
{
    hdr.magic = m_data.get_quint32(pos);
    hdr.hdrLen = m_data.get_quint16(pos);
    hdr.txtLen = m_data.get_quint16(pos);
    const int end = hdr.hdrLen + hdr.txtLen;
    if (end == 0)
        return false;
    m_data.require(end); // the record is no shorter: do not read it in part
    if (_reachesOpenRun(hdr.hdrLen, end))
        return false;
    if (!_readString(pos, hdr.title))
        return false;
    while (pos < hdr.hdrLen) {
        STREAM_T stream;
        stream.id = m_data.get_quint8(pos);
        stream.type = m_data.get_quint8(pos);
        if (!_readString(pos, stream.textA) || !_readString(pos, stream.textB) ||
            !_readString(pos, stream.textC))
            return false;
        if (pos <= hdr.hdrLen)
            hdr.streams.append(stream);
    }
    pos = hdr.hdrLen;
    static const QList<QByteArray> noTexts(TAG_MAX + 1);
    hdr.texts = noTexts;
    while (pos < end) {
        const int tag = m_data.get_quint8(pos);
        if (tag >= 1 && tag <= TAG_MAX && !_readString(pos, hdr.texts[tag]))
            return false;
    }
    return true;
}

// Reads one string of a HDR record. False: it is open for so long that the bytes are no record.
bool cVrk3Parser::_readString(int &pos, QByteArray &string)
{
    if (m_data.string_open(pos, HDR_STRING_LIMIT)) {
        _rememberOpenRun(pos);
        return false;
    }
    m_openString = pos;
    string = m_data.get_string(pos);
    m_openString = 0;
    return true;
}

// Keeps where the run of non-zero bytes lies that the string at pos is in: all records in front of
// it that reach into it are refused without being read.
void cVrk3Parser::_rememberOpenRun(int pos)
{
    const auto byteAt = [this](int at) { return int(m_data.get_quint8(at)); };
    const qint64 front = m_account.received - m_data.size();
    int from = pos;
    while (from > 0 && byteAt(from - 1) != 0)
        --from;
    int tag = from;
    while (tag < HDR_SIZE_MAX && (byteAt(tag) < 1 || byteAt(tag) > TAG_MAX))
        ++tag;
    constexpr qint64 unknown = std::numeric_limits<qint64>::max();
    m_openRun.from = front + from;
    m_openRun.to = front + m_data.find_zero(pos);
    m_openRun.tag = tag < HDR_SIZE_MAX ? front + tag : unknown;
}

// Whether the record in front, whose table and whose whole length are given, has a string in the
// run last remembered that stays open for too long. The walk through the table ends behind a zero
// byte or not at all, and the walk through the tag texts opens a string at the first tag in the
// run.
bool cVrk3Parser::_reachesOpenRun(int hdrLen, int end)
{
    const qint64 front = m_account.received - m_data.size();
    const qint64 from = m_openRun.from - front;
    if (m_openRun.to <= front)
        return false;
    if (m_openRun.to - front < HDR_STRING_LIMIT)
        m_openRun.to = front + m_data.find_zero(m_openRun.to - front);
    return m_openRun.to - front >= HDR_STRING_LIMIT &&
           (from <= HDR_TITLE_OFFSET || from < hdrLen || m_openRun.tag < front + end);
}

// Drops the magic in front, which begins no record, and lets the scan go on where it stood.
void cVrk3Parser::_refuseHDR()
{
    m_openString = 0;
    // All magics whose title would begin in a run that is open for too long are refused at once.
    const qint64 front = m_account.received - m_data.size();
    const bool inRun = m_openRun.from <= front + HDR_TITLE_OFFSET;
    const qint64 open = inRun ? m_openRun.to - front - HDR_STRING_LIMIT + 1 : 0;
    const qsizetype n = qMax<qsizetype>(1, open);
    const bool tableInForce = m_hdr.magic == HDR_MAGIC;
    m_state = tableInForce ? STATE_IDX : STATE_HDR;
    _drop(tableInForce ? m_data.find_quint32(IDX_MAGIC, IDX_MAGIC, MAGIC_MARK, n) : n);
}

void cVrk3Parser::_acceptHDR(HDR_T &&hdr)
{
    m_hdr = std::move(hdr);
    m_entryOf.fill(-1);
    for (int i = int(m_hdr.streams.size()) - 1; i >= 0; --i)
        m_entryOf[m_hdr.streams.at(i).id] = i; // from behind, so that the first entry of an id wins
    m_block.stream = STREAM_T();
}

void cVrk3Parser::_parseHDRIDX()
{
    if (_scan(IDX_MAGIC, HDR_MAGIC) == HDR_MAGIC) {
        m_state = STATE_HDR;
        return;
    }
    int pos = 0;
    IDX_T idx;
    idx.magic = m_data.get_quint32(pos);
    idx.word1 = m_data.get_quint32(pos);
    idx.word2 = m_data.get_quint32(pos);
    const int length = m_data.get_quint8(pos);
    idx.extra = m_data.get_block(pos, length);
    m_data.skip(pos);
    m_account.idx += pos;
    m_idx = std::move(idx);
    m_state = STATE_BLOCK;
    for (const DATA_T &unfinished : std::as_const(m_blocks))
        _lose(unfinished);
    m_blocks.clear();
    Q_EMIT signal_Data(m_idx);
}

void cVrk3Parser::_parseHDRIDXBLOCK()
{
    const quint32 front = m_data.peek_quint32();
    if (front == IDX_MAGIC || front == HDR_MAGIC) {
        m_state = STATE_IDX;
        return;
    }
    DATA_T &d = m_block;
    int pos = 0;
    const int size = m_data.get_quint16(pos);
    d.size = size;
    d.flags = m_data.get_quint8(pos);
    d.streamId = m_data.get_quint8(pos);
    if (d.stream.id != d.streamId || d.stream.type == STREAM_NONE)
        d.stream = _lookupStream(d.streamId);
    const int type = d.stream.type;
    if (!_isAccepted(type)) {
        m_state = STATE_IDX;
        return;
    }
    d.extWord = 0;
    d.extByte1 = 0;
    d.extByte2 = 0;
    if (type == STREAM_EXT && (d.flags >> FRAG_SHIFT) >= FRAG_FIRST) {
        d.extWord = m_data.get_quint16(pos);
        d.extByte1 = m_data.get_quint8(pos);
        d.extByte2 = m_data.get_quint8(pos);
        if (d.extByte1 <= EXT_BYTE_MODULAR)
            d.extWord = quint16(d.extWord % EXT_WORD_MODULUS);
    }
    const int head = pos;
    m_data.get_block(pos, size, d.payload);
    m_data.skip(pos);
    m_account.heads += head;
    if (_completeBlock(d)) {
        m_account.delivered += d.payload.size();
        Q_EMIT signal_Data(d);
        if (d.size > size)
            d.payload = QByteArray(); // joined from fragments: its memory is not kept
    }
}

STREAM_T cVrk3Parser::_lookupStream(unsigned char id) const
{
    const int entry = m_entryOf[id];
    return entry >= 0 ? m_hdr.streams.at(entry) : STREAM_T{id, STREAM_NONE, {}, {}, {}};
}

// Joins fragments. True: d holds a whole logical block now.
bool cVrk3Parser::_completeBlock(DATA_T &d)
{
    const int kind = d.flags >> FRAG_SHIFT;
    if (kind == FRAG_WHOLE)
        return true;
    const auto open = m_blocks.find(d.streamId);
    if (kind == FRAG_FIRST) {
        if (open != m_blocks.end())
            _lose(*open);
        m_account.unfinished += d.payload.size();
        m_blocks.insert(d.streamId, d);
        return false;
    }
    if (open == m_blocks.end()) {
        m_account.lost += d.payload.size();
        ++m_account.lostBlocks;
        return false;
    }
    m_account.unfinished += d.payload.size();
    open->payload.append(d.payload);
    if (kind == FRAG_MIDDLE)
        return false;
    d.payload = open->payload;
    d.flags |= quint8(FRAG_WHOLE << FRAG_SHIFT);
    d.size = d.payload.size();
    d.extWord = open->extWord;
    d.extByte1 = open->extByte1;
    d.extByte2 = open->extByte2;
    m_account.unfinished -= d.payload.size();
    m_blocks.erase(open);
    return true;
}

void cVrk3Parser::_lose(const DATA_T &unfinished)
{
    m_account.unfinished -= unfinished.payload.size();
    m_account.lost += unfinished.payload.size();
    ++m_account.lostBlocks;
}

// Drops bytes up to the next a or b and returns which of them stands in front.
quint32 cVrk3Parser::_scan(quint32 a, quint32 b)
{
    quint32 front = m_data.peek_quint32();
    if (front != a && front != b) {
        _drop(m_data.find_quint32(a, b, MAGIC_MARK, m_data.size()));
        front = m_data.peek_quint32();
    }
    return front;
}

void cVrk3Parser::_drop(qsizetype n)
{
    const qint64 offset = m_account.received - m_data.size();
    m_data.skip(n);
    m_account.scanned += n;
    if (offset == m_stretchEnd && m_account.stretchCount > 0) {
        if (m_account.stretchCount == m_account.stretches.size())
            m_account.stretches.last().length += n;
    } else {
        ++m_account.stretchCount;
        if (m_account.stretches.size() < STRETCH_MAX)
            m_account.stretches.append({offset, n});
    }
    m_stretchEnd = offset + n;
}
