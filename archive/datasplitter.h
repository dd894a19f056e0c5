#ifndef DATASPLITTER_H
#define DATASPLITTER_H

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QtEndian>

// A byte buffer. Input is appended in chunks of any size; typed fields are read from the front.
//
// Offsets count from the oldest byte that has not been consumed. A cursor is an int that the caller
// owns: the get_ operations that take one advance it and consume nothing. Only skip, get_block(int)
// and get_string() consume bytes. Everything returned is an independent copy, except bytes().
//
// A read past the end of the buffer throws an empty QString and changes nothing, so the caller can
// repeat it after more bytes have been appended. Nothing else is ever thrown. Offsets and lengths
// must not be negative.
class cDataSplitter
{
public:
    virtual ~cDataSplitter() = default;

    // Appends a copy of the bytes of a.
    void append(const QByteArray &a);
    // Appends bytes of a, starting at pos, and returns the offset after the last one appended. If
    // all bytes that came before `a` have been consumed, appends the rest of `a` without a copy and
    // reads it in place. Otherwise copies at least the bytes that the last failed read lacked. To
    // append a whole array, start with pos 0, read, and repeat with the returned offset until it is
    // a.size(). Then call release().
    qsizetype append(const QByteArray &a, qsizetype pos);
    // Copies the unread bytes of an array that is read in place. Without this call, the array's
    // owner would copy the whole array when changing it.
    void release();

    // Number of bytes in the buffer.
    qsizetype size() const { return m_size; }
    // Number of bytes consumed so far.
    qint64 offset() const { return m_offset; }
    // The bytes in the buffer. Valid until the next call that is not const.
    QByteArrayView bytes() const { return {m_front, m_size}; }
    // Throws unless the buffer holds at least n bytes.
    void require(qsizetype n) const;

    // Blocks of len bytes.
    QByteArray peek_block(int pos, int len) const;
    QByteArray get_block(int &pos, int len) const;
    // The same, but replaces the contents of block. Its memory is reused unless it is shared.
    void get_block(int &pos, int len, QByteArray &block) const;
    QByteArray peek_block(int len) const { return peek_block(0, len); }
    QByteArray get_block(int len);

    // Strings include their closing zero byte.
    QByteArray peek_string(int pos) const;
    QByteArray get_string(int &pos) const;
    QByteArray peek_string() const { return peek_string(0); }
    QByteArray get_string();

    // Integers, least significant byte first.
    quint8 get_quint8(int &pos) const { return _get<quint8>(pos); }
    quint16 get_quint16(int &pos) const { return _get<quint16>(pos); }
    quint32 get_quint32(int &pos) const { return _get<quint32>(pos); }
    quint32 peek_quint32() const { return _peek<quint32>(0); }
    // Returns the first offset below limit at which four bytes read as a or b. If there is none,
    // returns limit or the first offset with fewer than four bytes left, whichever is less. `mark`
    // is two consecutive bytes that occur in both values, as a little-endian number. The search is
    // fastest where they do not occur.
    qsizetype find_quint32(quint32 a, quint32 b, quint16 mark, qsizetype limit) const;

    // Consumes the first n bytes.
    void skip(qsizetype n)
    {
        require(n);
        m_front += n;
        m_size -= n;
        m_offset += n;
    }

private:
    void _append(QByteArrayView bytes);
    template <typename T>
    T _peek(int pos) const
    {
        require(pos + qsizetype(sizeof(T)));
        return qFromLittleEndian<T>(m_front + pos);
    }
    template <typename T>
    T _get(int &pos) const
    {
        const T value = _peek<T>(pos);
        pos += int(sizeof(T));
        return value;
    }

    QByteArray m_buffer;              // may share the memory of an array that is read in place
    const char *m_front = nullptr;    // the first byte in m_buffer that has not been consumed
    qsizetype m_size = 0;             // bytes in m_buffer from there on
    qint64 m_offset = 0;              // bytes consumed in all
    mutable qsizetype m_required = 0; // bytes that the last failed read needed
};

inline void cDataSplitter::require(qsizetype n) const
{
    if (n > size()) {
        m_required = n;
        throw QString();
    }
}

#endif
