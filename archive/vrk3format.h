#ifndef VRK3FORMAT_H
#define VRK3FORMAT_H

#include <QByteArray>
#include <QList>

// The VRK3 format: its numbers, and the records in which the reader hands its contents on.
//
// Integers in a file are unsigned, little-endian and unaligned. A string is a run of non-zero bytes
// closed by one zero byte; the records keep strings with that zero byte, so that a string of n
// characters is an array of n + 1 bytes. All records own their bytes; copies share them implicitly.

// First four bytes of the two records at which a reader can take hold.
inline constexpr quint32 HDR_MAGIC = 0xB505B5B5; // B5 B5 05 B5 in the file
inline constexpr quint32 IDX_MAGIC = 0xB5B5B505; // 05 B5 B5 B5 in the file
// A byte of both magics.
inline constexpr char MAGIC_MARK = 0x05;

// A string of a HDR record that is still open at this offset from the record's first byte makes the
// record bytes that are no record: eight times the size of the largest one.
inline constexpr int HDR_STRING_LIMIT = 1 << 20;

// The title's offset in a HDR record, and the most that the record's two lengths can add up to.
inline constexpr int HDR_TITLE_OFFSET = 8;
inline constexpr int HDR_SIZE_MAX = 2 * 0xFFFF;

// Texts of the tag-text section bear the numbers 1 to TAG_MAX.
inline constexpr int TAG_MAX = 8;

// Values of extByte1 up to this one say that extWord counts modulo EXT_WORD_MODULUS.
inline constexpr int EXT_BYTE_MODULAR = 3;
inline constexpr int EXT_WORD_MODULUS = 3000;

// Kinds of fragment: bits 7 and 6 of a block's flags.
enum {
    FRAG_MIDDLE = 0, // continues an unfinished logical block of its stream
    FRAG_LAST = 1,   // ends one
    FRAG_FIRST = 2,  // opens one; one that is open already is abandoned
    FRAG_WHOLE = 3,  // a logical block by itself
};
inline constexpr int FRAG_SHIFT = 6;

// Stream types. Blocks of any other type cannot be read.
enum {
    STREAM_NONE = 0, // an entry without a stream
    STREAM_EXT = 1,  // first and whole fragments carry an extension head
    STREAM_TYPE_2 = 2,
    STREAM_TYPE_4 = 4,
    STREAM_TYPE_8 = 8,
    STREAM_TYPE_16 = 16,
};

// One entry of the stream table.
struct STREAM_T {
    quint8 id = 0;
    quint8 type = STREAM_NONE;
    QByteArray textA;
    QByteArray textB;
    QByteArray textC;
};

// A whole HDR record.
struct HDR_T {
    quint32 magic = 0;
    qint32 hdrLen = 0; // offset of the tag texts from the record's first byte
    qint32 txtLen = 0; // length of the tag texts
    QByteArray title;
    QList<STREAM_T> streams;
    QList<QByteArray> texts; // TAG_MAX + 1 entries, indexed by tag; entry 0 is empty
};

// A whole IDX record. It opens a group of blocks.
struct IDX_T {
    quint32 magic = 0;
    quint32 word1 = 0;
    quint32 word2 = 0;
    QByteArray extra;
};

// One logical block, joined from its fragments if it had several. The extension head is that of its
// first fragment, with extWord reduced already; it is 0 where there is none.
struct DATA_T {
    qint64 size = 0;  // bytes in payload
    quint8 flags = 0; // a joined block reads as FRAG_WHOLE, with the low bits of its last fragment
    quint8 streamId = 0;
    quint16 extWord = 0;
    quint8 extByte1 = 0;
    quint8 extByte2 = 0;
    STREAM_T stream; // the stream table's entry of streamId
    QByteArray payload;
};

#endif
