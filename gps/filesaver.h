#ifndef FILESAVER_H
#define FILESAVER_H

#include <QFile>
#include <QObject>

// The end of the chain: writes the bytes it receives to a file, in the order of arrival.
//
// The constructor creates the file or truncates an existing one; the destructor closes it. Failures
// are not reported: bytes that cannot be written are lost.
class cFileSaver : public QObject
{
    Q_OBJECT

public:
    explicit cFileSaver(const QString &fileName, QObject *parent = nullptr);
    ~cFileSaver() override;

public Q_SLOTS:
    // Writes the bytes, which need not outlive the call.
    void slot_Data(const QByteArray &a);

private:
    QFile m_file;
};

#endif
