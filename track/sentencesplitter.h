#ifndef SENTENCESPLITTER_H
#define SENTENCESPLITTER_H

#include <QByteArray>
#include <QByteArrayList>
#include <QObject>

#include <bitset>

// Finds the NMEA 0183 sentences in the text of a GPS receiver.
//
// The text comes in chunks that may end anywhere. A sentence needs a correct checksum. The
// sentences of a talker that sends none are accepted without one if they end with their line; the
// first correct checksum of a talker ends that for good. A dollar sign always starts a new
// sentence, so text cut short costs nothing else. Zero bytes are skipped: recorders fill blocks
// with them. Any other byte outside of printable ASCII ends the sentence without a result, and so
// does a length of more than one kilobyte. Time is linear in the text, and memory does not grow
// with it.
class cSentenceSplitter : public QObject
{
    Q_OBJECT

public:
    explicit cSentenceSplitter(QObject *parent = nullptr);

    // Call this once after the last chunk: it may emit sentences without checksum that waited for a
    // decision. Text that follows begins anew, as from another receiver.
    void finish();

    // Sentences accepted so far, of all names.
    qint64 count() const { return m_count; }

public Q_SLOTS:
    // May emit any number of sentences. The chunk need not outlive the call.
    void slot_Data(const QByteArray &a);

Q_SIGNALS:
    // The text between dollar sign and asterisk: a name of two characters for the talker and three
    // for the sentence, and the fields, each after a comma. Or a proprietary sentence, which begins
    // with P. Valid only during the call.
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
    std::bitset<TALKERS> m_unchecked; // talkers found to send none
    QByteArrayList m_held;            // sentences of talkers of neither kind
    qint64 m_count = 0;
};

#endif
