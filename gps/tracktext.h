#ifndef TRACKTEXT_H
#define TRACKTEXT_H

#include "gps/nmea.h"

#include <QByteArray>
#include <QByteArrayView>

#include <cstring>

// What the writers of tracks share: the text of numbers and times. All of it is, byte for byte,
// what QString::arg and QDateTime::toString give, without an allocation or a look-up of the time
// zone for each point.

// Seconds since 1970 of a fix, to the nearest whole one, a fraction of .5 upwards. What no 64-bit
// number can hold becomes the nearest that can; not-a-number becomes 0.
qint64 nearestSecond(const nmea_data &n);

// Tells the local time of instants that follow one another closely.
class cLocalClock
{
public:
    struct CIVIL {
        int year = 0; // 1 to 9999
        int month = 0;
        int day = 0;
        int hour = 0;
        int minute = 0;
        int second = 0;
    };

    // The local date and time of an instant in seconds since 1970; null where the year does not
    // have one to four digits. Good until the next call.
    const CIVIL *civil(qint64 second);

private:
    void _findOffset(qint64 second);

    qint64 m_from = 0;   // from this second on,
    qint64 m_to = 0;     // up to but without this one, local time is
    qint64 m_offset = 0; // so many seconds ahead of UTC
    qint64 m_day = 0;    // the day, counted from 1970, that m_civil's date is of
    CIVIL m_civil{1970, 1, 1};
};

// Bytes of output, put together piece by piece in memory that is used again for the next line.
class cTrackLine
{
public:
    // Empties the line.
    cTrackLine &begin();
    cTrackLine &text(QByteArrayView bytes)
    {
        if (!bytes.isEmpty())
            std::memcpy(_room(bytes.size()), bytes.data(), size_t(bytes.size()));
        m_length += bytes.size();
        return *this;
    }
    // A number with so many decimals, 1 or 6, and a point; filled with blanks on the left up to
    // width, which is at most 8, with one decimal 3.
    cTrackLine &number(double value, int width, int decimals);
    // A number from 0 to 9999 in at least so many digits, up to 4, with zeros in front.
    cTrackLine &digits(int value, int count);

    // Ends the line. Good until the next begin, which has to come ahead of the next piece.
    const QByteArray &bytes();

private:
    // Where the next n bytes go.
    char *_room(qsizetype n)
    {
        if (m_length + n > m_space)
            _grow(n);
        return m_begin + m_length;
    }
    void _grow(qsizetype n);

    QByteArray m_bytes;
    char *m_begin = nullptr; // the bytes of m_bytes,
    qsizetype m_space = 0;   // so many,
    qsizetype m_length = 0;  // of which so many are written
};

#endif
