#ifndef VRK3PARSER_H
#define VRK3PARSER_H

#include "archive/datasplitter.h"
#include "archive/vrk3format.h"

#include <QMap>
#include <QObject>

#include <array>

// A run of input bytes.
struct STRETCH_T {
    qint64 offset = 0; // of the first byte, counted from the first byte received
    qint64 length = 0;
};

// Where the bytes that a parser received have gone. Each is in exactly one of the sums from
// `scanned` to `buffered`, which add up to `received`.
struct ACCOUNT_T {
    qint64 received = 0;
    qint64 scanned = 0;    // dropped in the search for a record
    qint64 hdr = 0;        // HDR records
    qint64 idx = 0;        // IDX records
    qint64 heads = 0;      // heads of blocks, extension heads included
    qint64 delivered = 0;  // payload of the logical blocks that were emitted
    qint64 lost = 0;       // payload of fragments that came to nothing
    qint64 unfinished = 0; // payload of logical blocks that wait for their end
    qint64 buffered = 0;   // bytes of a record that is not complete, and bytes not yet looked at

    qint64 stretchCount = 0;    // runs of bytes that `scanned` is made of
    QList<STRETCH_T> stretches; // the first STRETCH_MAX of them
    qint64 lostBlocks = 0;      // logical blocks that were begun and came to nothing, and fragments
                                // that had nothing to join
    qint64 unfinishedBlocks = 0; // logical blocks that wait for their end
};

// Turns the bytes of a VRK3 archive into records, as they arrive.
//
// Feed it through slot_Data from the archive's first byte on; where the chunks end does not matter.
// Each whole record is emitted at once, in the order of the file; the fragments of logical blocks
// are joined on the way. What cannot be placed is skipped without a word: no input is an error.
// There is no end of input to announce: what is incomplete when the parser is destroyed is dropped.
//
// A record that a signal carries is good for the length of the call. A receiver must not feed the
// parser from within a signal.
class cVrk3Parser : public QObject
{
    Q_OBJECT

public:
    explicit cVrk3Parser(QObject *parent = nullptr);

    // Stretches that the account lists one by one.
    static constexpr int STRETCH_MAX = 16;
    ACCOUNT_T account() const;

public Q_SLOTS:
    // Takes the next bytes of the archive, any number of them. They are not needed behind the call.
    void slot_Data(const QByteArray &a);

Q_SIGNALS:
    void signal_Data(const HDR_T &hdr);
    void signal_Data(const IDX_T &idx);
    void signal_Data(const DATA_T &d);

private:
    enum { STATE_HDR, STATE_IDX, STATE_BLOCK };

    void _parseHDR();
    void _parseHDRIDX();
    void _parseHDRIDXBLOCK();
    bool _completeBlock(DATA_T &d);
    STREAM_T _lookupStream(unsigned char id) const;

    bool _readHDR(HDR_T &hdr, int &pos);
    bool _readString(int &pos, QByteArray &string);
    void _rememberOpenRun(int pos);
    bool _reachesOpenRun(int hdrLen, int end);
    void _refuseHDR();
    void _acceptHDR(HDR_T &&hdr);
    quint32 _scan(quint32 a, quint32 b);
    void _drop(qsizetype n);
    void _lose(const DATA_T &unfinished);

    HDR_T m_hdr;
    IDX_T m_idx;
    QMap<unsigned char, DATA_T> m_blocks;
    int m_state = STATE_HDR;
    cDataSplitter m_data;

    // Number of each id's first entry in m_hdr.streams, -1 for an id that is not there.
    std::array<int, 256> m_entryOf;
    // Offset of the string that _parseHDR last waited for, 0 for none: until it ends there is no
    // point in reading the record again.
    int m_openString = 0;
    // A run of non-zero bytes that refused a record: its first byte, the first byte behind it as
    // far as is known, and its first tag. All offsets count from the first byte received.
    struct RUN_T {
        qint64 from = 0;
        qint64 to = 0;
        qint64 tag = 0;
    };
    RUN_T m_openRun;
    // The block at hand. It keeps its memory and its stream from one block to the next.
    DATA_T m_block;
    ACCOUNT_T m_account;
    qint64 m_stretchEnd = 0; // offset behind the last byte that was scanned over
};

#endif
