#ifndef XMLFIXWRITER_H
#define XMLFIXWRITER_H

#include "track/fixwriter.h"

#include <QXmlStreamWriter>

// The base class of the writers whose formats are XML. It sends the output of an XML writer piece
// by piece.
class cXmlFixWriter : public cFixWriter
{
    Q_OBJECT

protected:
    explicit cXmlFixWriter(QObject *parent);

    QXmlStreamWriter &xml() { return m_xml; }
    // start() begins the root element with its default namespace; end() writes all end tags and
    // returns false if the XML writer has reported an error.
    void start(const QString &root, const QString &space);
    bool end();
    // Write elements and attributes. The text must be ASCII.
    void element(const QString &name, const QByteArray &text);
    void attribute(const QString &name, const QByteArray &text);
    // Writes the element "name", which both GPX and KML have. The title may contain any characters;
    // those that XML cannot express become U+FFFD.
    void name(const QString &title);
    // Sends what has been written so far.
    void send();

private:
    QString m_text; // not sent yet; the XML writer is much faster with a string than with a device
    QString m_value;
    QXmlStreamWriter m_xml;
};

#endif
