#include "gps/filesaver.h"

cFileSaver::cFileSaver(const QString &fileName, QObject *parent) : QObject(parent)
{
    m_file.setFileName(fileName);
    m_file.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

cFileSaver::~cFileSaver()
{
    m_file.close();
}

void cFileSaver::slot_Data(const QByteArray &a)
{
    // Qt prints a warning for each write to a file that is not open.
    if (m_file.isOpen())
        m_file.write(a.constData(), a.size());
}
