// Generates the output of a GPS receiver: NMEA sentences of an endless drive through a town.
// All arithmetic is on integers, so the text is the same on every machine.
#ifndef RECEIVERTEXT_H
#define RECEIVERTEXT_H

#include <QByteArray>
#include <QDate>

// Returns the sentence with `body` between "$" and "*", including the checksum, CR and LF.
QByteArray nmeaSentence(const QByteArray &body);

// A receiver in a car that starts on 23 March 2011, 12:01:07 UTC. The drive never ends and
// continues past midnight.
class cReceiverText
{
public:
    cReceiverText();

    // Advances by one second and returns its text: GPRMC, GPGGA and, every other second, GPGSV. The
    // first call returns the text of the start.
    QByteArray second();

    // Single sentences of the current second.
    QByteArray gprmc() const;
    QByteArray gpgga() const;
    QByteArray gpgsv() const;

    // Sets whether the receiver sees satellites. True by default. If false, the status in GPRMC is
    // "V" and GPGGA has no position. The car moves in both cases.
    void setSky(bool inSight) { m_sky = inSight; }

private:
    void _drive();
    QByteArray _time() const;
    QByteArray _position() const;

    bool m_sky = true;
    bool m_started = false;
    qint64 m_second = 0; // since the start
    QDate m_date;
    int m_timeOfDay = 0; // in seconds
    qint64 m_lat = 0;    // in millionths of a minute of arc, north positive
    qint64 m_lon = 0;    // the same, east positive
    int m_altitude = 0;  // in tenths of a metre
    int m_speed = 0;     // in tenths of a knot
    int m_course = 0;    // in tenths of a degree
};

// Returns at least `size` bytes of text from the start of the drive, in whole seconds.
QByteArray receiverText(qsizetype size);

#endif
