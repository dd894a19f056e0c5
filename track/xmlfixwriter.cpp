#include "track/xmlfixwriter.h"

using namespace Qt::StringLiterals;

cXmlFixWriter::cXmlFixWriter(QObject *parent) : cFixWriter(parent), m_xml(&m_text) {}

void cXmlFixWriter::start(const QString &root, const QString &space)
{
    // The XML writer leaves out the encoding when it writes to a string.
    m_text = u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"_s;
    m_xml.writeStartElement(root);
    m_xml.writeDefaultNamespace(space);
}

bool cXmlFixWriter::end()
{
    m_xml.writeEndDocument();
    send();
    return !m_xml.hasError();
}

void cXmlFixWriter::element(const QString &name, const QByteArray &text)
{
    m_value.resize(0);
    m_xml.writeTextElement(name, m_value.append(QLatin1StringView(text)));
}

void cXmlFixWriter::attribute(const QString &name, const QByteArray &text)
{
    m_value.resize(0);
    m_xml.writeAttribute(name, m_value.append(QLatin1StringView(text)));
}

void cXmlFixWriter::name(const QString &title)
{
    QList<uint> codePoints = title.toUcs4(); // which replaces halves of surrogate pairs
    for (uint &c : codePoints) {
        const bool isControl = c < ' ' && c != '\t' && c != '\n' && c != '\r';
        if (isControl || c == 0xFFFE || c == 0xFFFF)
            c = QChar::ReplacementCharacter;
    }
    const auto *const text = reinterpret_cast<const char32_t *>(codePoints.constData());
    m_xml.writeTextElement(u"name"_s, QString::fromUcs4(text, codePoints.size()));
}

void cXmlFixWriter::send()
{
    Q_EMIT signal_Data(m_text.toUtf8());
    m_text.resize(0);
}
