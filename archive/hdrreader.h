#ifndef HDRREADER_H
#define HDRREADER_H

#include "archive/datasplitter.h"
#include "archive/vrk3format.h"

#include <QList>

#include <array>

// Reads HDR records and rejects bytes that only begin like one.
//
// A chance magic in noise, or one made to do harm, may open a string that never ends. Waiting for
// the end would lose everything that follows. So a string that is still open HDR_STRING_LIMIT bytes
// after the magic's first byte means that the bytes are not a record.
//
// Inputs full of such magics are not slow. The search for zero bytes and for tags passes each byte
// once, and a table entry is visited once, however many magics lead to it.
class cHdrReader
{
public:
    // Reads the record at the front of data, where a HDR magic is. If it is a record, fills hdr,
    // sets size to the record's length and returns true. If not, returns false: no record begins
    // at the first `size` bytes, of which there is at least one. hdr is then undefined.
    //
    // Throws an empty QString if that depends on bytes that have not arrived. data may then only be
    // appended to before the next call.
    bool read(const cDataSplitter &data, HDR_T &hdr, qsizetype &size);

private:
    void _requireOpenString(const cDataSplitter &data);
    QByteArray _string(const cDataSplitter &data, int &pos);
    void _findLastZeros(const cDataSplitter &data);
    qsizetype _openTitles(const cDataSplitter &data);
    bool _overruns(const cDataSplitter &data, const HDR_T &hdr);
    bool _tableOverruns(const cDataSplitter &data, qint64 tableEnd);

    // All offsets below count from the first byte of the archive.

    // A zero byte is needed at or after this offset before the record can be read, 0 if none is.
    qint64 m_openString = 0;
    // The last three zero bytes before m_zerosTo, the last one at the end. Entries are -1 if there
    // were fewer.
    std::array<qint64, 3> m_zeros = {-1, -1, -1};
    qint64 m_zerosTo = 0;
    // No tag lies between the last zero byte and this offset.
    qint64 m_tag = 0;
    // For entries that lead to one that overran: the overrunning entry's offset. Entry offsets are
    // taken modulo the size; a value below the entry's own offset belongs to another entry.
    QList<qint64> m_leadsTo;
    QList<qint64> m_path;
};

#endif
