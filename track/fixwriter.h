#ifndef FIXWRITER_H
#define FIXWRITER_H

#include "track/track.h"

#include <QByteArray>
#include <QObject>
#include <QString>

// The base of the writers of fixes, one for each format.
//
// Numbers have a point in every locale and no superfluous decimals; times are UTC. Memory does not
// grow with the track.
class cFixWriter : public QObject
{
    Q_OBJECT

public:
    // Sends the whole file of a finished track, under a title that may hold any characters. Returns
    // false if the file must not be used because a library could not write it.
    virtual bool write(const cTrack &track, const QString &title) = 0;

Q_SIGNALS:
    // Bytes of the file, valid only during the call.
    void signal_Data(const QByteArray &a);

protected:
    explicit cFixWriter(QObject *parent) : QObject(parent) {}

    // Degrees to a tenth of a millimetre on the ground.
    static QByteArray degrees(double value) { return number(value, 9); }
    // A number rounded to so many decimals, 0 to 9.
    static QByteArray number(double value, int decimals = 3);
    // The kind of a fix in the words of GPX; empty if it is not known.
    static QByteArray kind(const FIX_T &fix);
};

#endif
