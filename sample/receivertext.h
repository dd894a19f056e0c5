// Text as a GPS receiver sends it, made up: NMEA sentences with the right checksum, and an endless
// drive through a town. Integer arithmetic throughout, so that the text is the same on every
// machine.
#ifndef RECEIVERTEXT_H
#define RECEIVERTEXT_H

#include <QByteArray>
#include <QDate>

/// The sentence whose text between "$" and "*" is `body`, with its checksum, CR and LF.
QByteArray nmeaSentence(const QByteArray &body);

/// A receiver in a car, one second after the other, from 23 March 2011, 12:01:07 UTC. The drive
/// never ends and goes on over midnight.
class cReceiverText
{
public:
    cReceiverText();

    /// The next second's text: GPRMC and GPGGA, and in every second second a GPGSV, which no
    /// decoder here knows: of five sentences one is unknown.
    QByteArray second();

    /// The sentences of the second that the last call of second() gave, the first second's at
    /// start.
    QByteArray gprmc() const;
    QByteArray gpgga() const;
    QByteArray gpgsv() const;

    /// Without sky in sight the status of GPRMC is "V" and GPGGA stands for no fix, while the car
    /// goes on. True at start.
    void setSky(bool inSight) { m_sky = inSight; }

private:
    void _drive();
    QByteArray _time() const;
    QByteArray _position() const;

    bool m_sky = true;
    bool m_started = false;
    qint64 m_second = 0; ///< since the drive began
    QDate m_date;
    int m_timeOfDay = 0; ///< in seconds
    qint64 m_lat = 0;    ///< in millionths of a minute of arc, north positive
    qint64 m_lon = 0;    ///< the same, east positive
    int m_altitude = 0;  ///< in tenths of a metre
    int m_speed = 0;     ///< in tenths of a knot
    int m_course = 0;    ///< in tenths of a degree
};

/// At least `size` bytes of the drive, up to the end of the second in which they are reached.
QByteArray receiverText(qsizetype size);

#endif
