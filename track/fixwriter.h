#ifndef FIXWRITER_H
#define FIXWRITER_H

#include "track/track.h"

#include <QByteArray>
#include <QObject>
#include <QString>

// The base class of the track writers. Each derived class writes a cTrack in one format.
//
// Numbers have a decimal point in every locale and no trailing zeros; times are UTC. Memory does
// not grow with the track.
class cFixWriter : public QObject
{
    Q_OBJECT

public:
    // Sends the whole file for a finished track. The title may contain any characters. Returns
    // false if the file could not be written; the bytes sent must then not be used.
    virtual bool write(const cTrack &track, const QString &title) = 0;

Q_SIGNALS:
    // Bytes of the file, valid only during the call.
    void signal_Data(const QByteArray &a);

protected:
    explicit cFixWriter(QObject *parent) : QObject(parent) {}

    // Formats degrees, exact to a tenth of a millimetre on the ground.
    static QByteArray degrees(double value) { return number(value, 9); }
    // Formats a finite number, rounded to at most this many decimals (0 to 9), without trailing
    // zeros.
    static QByteArray number(double value, int decimals = 3);
    // Returns the kind of a fix as GPX names it; empty if it is not known.
    static QByteArray kind(const FIX_T &fix);
};

#endif
