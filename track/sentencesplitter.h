#ifndef SENTENCESPLITTER_H
#define SENTENCESPLITTER_H

#include <QByteArray>
#include <QByteArrayList>
#include <QObject>

#include <bitset>

// Finds the NMEA 0183 sentences in the text of a GPS receiver.
//
// The text may arrive in chunks cut anywhere. A sentence needs a correct checksum. If a talker
// sends no checksums, its sentences are accepted without one when the line ends, with or without an
// asterisk. After a talker's first correct checksum, its sentences without one are rejected. A
// dollar sign always starts a new sentence, so a truncated sentence does not affect the next one.
// Zero bytes are skipped, because recorders fill blocks with them. A sentence with any other byte
// outside printable ASCII is discarded, and so is one longer than one kilobyte. Time is linear in
// the length of the text, and memory does not grow with it.
class cSentenceSplitter : public QObject
{
    Q_OBJECT

public:
    explicit cSentenceSplitter(QObject *parent = nullptr);

    // Call this after the last chunk: it may emit sentences without a checksum that were held back
    // until it was clear whether their talker sends any. Text that follows is read as that of
    // another receiver.
    void finish();

    // Sentences accepted so far, of all names.
    qint64 count() const { return m_count; }

public Q_SLOTS:
    // May emit any number of sentences. The chunk need not outlive the call.
    void slot_Data(const QByteArray &a);

Q_SIGNALS:
    // The text between the dollar sign and the asterisk: two characters for the talker, three for
    // the sentence, and the fields, each after a comma. Proprietary sentences begin with P and have
    // other names. Valid only during the call.
    void signal_Data(const QByteArray &sentence);

private:
    enum { STATE_SKIP, STATE_TEXT, STATE_CHECKSUM };

    const char *_take(const char *p, const char *end);
    void _endWithChecksum();
    void _endWithLine();
    void _releaseHeld();
    void _accept(const QByteArray &sentence);

    // One bit for each pair of digits and capital letters.
    static constexpr size_t TALKERS = size_t(36) * 36;

    int m_state = STATE_SKIP;
    QByteArray m_text; // the current sentence, without dollar sign and asterisk
    int m_checksum = 0;
    int m_digits = 0;                 // of the checksum, so far
    std::bitset<TALKERS> m_checked;   // talkers that have sent a correct checksum
    std::bitset<TALKERS> m_unchecked; // talkers that send none
    QByteArrayList m_held;            // sentences of talkers that are in neither set
    qint64 m_count = 0;
};

#endif
