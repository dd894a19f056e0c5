// A simple writer of VRK3 archives for the bundled sample, tests, benchmarks and fuzz seeds.
//
// It does not use the reader's classes, so that a mistake in one is not repeated in the other. It
// checks nothing: tests need archives that no recorder would write.
#ifndef ARCHIVEWRITER_H
#define ARCHIVEWRITER_H

#include <QByteArray>
#include <QList>

// Bits 7 and 6 of a block's flags.
enum FRAGMENT_T { FRAGMENT_MIDDLE = 0, FRAGMENT_LAST = 1, FRAGMENT_FIRST = 2, FRAGMENT_WHOLE = 3 };

// An entry of the stream table. Texts are UTF-8 without a closing zero byte.
struct ARCHIVESTREAM_T {
    quint8 id = 0;
    quint8 type = 0; // 1, 2, 4, 8 or 16; blocks of type 1 have extension heads
    QByteArray textA{};
    QByteArray textB{};
    QByteArray textC{};
};

// An item of the tag texts. A tag other than 1 to 8 is written as a filler byte without the text.
struct ARCHIVETEXT_T {
    quint8 tag = 0;
    QByteArray text{};
};

// The extension head of the first or only fragment of a logical block. Only streams of type 1 have
// one.
struct ARCHIVEEXTENSION_T {
    quint16 word = 0;
    quint8 byte1 = 0;
    quint8 byte2 = 0;
};

// Builds an archive in memory, record by record. To write a large archive, call take() from time to
// time and store the result.
class cArchiveWriter
{
public:
    // Appends an HDR record. Its stream table decides which of the following blocks have an
    // extension head. The record up to the tag texts, and the tag texts, must each be at most
    // 65,535 bytes long; otherwise only the lower 16 bits of the length are written.
    void header(const QByteArray &title, const QList<ARCHIVESTREAM_T> &streams,
                const QList<ARCHIVETEXT_T> &texts = {});

    // Appends an IDX record, which begins a group of blocks. Only the first 255 bytes of `extra`
    // are written.
    void index(quint32 word1, quint32 word2, const QByteArray &extra = {});

    // Appends one block. Only the first 65,535 bytes of `payload` are written. `lowFlags` are bits
    // 5 to 0 of the flags. `extension` is written only if the block has an extension head. Two
    // heads of stream 0xB5 read as a magic; they are written anyway.
    void block(quint8 streamId, const QByteArray &payload, FRAGMENT_T fragment = FRAGMENT_WHOLE,
               quint8 lowFlags = 0, const ARCHIVEEXTENSION_T &extension = {});

    // Appends a logical block of any length in fragments of at most `pieceSize` bytes (1 to
    // 65,535). There is always a first and a last fragment, even if both are empty.
    void fragments(quint8 streamId, const QByteArray &payload, qsizetype pieceSize,
                   const ARCHIVEEXTENSION_T &extension = {});

    // Appends bytes unchanged: noise, damage, or records that the other functions cannot write.
    void rawBytes(const QByteArray &bytes);

    // Everything appended since the last call of take().
    const QByteArray &bytes() const { return m_bytes; }

    // Returns bytes() and clears them. The stream table remains valid.
    QByteArray take();

private:
    void _u8(quint32 value);
    void _u16(quint32 value);
    void _u32(quint32 value);
    void _string(const QByteArray &text);
    bool _hasExtension(quint8 streamId) const;

    QByteArray m_bytes;
    QList<ARCHIVESTREAM_T> m_streams;
};

#endif
