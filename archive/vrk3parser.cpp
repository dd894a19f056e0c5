#include "archive/vrk3parser.h"

#include <utility>

cVrk3Parser::cVrk3Parser(QObject *parent) : QObject(parent)
{
    m_entryOf.fill(-1);
}

ACCOUNT_T cVrk3Parser::account() const
{
    ACCOUNT_T account = m_account;
    account.buffered = m_data.size();
    if (m_skipLeft > 0)
        account.buffered += m_skippedHead + m_skipped.size - m_skipLeft;
    account.unfinishedBlocks = m_blocks.size();
    return account;
}

void cVrk3Parser::deliverOnly(int id, int type)
{
    m_onlyId = id;
    m_onlyType = type;
}

void cVrk3Parser::slot_Data(const QByteArray &a)
{
    m_account.received += a.size();
    for (qsizetype pos = 0; pos < a.size();) {
        pos = m_data.append(a, pos);
        _parse();
    }
    m_data.release();
}

void cVrk3Parser::_parse()
{
    m_isWaiting = false;
    try {
        _skipBlock();
        // Every state needs at least four bytes.
        while (!m_isWaiting && m_data.size() >= MAGIC_SIZE) {
            if (m_state == STATE_HDR)
                _parseHDR();
            else if (m_state == STATE_IDX)
                _parseHDRIDX();
            else
                _parseHDRIDXBLOCK();
        }
    } catch (const QString &) {
        // More bytes are needed. The next call continues in the same state.
    }
}

void cVrk3Parser::_parseHDR()
{
    if (_scan(HDR_MAGIC, HDR_MAGIC) == 0)
        return;
    HDR_T hdr;
    qsizetype size = 0;
    switch (m_hdrReader.read(m_data, hdr, size)) {
    case cHdrReader::INCOMPLETE:
        m_isWaiting = true;
        return;
    case cHdrReader::NO_RECORD: {
        // The previous header remains valid, so the search for an IDX record continues.
        const bool hasHeader = m_hdr.magic == HDR_MAGIC;
        m_state = hasHeader ? STATE_IDX : STATE_HDR;
        _drop(hasHeader ? m_data.find_quint32(IDX_MAGIC, IDX_MAGIC, MAGIC_MARK, size) : size);
        return;
    }
    case cHdrReader::RECORD:
        break;
    }
    m_data.skip(size);
    m_account.hdr += size;
    m_hdr = std::move(hdr);
    m_entryOf.fill(-1);
    for (int i = int(m_hdr.streams.size()) - 1; i >= 0; --i)
        m_entryOf[m_hdr.streams.at(i).id] = i; // backwards, so that the first entry counts
    m_block.stream = STREAM_T();
    m_state = STATE_IDX;
    Q_EMIT signal_Data(m_hdr);
}

void cVrk3Parser::_parseHDRIDX()
{
    const quint32 magic = _scan(IDX_MAGIC, HDR_MAGIC);
    if (magic == HDR_MAGIC)
        m_state = STATE_HDR;
    if (magic != IDX_MAGIC)
        return;
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
    const auto id = quint8(front >> 24);
    const int entry = m_entryOf[id];
    const int type = entry < 0 ? int(STREAM_NONE) : m_hdr.streams.at(entry).type;
    if (!isStreamType(type)) {
        m_state = STATE_IDX;
        return;
    }
    const bool isDelivered =
        (m_onlyId < 0 || m_onlyId == id) && (m_onlyType < 0 || m_onlyType == type);
    DATA_T &d = isDelivered ? m_block : m_skipped;
    int pos = 0;
    const int size = m_data.get_quint16(pos);
    d.size = size;
    d.flags = m_data.get_quint8(pos);
    d.streamId = m_data.get_quint8(pos);
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
    if (!isDelivered) {
        m_skippedHead = head;
        m_skipLeft = head + size;
        _skipBlock();
        return;
    }
    if (d.stream.id != id || d.stream.type == STREAM_NONE)
        d.stream = _lookupStream(id);
    m_data.get_block(pos, size, d.payload);
    const int kind = d.flags >> FRAG_SHIFT;
    if (kind == FRAG_FIRST)
        m_firstOffset[id] = m_data.offset();
    m_blockOffset = kind == FRAG_WHOLE ? m_data.offset() : m_firstOffset[id];
    m_data.skip(pos);
    m_account.heads += head;
    if (_completeBlock(d)) {
        m_account.delivered += d.size;
        Q_EMIT signal_Data(d);
        if (d.size > size)
            d.payload = QByteArray(); // a joined payload may be large: free its memory
    }
}

// Skips the bytes of m_skipped that have arrived.
void cVrk3Parser::_skipBlock()
{
    if (m_skipLeft == 0)
        return;
    const qsizetype n = qMin(m_skipLeft, m_data.size());
    m_data.skip(n);
    m_skipLeft -= n;
    if (m_skipLeft > 0)
        return;
    m_account.heads += m_skippedHead;
    if (_completeBlock(m_skipped))
        m_account.delivered += m_skipped.size;
}

STREAM_T cVrk3Parser::_lookupStream(unsigned char id) const
{
    const int entry = m_entryOf[id];
    return entry >= 0 ? m_hdr.streams.at(entry) : STREAM_T{id, STREAM_NONE, {}, {}, {}};
}

// Joins fragments. Returns true if d is now a whole logical block.
bool cVrk3Parser::_completeBlock(DATA_T &d)
{
    const int kind = d.flags >> FRAG_SHIFT;
    if (kind == FRAG_WHOLE)
        return true;
    const auto open = m_blocks.find(d.streamId);
    if (kind == FRAG_FIRST) {
        if (open != m_blocks.end())
            _lose(*open);
        m_account.unfinished += d.size;
        m_blocks.insert(d.streamId, d);
        return false;
    }
    if (open == m_blocks.end()) {
        m_account.lost += d.size;
        ++m_account.lostBlocks;
        return false;
    }
    m_account.unfinished += d.size;
    open->size += d.size;
    open->payload.append(d.payload);
    if (kind == FRAG_MIDDLE)
        return false;
    d.size = open->size;
    d.payload = open->payload;
    d.flags |= quint8(FRAG_WHOLE << FRAG_SHIFT);
    d.extWord = open->extWord;
    d.extByte1 = open->extByte1;
    d.extByte2 = open->extByte2;
    m_account.unfinished -= d.size;
    m_blocks.erase(open);
    return true;
}

void cVrk3Parser::_lose(const DATA_T &unfinished)
{
    m_account.unfinished -= unfinished.size;
    m_account.lost += unfinished.size;
    ++m_account.lostBlocks;
}

// Skips the bytes before the next a or b. Returns the value found, or 0 if none has arrived.
quint32 cVrk3Parser::_scan(quint32 a, quint32 b)
{
    const quint32 front = m_data.peek_quint32();
    if (front == a || front == b)
        return front;
    _drop(m_data.find_quint32(a, b, MAGIC_MARK, m_data.size()));
    return m_data.size() < MAGIC_SIZE ? 0 : m_data.peek_quint32();
}

void cVrk3Parser::_drop(qsizetype n)
{
    const qint64 offset = m_data.offset();
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
