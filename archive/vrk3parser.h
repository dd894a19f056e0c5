#ifndef VRK3PARSER_H
#define VRK3PARSER_H

#include "archive/datasplitter.h"
#include "archive/hdrreader.h"
#include "archive/vrk3format.h"

#include <QMap>
#include <QObject>

#include <array>

// A run of consecutive input bytes.
struct STRETCH_T {
    qint64 offset = 0; // of the first byte, counted from the first byte received
    qint64 length = 0;
};

// How the bytes that a parser received were used. The sums from `received` to `buffered` are in
// bytes. Each byte is counted in exactly one of the sums from `scanned` to `buffered`, so they add
// up to `received`.
struct ACCOUNT_T {
    qint64 received = 0;
    qint64 scanned = 0;    // skipped while searching for a record
    qint64 hdr = 0;        // HDR records
    qint64 idx = 0;        // IDX records
    qint64 heads = 0;      // heads of blocks, including extension heads
    qint64 delivered = 0;  // payload of complete logical blocks
    qint64 lost = 0;       // payload of fragments that never became part of a logical block
    qint64 unfinished = 0; // payload of logical blocks whose last fragment has not arrived
    qint64 buffered = 0;   // bytes of an incomplete record, and bytes not yet examined

    qint64 stretchCount = 0;     // number of runs of skipped bytes
    QList<STRETCH_T> stretches;  // the first STRETCH_MAX of them
    qint64 lostBlocks = 0;       // logical blocks abandoned, and fragments without a first fragment
    qint64 unfinishedBlocks = 0; // logical blocks whose last fragment has not arrived
};

// Turns the bytes of a VRK3 archive into records as they arrive.
//
// Pass the archive to slot_Data from its first byte on, in chunks of any size; the size does not
// affect the result. Each record is emitted as soon as it is complete, in the order of the file.
// The fragments of a logical block are joined. Bytes it cannot interpret are skipped silently; no
// input is an error. No call is needed at the end of the input: an incomplete record is discarded
// when the parser is destroyed.
//
// A record passed by a signal is valid only during the call. A slot connected to it must not call
// slot_Data.
class cVrk3Parser : public QObject
{
    Q_OBJECT

public:
    explicit cVrk3Parser(QObject *parent = nullptr);

    // Limits signal_Data(DATA_T) to blocks of the stream with this id and type; -1 means any of
    // them. The payload of other streams is then neither copied nor kept; everything else,
    // including the account, stays the same. Call this before the first byte.
    void deliverOnly(int id, int type);

    // How many runs of skipped bytes the account lists.
    static constexpr int STRETCH_MAX = 16;
    ACCOUNT_T account() const;
    // During signal_Data(DATA_T): the offset of the head of the block's first fragment, counted
    // from the first byte received.
    qint64 blockOffset() const { return m_blockOffset; }

public Q_SLOTS:
    // Takes the next bytes of the archive. They need not outlive the call.
    void slot_Data(const QByteArray &a);

Q_SIGNALS:
    void signal_Data(const HDR_T &hdr);
    void signal_Data(const IDX_T &idx);
    void signal_Data(const DATA_T &d);

private:
    enum { STATE_HDR, STATE_IDX, STATE_BLOCK };

    void _parse();
    void _parseHDR();
    void _parseHDRIDX();
    void _parseHDRIDXBLOCK();
    bool _completeBlock(DATA_T &d);
    STREAM_T _lookupStream(unsigned char id) const;

    void _skipBlock();
    quint32 _scan(quint32 a, quint32 b);
    void _drop(qsizetype n);
    void _lose(const DATA_T &unfinished);

    HDR_T m_hdr;
    IDX_T m_idx;
    QMap<unsigned char, DATA_T> m_blocks;
    int m_state = STATE_HDR;
    cDataSplitter m_data;

    cHdrReader m_hdrReader;
    bool m_isWaiting = false; // for more bytes of an HDR record

    // Index of each id's first entry in m_hdr.streams, -1 if it has none.
    std::array<int, 256> m_entryOf;
    // The current block. It keeps its memory and its stream from one block to the next.
    DATA_T m_block;
    qint64 m_blockOffset = 0; // of its first fragment
    // Offset of the most recent first fragment of each stream.
    std::array<qint64, 256> m_firstOffset = {};
    // The id and the type of the stream to deliver; -1 means any.
    int m_onlyId = -1;
    int m_onlyType = -1;
    // The current or last block of another stream. Its payload is always empty.
    DATA_T m_skipped;
    int m_skippedHead = 0;    // size of its head
    qsizetype m_skipLeft = 0; // bytes of it, head included, that have not been skipped
    ACCOUNT_T m_account;
    qint64 m_stretchEnd = 0; // offset after the last byte that was skipped
};

#endif
