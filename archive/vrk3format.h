#ifndef VRK3FORMAT_H
#define VRK3FORMAT_H

#include <QByteArray>
#include <QList>

// The constants of the VRK3 format, and the records that the parser emits. docs/vrk3-format.md
// describes the format.
//
// A string is a run of non-zero bytes followed by one zero byte. The records keep the zero byte, so
// a string of n characters is an array of n + 1 bytes. A copy of a record shares its bytes.

// The first four bytes of HDR and IDX records.
inline constexpr quint32 HDR_MAGIC = 0xB505B5B5; // B5 B5 05 B5 in the file
inline constexpr quint32 IDX_MAGIC = 0xB5B5B505; // 05 B5 B5 B5 in the file
// Bytes 05 B5, which occur in both magics.
inline constexpr quint16 MAGIC_MARK = 0xB505;
inline constexpr qsizetype MAGIC_SIZE = 4;

// If a string of an HDR record is still open at this offset from the record's first byte, the bytes
// are not a record. The value is the size of the largest record.
inline constexpr int HDR_STRING_LIMIT = 2 * 0xFFFF;

// Size of an IDX record without extra bytes.
inline constexpr qsizetype IDX_SIZE = 13;

// Size of the head of a block, without and with an extension.
inline constexpr qsizetype HEAD_SIZE = 4;
inline constexpr qsizetype EXT_HEAD_SIZE = 8;
// Bytes of payload in the largest block.
inline constexpr qsizetype MAX_PAYLOAD = 0xFFFF;

// Offset of the title in an HDR record.
inline constexpr int HDR_TITLE_OFFSET = 8;

// Tag texts are numbered from 1 to TAG_MAX.
inline constexpr int TAG_MAX = 8;

// If extByte1 is at most EXT_BYTE_MODULAR, extWord is taken modulo EXT_WORD_MODULUS.
inline constexpr int EXT_BYTE_MODULAR = 3;
inline constexpr int EXT_WORD_MODULUS = 3000;

// Fragment kinds: bits 7 and 6 of a block's flags.
enum {
    FRAG_MIDDLE = 0, // continues the unfinished logical block of its stream
    FRAG_LAST = 1,   // ends it
    FRAG_FIRST = 2,  // begins one; an unfinished one is abandoned
    FRAG_WHOLE = 3,  // is a whole logical block
};
inline constexpr int FRAG_SHIFT = 6;

// Stream types. Blocks of other types cannot be read.
enum {
    STREAM_NONE = 0, // the entry is not a stream
    STREAM_EXT = 1,  // first and whole fragments have an extension head
    STREAM_TYPE_2 = 2,
    STREAM_TYPE_4 = 4,
    STREAM_TYPE_8 = 8,
    STREAM_TYPE_16 = 16,
};
inline bool isStreamType(int type)
{
    return type == STREAM_EXT || type == STREAM_TYPE_2 || type == STREAM_TYPE_4 ||
           type == STREAM_TYPE_8 || type == STREAM_TYPE_16;
}

// One entry of the stream table.
struct STREAM_T {
    quint8 id = 0;
    quint8 type = STREAM_NONE;
    QByteArray textA;
    QByteArray textB;
    QByteArray textC;
};

// An HDR record.
struct HDR_T {
    quint32 magic = 0;
    qint32 hdrLen = 0; // offset of the tag texts from the record's first byte
    qint32 txtLen = 0; // length of the tag texts
    QByteArray title;
    QList<STREAM_T> streams;
    QList<QByteArray> texts; // TAG_MAX + 1 entries, indexed by tag; entry 0 is empty
};

// An IDX record. It begins a group of blocks.
struct IDX_T {
    quint32 magic = 0;
    quint32 word1 = 0;
    quint32 word2 = 0;
    QByteArray extra;
};

// A logical block, joined from its fragments if it had several. The extension fields are those of
// its first fragment, with extWord already reduced; they are 0 if there was no extension head.
struct DATA_T {
    qint64 size = 0;  // bytes in payload
    quint8 flags = 0; // of a joined block: FRAG_WHOLE, and the low bits of its last fragment
    quint8 streamId = 0;
    quint16 extWord = 0;
    quint8 extByte1 = 0;
    quint8 extByte2 = 0;
    STREAM_T stream; // the table's entry for streamId
    QByteArray payload;
};

#endif
