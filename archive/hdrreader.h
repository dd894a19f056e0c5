#ifndef HDRREADER_H
#define HDRREADER_H

#include "archive/datasplitter.h"
#include "archive/vrk3format.h"

#include <QList>

#include <array>

// Reads HDR records and rejects bytes that only look like the start of one. Use one reader for each
// archive.
//
// A magic may occur in noise by chance, or someone may have put it there on purpose, and a string
// after it may never end. Waiting for its end would lose everything that follows. So if a string is
// still open HDR_STRING_LIMIT bytes after the magic's first byte, the bytes are not a record.
//
// Rejecting many such magics is fast, even if all their strings run into the same bytes: the reader
// searches each byte for zeros and tags only once, and it remembers shortcuts along the entries of
// stream tables.
class cHdrReader
{
public:
    enum RESULT_T { RECORD, NO_RECORD, INCOMPLETE };

    // Reads the record at the front of data, which begins with an HDR magic. Consumes nothing.
    // RECORD: hdr is the record, and size its length.
    // NO_RECORD: no record begins at any of the first `size` bytes; size is at least 1.
    // INCOMPLETE: the result depends on bytes that have not arrived. Call again with more.
    RESULT_T read(const cDataSplitter &data, HDR_T &hdr, qsizetype &size);

private:
    void _findLastZeros(const cDataSplitter &data);
    bool _isOpen(const cDataSplitter &data, const HDR_T &hdr, qsizetype &size);
    bool _isTableOpen(const cDataSplitter &data, qint64 tableEnd);

    // All offsets count from the first byte of the archive.

    // The last three zero bytes before m_zerosTo, in ascending order, -1 where there are fewer.
    std::array<qint64, 3> m_zeros = {-1, -1, -1};
    qint64 m_zerosTo = 0;
    // There is no tag between the last zero byte and this offset.
    qint64 m_tag = 0;
    // For an entry of a table, a later one in the same chain of entries. Indexed by the entry's
    // offset modulo TABLE_SIZE; a value that is less than the offset belongs to another entry.
    QList<qint64> m_leadsTo;
    QList<qint64> m_path; // the entries visited for the current table
};

#endif
