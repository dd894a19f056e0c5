#ifndef TRACKWRITER_H
#define TRACKWRITER_H

#include "gps/nmea.h"
#include "gps/tracktext.h"

#include <QObject>
#include <QString>

// The base class of the track writers: decodes a receiver's text and sends the bytes of a track
// file.
//
// A writer sends its last bytes from its destructor, so the object that receives them must outlive
// it. A derived class sends them from its own destructor, while its members still exist.
class cTrackWriter : public QObject
{
    Q_OBJECT

public:
    // The decoder that reads the text; owned by the writer.
    const cNmea &nmea() const { return m_nmea; }

public Q_SLOTS:
    // Takes a chunk of receiver text, which may end anywhere and need not outlive the call.
    virtual void slot_Data(const QByteArray &a);
    // Takes a numbered text of the archive's header. Keeps the title and ignores all others.
    void slot_Data(int what, const QString &s);

Q_SIGNALS:
    // The next bytes of the file. Valid only during the call.
    void signal_Data(const QByteArray &a);

protected:
    explicit cTrackWriter(QObject *parent);

    QString m_name;    // the last title
    cTrackLine m_line; // the bytes of the next signal

private Q_SLOTS:
    // Takes the next point of the track.
    virtual void _slot_Nmea(const nmea_data &n) = 0;

private:
    cNmea m_nmea;
};

#endif
