#ifndef FILESAVER_H
#define FILESAVER_H

#include <QFile>
#include <QObject>

// The end of the chain: writes whatever arrives into one file, in the order of arrival.
//
// The file is made, or cut to nothing if it exists, by the constructor, and closed by the
// destructor. No failure is told: what cannot be opened or written is lost.
class cFileSaver : public QObject
{
    Q_OBJECT

public:
    explicit cFileSaver(const QString &fileName, QObject *parent = nullptr);
    ~cFileSaver() override;

public Q_SLOTS:
    // The bytes are not needed behind the call.
    void slot_Data(const QByteArray &a);

private:
    QFile m_file;
};

#endif
