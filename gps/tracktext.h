#ifndef TRACKTEXT_H
#define TRACKTEXT_H

#include "gps/nmea.h"

#include <QByteArray>
#include <QByteArrayView>

#include <cstring>
#include <optional>

// Formats numbers and times for the track writers, with the same digits as Qt, but faster.

// Returns the time of a fix in seconds since 1970, rounded to the nearest second, halves up. Times
// beyond the range of qint64 become its minimum or maximum; not-a-number becomes 0.
qint64 nearestSecond(const nmea_data &n);

struct CIVIL_T {
    int year = 0; // 1 to 9999
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// Converts seconds since 1970 to local time. Empty outside the years 1 to 9999, and within a day of
// their limits. With QDateTime, conversion to GPX takes nearly twice as long.
std::optional<CIVIL_T> localTime(qint64 second);

// Builds a line of output. The memory is reused for the next line.
class cTrackLine
{
public:
    // Starts an empty line. The other operations append to it.
    cTrackLine &begin();
    cTrackLine &text(QByteArrayView bytes)
    {
        if (!bytes.isEmpty())
            std::memcpy(_room(bytes.size()), bytes.data(), size_t(bytes.size()));
        m_length += bytes.size();
        return *this;
    }
    // Appends a number with 1 or 6 decimals, padded with spaces on the left to width. The width
    // must be at most 3 with one decimal and 8 with six. Infinity and not-a-number become "inf" and
    // "nan".
    cTrackLine &number(double value, int width, int decimals);
    // Appends a number with exactly count digits, padded with zeros on the left. It must be at
    // least 0 and have no more digits than that.
    cTrackLine &digits(int value, int count);

    // Ends the line and returns it. Valid until the next begin(). Call begin() before you append
    // anything else.
    const QByteArray &bytes();

private:
    // Returns the place for the next n bytes.
    char *_room(qsizetype n)
    {
        if (m_length + n > m_space)
            _grow(n);
        return m_begin + m_length;
    }
    void _grow(qsizetype n);
    cTrackLine &_number(double value, int decimals);

    QByteArray m_bytes;
    // m_bytes.data() and m_bytes.size(), without data()'s check for shared memory.
    char *m_begin = nullptr;
    qsizetype m_space = 0;
    qsizetype m_length = 0; // bytes written
};

#endif
