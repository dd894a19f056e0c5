#ifndef DATASPLITTER_H
#define DATASPLITTER_H

#include <QByteArray>
#include <QString>
#include <QtEndian>

// A growing byte buffer: input is appended at its end in chunks of any size, typed fields are read
// from its front.
//
// Offsets count from the oldest byte not consumed yet. A cursor is an int of the caller's; the
// `get_` operations that take one move it and leave the bytes where they are. Only skip,
// get_block(int) and get_string() consume. Whatever is returned is a copy of its own.
//
// Every read that asks for more bytes than have arrived throws an empty QString and changes
// nothing, so that the same read can be repeated when more has been appended. Nothing else is ever
// thrown. Offsets and lengths must not be negative.
class cDataSplitter
{
public:
    virtual ~cDataSplitter() = default;

    // Adds the bytes of a behind those in the buffer.
    void append(const QByteArray &a);

    // Bytes in the buffer.
    qsizetype size() const { return m_buffer.size() - m_head; }
    // Throws unless the buffer holds n bytes.
    void require(qsizetype n) const;

    QByteArray peek_block(int pos, int len) const;
    QByteArray get_block(int &pos, int len) const;
    // The same into an array of the caller's: its contents are replaced, its memory is used again
    // if nobody shares it.
    void get_block(int &pos, int len, QByteArray &block) const;
    QByteArray peek_block(int len) const { return peek_block(0, len); }
    QByteArray get_block(int len);

    // Strings come with their closing zero byte.
    QByteArray peek_string(int pos) const;
    QByteArray get_string(int &pos) const;
    QByteArray peek_string() const { return peek_string(0); }
    QByteArray get_string();
    // Offset of the first zero byte from pos on, size() if none has arrived. A byte that has been
    // searched is not searched again as long as the calls go on from where the last one was.
    qsizetype find_zero(qsizetype pos) const;
    // Whether all bytes from pos up to offset limit have arrived and none of them is zero.
    bool string_open(int pos, int limit) const;

    quint8 get_quint8(int &pos) { return _get<quint8>(pos); }
    quint16 get_quint16(int &pos) { return _get<quint16>(pos); }
    quint32 get_quint32(int &pos) { return _get<quint32>(pos); }
    quint32 peek_quint32() const { return _peek<quint32>(0); }
    // Offset of the first four bytes that read as a or b, if it is below limit; else limit, or the
    // first offset without four bytes behind it. The mark is a byte that stands in both values: the
    // rarer it is in the buffer, the faster the search.
    qsizetype find_quint32(quint32 a, quint32 b, char mark, qsizetype limit) const;

    // Drops the first n bytes.
    void skip(qsizetype n)
    {
        require(n);
        m_head += n;
    }

private:
    const char *_front() const { return m_buffer.constData() + m_head; }
    template <typename T>
    T _peek(int pos) const
    {
        require(pos + qsizetype(sizeof(T)));
        return qFromLittleEndian<T>(_front() + pos);
    }
    template <typename T>
    T _get(int &pos)
    {
        const T value = _peek<T>(pos);
        pos += int(sizeof(T));
        return value;
    }

    QByteArray m_buffer;
    qsizetype m_head = 0; // bytes at the front of m_buffer that are consumed

    // No byte of m_buffer from the first offset up to the second is zero. It makes sure that a
    // string whose end has not come is not searched again from its beginning.
    mutable qsizetype m_zeroFreeFrom = 0;
    mutable qsizetype m_zeroFreeTo = 0;
};

inline void cDataSplitter::require(qsizetype n) const
{
    if (n > size())
        throw QString();
}

#endif
