#include "track/sentencesplitter.h"

#include <array>
#include <cstring>
#include <functional>
#include <numeric>
#include <utility>

namespace
{
constexpr qsizetype MAX_LENGTH = 1024; // of a sentence, from its dollar sign to its last digit
constexpr qsizetype MAX_TEXT = MAX_LENGTH - 4; // without dollar sign, asterisk and two digits
constexpr qsizetype NAME_LENGTH = 5;
// A receiver that sends checksums sends one within this many sentences.
constexpr qsizetype MAX_HELD = 16;

bool _isText(char c)
{
    return c >= ' ' && c <= '~' && c != '$' && c != '*';
}

// Returns the value of a digit or capital letter in base 36, or -1 for anything else.
int _letter(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    return c >= 'A' && c <= 'Z' ? c - 'A' + 10 : -1;
}

int _hexDigit(char c)
{
    const int value = _letter(c >= 'a' && c <= 'f' ? char(c - 'a' + 'A') : c);
    return value < 16 ? value : -1;
}

// Returns the index of the sentence's talker, or -1 if the text does not begin with a standard name
// and a comma.
int _talker(QByteArrayView text)
{
    if (text.size() <= NAME_LENGTH || text[NAME_LENGTH] != ',' || text.front() == 'P')
        return -1;
    for (const char c : text.first(NAME_LENGTH)) {
        if (_letter(c) < 0)
            return -1;
    }
    return _letter(text[0]) * 36 + _letter(text[1]);
}
} // namespace

cSentenceSplitter::cSentenceSplitter(QObject *parent) : QObject(parent) {}

void cSentenceSplitter::slot_Data(const QByteArray &a)
{
    const char *p = a.constData();
    const char *const end = p + a.size();
    while (p < end)
        p = _take(p, end);
}

void cSentenceSplitter::finish()
{
    _releaseHeld();
    m_state = STATE_SKIP;
    m_checked.reset();
    m_unchecked.reset();
}

// Consumes the bytes from p on that the current state accepts, and returns where to continue.
const char *cSentenceSplitter::_take(const char *p, const char *end)
{
    if (m_state == STATE_SKIP) {
        p = static_cast<const char *>(std::memchr(p, '$', size_t(end - p)));
        if (!p)
            return end;
    }
    if (*p == '$') {
        m_state = STATE_TEXT;
        m_text.resize(0);
        return p + 1;
    }
    if (*p == '\0')
        return p + 1;
    if (m_state == STATE_CHECKSUM) {
        const int digit = _hexDigit(*p);
        if (digit < 0) {
            if (m_digits == 0 && (*p == '\r' || *p == '\n'))
                _endWithLine();
            m_state = STATE_SKIP;
            return p;
        }
        m_checksum = m_checksum * 16 + digit;
        if (++m_digits == 2)
            _endWithChecksum();
        return p + 1;
    }
    const char *const run = p;
    while (p < end && _isText(*p))
        ++p;
    if (m_text.size() + (p - run) > MAX_TEXT) {
        m_state = STATE_SKIP;
        return p;
    }
    m_text.append(run, p - run);
    if (p == end || *p == '$' || *p == '\0')
        return p;
    if (*p == '*') {
        m_state = STATE_CHECKSUM;
        m_checksum = m_digits = 0;
    } else {
        if (*p == '\r' || *p == '\n')
            _endWithLine();
        m_state = STATE_SKIP;
    }
    return p + 1;
}

void cSentenceSplitter::_endWithChecksum()
{
    m_state = STATE_SKIP;
    const int sum = std::accumulate(m_text.cbegin(), m_text.cend(), 0, std::bit_xor<>());
    if (sum != m_checksum)
        return;
    const int talker = _talker(m_text);
    if (talker < 0 && !m_text.startsWith('P'))
        return;
    if (talker >= 0 && !m_checked.test(size_t(talker))) {
        m_checked.set(size_t(talker));
        m_unchecked.reset(size_t(talker));
        m_held.removeIf([talker](const QByteArray &held) { return _talker(held) == talker; });
    }
    _accept(m_text);
}

void cSentenceSplitter::_endWithLine()
{
    const int talker = _talker(m_text);
    if (talker < 0 || m_checked.test(size_t(talker)))
        return;
    if (m_unchecked.test(size_t(talker))) {
        _accept(m_text);
        return;
    }
    m_held.append(m_text);
    if (m_held.size() == MAX_HELD)
        _releaseHeld();
}

void cSentenceSplitter::_releaseHeld()
{
    const QByteArrayList sentences = std::exchange(m_held, {});
    for (const QByteArray &sentence : sentences) {
        m_unchecked.set(size_t(_talker(sentence)));
        _accept(sentence);
    }
}

void cSentenceSplitter::_accept(const QByteArray &sentence)
{
    ++m_count;
    Q_EMIT signal_Data(sentence);
}
