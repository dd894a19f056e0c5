#ifndef XMLFIXWRITER_H
#define XMLFIXWRITER_H

#include "track/fixwriter.h"

#include <QXmlStreamWriter>

// The base of the writers of XML: an XML writer whose output is sent piece by piece.
class cXmlFixWriter : public cFixWriter
{
    Q_OBJECT

protected:
    explicit cXmlFixWriter(QObject *parent);

    QXmlStreamWriter &xml() { return m_xml; }
    // The first and the last step: the root element with its namespace, and all end tags. end()
    // returns false if the XML writer met an error.
    void start(const QString &root, const QString &space);
    bool end();
    // Elements and attributes with text in plain ASCII.
    void element(const QString &name, const QByteArray &text);
    void attribute(const QString &name, const QByteArray &text);
    // The element "name", which both formats have, with a title of any characters: those that XML
    // cannot express are replaced.
    void name(const QString &title);
    // Sends what has been written so far.
    void send();

private:
    QString m_text; // not sent yet; the XML writer is much faster with a string than with a device
    QString m_value;
    QXmlStreamWriter m_xml;
};

#endif
