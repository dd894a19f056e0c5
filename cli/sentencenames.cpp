#include "cli/sentencenames.h"

#include "gps/nmea.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr qsizetype MAX_NAME_LENGTH = 8;

bool _isNameCharacter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}
} // namespace

cSentenceNames::cSentenceNames(QObject *parent) : QObject(parent) {}

void cSentenceNames::slot_Data(const QByteArray &a)
{
    const char *p = a.constData();
    const char *const end = p + qstrnlen(p, size_t(a.size()));
    for (; p < end; ++p) {
        if (!m_inName) {
            p = static_cast<const char *>(std::memchr(p, '$', size_t(end - p)));
            if (!p)
                return;
            m_inName = true;
        } else if (_isNameCharacter(*p) && m_name.size() <= MAX_NAME_LENGTH) {
            m_name.append(*p);
        } else if (*p != '\r' && *p != '\n') {
            _endName();
            m_inName = *p == '$'; // a dollar sign starts the next sentence
        }
    }
}

void cSentenceNames::_endName()
{
    // The decoder compares only the first five letters, and counts these sentences itself.
    const auto isRead = [this](const char *known) { return m_name.startsWith(known); };
    const bool isName = !m_name.isEmpty() && m_name.size() <= MAX_NAME_LENGTH;
    if (std::none_of(NMEA_NAMES.begin(), NMEA_NAMES.end(), isRead)) {
        if (isName && (m_counts.size() < MAX_NAMES || m_counts.contains(m_name)))
            ++m_counts[m_name];
        else
            ++m_others;
    }
    m_name.resize(0);
}
