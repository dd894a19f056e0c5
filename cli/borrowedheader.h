#ifndef BORROWEDHEADER_H
#define BORROWEDHEADER_H

#include <QByteArray>
#include <QString>

#include <array>

// The header of one archive, for reading others whose own header is missing. Archives of the same
// recorder have the same stream table.
//
// Such an archive usually begins in the middle of a group, often in the middle of a block. A parser
// that has only the header would skip everything up to the next IDX record. So this class also
// looks for the first block: a place from which one block follows another up to the next record.
class cBorrowedHeader
{
public:
    // Reads the first header of an archive. Returns an error message, empty on success.
    QString read(const QString &archive);

    // What a parser must receive in place of the first bytes of an archive.
    struct LEAD_T {
        // An HDR record. If a block was found, also an IDX record and perhaps the head of a block.
        QByteArray bytes;
        // How many of these bytes belong to each.
        qsizetype hdr = 0;
        qsizetype idx = 0;
        qsizetype heads = 0;
        qsizetype skipped = 0; // bytes of the archive to leave out
    };
    // Takes the first LOOKAHEAD bytes of the archive, or the whole archive if it is shorter. Call
    // this only after read() has succeeded.
    LEAD_T lead(const QByteArray &start) const;

    static constexpr qsizetype LOOKAHEAD = 1 << 20;

private:
    struct BLOCK_T {
        quint8 id = 0;
        int kind = 0;
        qsizetype size = 0; // of the payload
        qsizetype end = 0;  // offset after the last byte
    };
    BLOCK_T _blockAt(const QByteArray &start, qsizetype pos) const;
    qsizetype _firstBlock(const QByteArray &start) const;
    bool _continuesText(const QByteArray &start, qsizetype pos) const;

    QByteArray m_record; // without the title, which is that of another recording
    std::array<quint8, 256> m_types = {};
};

#endif
