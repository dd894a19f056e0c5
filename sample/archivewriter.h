// The writing side of the VRK3 container, as plain as the format allows.
//
// Made for the bundled sample, for tests, benchmarks and fuzz seeds. It knows nothing of the
// reader's classes, so that a mistake made in one of the two is not made in the other as well. It
// writes what it is told and checks nothing: archives that no recorder would write are what tests
// are after.
#ifndef ARCHIVEWRITER_H
#define ARCHIVEWRITER_H

#include <QByteArray>
#include <QList>

/// Bits 7 and 6 of a block's flags.
enum FRAGMENT_T { FRAGMENT_MIDDLE = 0, FRAGMENT_LAST = 1, FRAGMENT_FIRST = 2, FRAGMENT_WHOLE = 3 };

/// An entry of the stream table. Texts are UTF-8, without a zero byte at the end.
struct ARCHIVESTREAM_T {
    quint8 id = 0;
    quint8 type = 0; ///< 1, 2, 4, 8 and 16 are streams; 1 has extension heads
    QByteArray textA{};
    QByteArray textB{};
    QByteArray textC{};
};

/// An item of the tag-text section. With a tag outside of 1 to 8 it is a filler byte and the text
/// is left out.
struct ARCHIVETEXT_T {
    quint8 tag = 0;
    QByteArray text{};
};

/// The extension head in front of the first or only fragment of a block of a type 1 stream.
struct ARCHIVEEXTENSION_T {
    quint16 word = 0;
    quint8 byte1 = 0;
    quint8 byte2 = 0;
};

/// Builds an archive record by record in memory. Large archives are written piece by piece: take()
/// what has been built, write it somewhere, and go on.
class cArchiveWriter
{
public:
    /// A HDR record. Its stream table decides from now on which blocks get an extension head. Each
    /// of the two sections must come to at most 65,535 bytes, else its stored length is cut to 16
    /// bits.
    void header(const QByteArray &title, const QList<ARCHIVESTREAM_T> &streams,
                const QList<ARCHIVETEXT_T> &texts = {});

    /// An IDX record, which opens a group of blocks. Only the first 255 bytes of `extra` are
    /// written.
    void index(quint32 word1, quint32 word2, const QByteArray &extra = {});

    /// One block, by default a whole one. Only the first 65,535 bytes of `payload` are written.
    /// `lowFlags` are bits 5 to 0 of the flags. `extension` is written only where the format has
    /// one. A head that reads as a magic (stream 0xB5 and flags 0x05 or 0xB5) has no escape in the
    /// format.
    void block(quint8 streamId, const QByteArray &payload, FRAGMENT_T fragment = FRAGMENT_WHOLE,
               quint8 lowFlags = 0, const ARCHIVEEXTENSION_T &extension = {});

    /// A logical block of any length in consecutive fragments of at most `pieceSize` bytes (1 to
    /// 65,535): always a first and a last one, so an empty payload gives two empty fragments.
    void fragments(quint8 streamId, const QByteArray &payload, qsizetype pieceSize,
                   const ARCHIVEEXTENSION_T &extension = {});

    /// Bytes as they are: noise, damage, records of a kind that the operations above don't write.
    void rawBytes(const QByteArray &bytes);

    /// What has been built since the last take().
    const QByteArray &bytes() const { return m_bytes; }

    /// Hands out what has been built and starts over behind it; the stream table stays in force.
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
