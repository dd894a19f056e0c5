#include "archive/datasplitter.h"

#include <algorithm>
#include <cstring>

namespace
{
// Copies at least this many bytes when a read crosses from one array to the next.
constexpr qsizetype SEAM = 256;
// Number of offsets that one step of the search for a four-byte value examines.
constexpr qsizetype SEARCH_STEP = 512;

// Returns true if matches(i) holds for any i below SEARCH_STEP. There are no branches, so the
// compiler can use vector instructions and the time does not depend on the bytes.
template <typename F>
bool _any(F matches)
{
    char hit = 0;
    for (qsizetype i = 0; i < SEARCH_STEP; ++i)
        hit |= char(-int(matches(i)));
    return hit != 0;
}

// Returns true if a pair of bytes begins at one of the SEARCH_STEP bytes at p.
bool _hasPair(const char *p, quint16 pair)
{
    const char b0 = char(pair);
    const char b1 = char(pair >> 8);
    return _any([=](qsizetype i) { return (p[i] == b0) & (p[i + 1] == b1); });
}

// The same for a four-byte value.
bool _hasValue(const char *p, quint32 value)
{
    const char b0 = char(value);
    const char b1 = char(value >> 8);
    const char b2 = char(value >> 16);
    const char b3 = char(value >> 24);
    return _any([=](qsizetype i) {
        return (p[i] == b0) & (p[i + 1] == b1) & (p[i + 2] == b2) & (p[i + 3] == b3);
    });
}
} // namespace

void cDataSplitter::append(const QByteArray &a)
{
    _append(a);
}

qsizetype cDataSplitter::append(const QByteArray &a, qsizetype pos)
{
    if (m_size <= pos) {
        m_buffer = a;
        m_front = a.constData() + pos - m_size; // the m_size bytes before pos are unread
        m_size += a.size() - pos;
        return a.size();
    }
    const qsizetype wanted = std::max({m_required - m_size, SEAM, m_size / 2});
    const qsizetype n = std::min(wanted, a.size() - pos);
    _append(QByteArrayView(a).sliced(pos, n));
    return pos + n;
}

void cDataSplitter::release()
{
    if (m_buffer.isDetached())
        return;
    m_buffer = QByteArray(m_front, m_size);
    m_front = m_buffer.constData();
}

void cDataSplitter::_append(QByteArrayView bytes)
{
    // Consumed bytes are removed once they make up at least half of the buffer. So it never moves
    // more bytes than have been consumed.
    qsizetype head = m_buffer.size() - m_size;
    if (head >= m_size) {
        m_buffer.remove(0, head);
        head = 0;
    }
    m_buffer.append(bytes);
    m_front = m_buffer.constData() + head;
    m_size += bytes.size();
    m_required = 0;
}

QByteArray cDataSplitter::peek_block(int pos, int len) const
{
    require(qsizetype(pos) + len);
    return {m_front + pos, len};
}

QByteArray cDataSplitter::get_block(int &pos, int len) const
{
    QByteArray block = peek_block(pos, len);
    pos += len;
    return block;
}

void cDataSplitter::get_block(int &pos, int len, QByteArray &block) const
{
    require(qsizetype(pos) + len);
    if (!block.isDetached())
        block = QByteArray(len, Qt::Uninitialized);
    else
        block.resize(len);
    std::memcpy(block.data(), m_front + pos, size_t(len));
    pos += len;
}

QByteArray cDataSplitter::get_block(int len)
{
    QByteArray block = peek_block(len);
    skip(len);
    return block;
}

QByteArray cDataSplitter::peek_string(int pos) const
{
    const qsizetype zero = bytes().indexOf('\0', pos);
    require(zero < 0 ? size() + 1 : zero + 1);
    return {m_front + pos, zero + 1 - pos};
}

QByteArray cDataSplitter::get_string(int &pos) const
{
    QByteArray string = peek_string(pos);
    pos += int(string.size());
    return string;
}

QByteArray cDataSplitter::get_string()
{
    QByteArray string = peek_string();
    skip(string.size());
    return string;
}

qsizetype cDataSplitter::find_quint32(quint32 a, quint32 b, quint16 mark, qsizetype limit) const
{
    const char *const p = m_front;
    // Every offset below this one is followed by four bytes.
    const qsizetype end = qBound<qsizetype>(0, limit, qMax<qsizetype>(0, size() - 3));
    // A mark begins at most two bytes after the value, so the steps overlap by two offsets.
    for (qsizetype step = 0; step < end; step += SEARCH_STEP - 2) {
        const char *const q = p + step;
        if (step + SEARCH_STEP <= end &&
            (!_hasPair(q, mark) || !(_hasValue(q, a) || _hasValue(q, b))))
            continue;
        const qsizetype stop = qMin(end, step + SEARCH_STEP);
        for (qsizetype i = step; i < stop; ++i) {
            const auto value = qFromLittleEndian<quint32>(p + i);
            if (value == a || value == b)
                return i;
        }
    }
    return end;
}
