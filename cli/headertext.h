#ifndef HEADERTEXT_H
#define HEADERTEXT_H

#include <QByteArray>
#include <QString>

// A text of an HDR record, shortened so that an archive cannot make the output arbitrarily long.
//
// A header can contain 128 KiB of text, and an archive any number of headers. Keeping this instead
// of the record's string bounds the memory, and bytes are decoded only when the text is shown.
class cHeaderText
{
public:
    cHeaderText() = default;
    // Takes a string of a record, which ends in a zero byte.
    explicit cHeaderText(const QByteArray &string);

    // Returns the first characters, at most MAX_LENGTH. Bytes that are not UTF-8 become U+FFFD.
    QString start() const;
    // Returns true if start() is not the whole text.
    bool isCut() const;
    // Bytes of the whole text in the archive.
    qsizetype size() const { return m_size; }
    // Returns start(), followed by the size if it is not the whole text.
    QString shown() const;

    // Texts of the same size are equal if their first 4 * MAX_LENGTH bytes are equal.
    bool operator==(const cHeaderText &) const = default;

    static constexpr qsizetype MAX_LENGTH = 256; // in UTF-16 code units

private:
    QByteArray m_start;
    qsizetype m_size = 0;
};

#endif
