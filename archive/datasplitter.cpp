#include "archive/datasplitter.h"

#include <cstring>

// Bytes that one step of the search for a four-byte value covers.
static constexpr qsizetype SEARCH_STEP = 64;

// Whether a or b begins at one of the SEARCH_STEP bytes from p on. It reads three bytes more.
// Without branches, so that the compiler makes vector compares of it and no content can slow it
// down.
static bool _beginsWithin(const char *p, quint32 a, quint32 b)
{
    const auto byte = [](quint32 value, int i) { return char(value >> (8 * i)); };
    const char a0 = byte(a, 0), a1 = byte(a, 1), a2 = byte(a, 2), a3 = byte(a, 3);
    const char b0 = byte(b, 0), b1 = byte(b, 1), b2 = byte(b, 2), b3 = byte(b, 3);
    unsigned char hit = 0;
    for (qsizetype i = 0; i < SEARCH_STEP; ++i) {
        const auto isA = static_cast<unsigned char>((p[i] == a0) & (p[i + 1] == a1) &
                                                    (p[i + 2] == a2) & (p[i + 3] == a3));
        const auto isB = static_cast<unsigned char>((p[i] == b0) & (p[i + 1] == b1) &
                                                    (p[i + 2] == b2) & (p[i + 3] == b3));
        hit |= static_cast<unsigned char>(isA | isB);
    }
    return hit != 0;
}

void cDataSplitter::append(const QByteArray &a)
{
    // The consumed bytes go when there are at least as many of them as of the others: so each byte
    // is moved at most once for each byte consumed, and the buffer keeps its memory.
    if (m_head >= size()) {
        const qsizetype rest = size();
        if (rest > 0)
            std::memmove(m_buffer.data(), _front(), size_t(rest));
        m_buffer.resize(rest);
        m_zeroFreeFrom = qMax<qsizetype>(0, m_zeroFreeFrom - m_head);
        m_zeroFreeTo = qMax<qsizetype>(0, m_zeroFreeTo - m_head);
        m_head = 0;
    }
    m_buffer.append(a);
}

QByteArray cDataSplitter::peek_block(int pos, int len) const
{
    require(qsizetype(pos) + len);
    return {_front() + pos, len};
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
    std::memcpy(block.data(), _front() + pos, size_t(len));
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
    const qsizetype end = pos < size() ? find_zero(pos) : pos;
    require(end + 1);
    return {_front() + pos, end + 1 - pos};
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

bool cDataSplitter::string_open(int pos, int limit) const
{
    return size() >= limit && (pos >= limit || find_zero(pos) >= limit);
}

qsizetype cDataSplitter::find_zero(qsizetype pos) const
{
    const qsizetype from = m_head + pos;
    if (from < m_zeroFreeFrom || from > m_zeroFreeTo) {
        m_zeroFreeFrom = from;
        m_zeroFreeTo = from;
    }
    const char *const data = m_buffer.constData();
    const void *const zero =
        std::memchr(data + m_zeroFreeTo, 0, size_t(m_buffer.size() - m_zeroFreeTo));
    m_zeroFreeTo = zero ? static_cast<const char *>(zero) - data : m_buffer.size();
    return m_zeroFreeTo - m_head;
}

qsizetype cDataSplitter::find_quint32(quint32 a, quint32 b, char mark, qsizetype limit) const
{
    const char *const p = _front();
    // Four bytes lie behind each offset below.
    const qsizetype end = qBound<qsizetype>(0, limit, qMax<qsizetype>(0, size() - 3));
    qsizetype i = 0;
    while (i < end) {
        // memchr is the fastest way over bytes without a mark. Behind each mark one whole step is
        // taken, so that text full of marks does not call it for every byte.
        const void *const found = std::memchr(p + i, mark, size_t(end + 3 - i));
        if (!found)
            return end;
        i = qMax(i, static_cast<const char *>(found) - p - 3);
        const qsizetype next = qMin(end, i + SEARCH_STEP);
        if (next - i < SEARCH_STEP || _beginsWithin(p + i, a, b)) {
            for (; i < next; ++i) {
                const auto value = qFromLittleEndian<quint32>(p + i);
                if (value == a || value == b)
                    return i;
            }
        }
        i = next;
    }
    return end;
}
