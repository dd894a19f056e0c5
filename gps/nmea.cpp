#include "gps/nmea.h"

#include <QDateTime>
#include <QtEndian>

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{
// The date of a fix whose date field cannot be read: all 32 bits set.
constexpr double UNREADABLE_DATE = 4294967295.0;

constexpr qsizetype NAME_LENGTH = 5;
constexpr QByteArrayView FIELD_CHARACTERS = "0123456789.,AENMSW+-";
constexpr QByteArrayView CHECKSUM_DIGITS = "0123456789ABCDEF";

// For each byte, whether it is one of the given characters.
constexpr std::array<bool, 256> _tableOf(QByteArrayView characters)
{
    std::array<bool, 256> table{};
    for (const char c : characters)
        table[static_cast<unsigned char>(c)] = true;
    return table;
}

constexpr std::array<bool, 256> IS_FIELD_CHARACTER = _tableOf(FIELD_CHARACTERS);
constexpr std::array<bool, 256> IS_CHECKSUM_DIGIT = _tableOf(CHECKSUM_DIGITS);

bool _isIn(const std::array<bool, 256> &table, char c)
{
    return table[static_cast<unsigned char>(c)];
}

// Returns at most n characters of a field, starting at pos; empty if the field ends before pos.
QByteArrayView _mid(QByteArrayView field, qsizetype pos, qsizetype n)
{
    if (pos >= field.size())
        return {};
    return field.sliced(pos, qMin(n, field.size() - pos));
}

// Returns the last n characters of a field, or all of them if there are fewer.
QByteArrayView _right(QByteArrayView field, qsizetype n)
{
    return field.last(qMin(n, field.size()));
}

bool _is(QByteArrayView field, char c)
{
    return field.size() == 1 && field.front() == c;
}

// Reads an unsigned decimal number of at most 15 characters, as most fields are. The result is the
// quotient of two exact numbers and therefore the nearest double. Returns false for all other
// fields. With std::from_chars alone, conversion to GPX takes a tenth longer.
bool _readPlain(QByteArrayView field, double &value)
{
    static constexpr std::array<double, 16> POWERS = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                      1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    if (field.size() >= qsizetype(POWERS.size()))
        return false;
    qint64 digits = 0;
    const char *point = nullptr;
    for (const char &c : field) {
        if (c >= '0' && c <= '9')
            digits = digits * 10 + (c - '0');
        else if (c == '.' && !point)
            point = &c;
        else
            return false;
    }
    value = point ? double(digits) / POWERS[size_t(field.end() - point - 1)] : double(digits);
    return true;
}
} // namespace

cNmea::cNmea(QObject *parent) : QObject(parent), m_date(UNREADABLE_DATE) {}

void cNmea::slot_Data(const QByteArray &a)
{
    const char *p = a.constData();
    const char *const end = p + qstrnlen(p, size_t(a.size()));
    while (p < end)
        p = _take(p, end);
}

// Consumes the bytes from p on that the current state accepts, and returns where to continue. A
// byte that cannot be part of the sentence is not consumed: it may be the dollar sign of the next.
const char *cNmea::_take(const char *p, const char *end)
{
    if (m_state == STATE_SKIP) {
        const void *const dollar = std::memchr(p, '$', size_t(end - p));
        if (!dollar)
            return end;
        m_state = STATE_NAME;
        return static_cast<const char *>(dollar) + 1;
    }
    if (*p == '\r' || *p == '\n')
        return p + 1;
    if (m_state == STATE_NAME) {
        if (*p != '$')
            return _takeName(p, end);
    } else if (m_state == STATE_FIELDS) {
        const char *run = p;
        while (run < end && _isIn(IS_FIELD_CHARACTER, *run))
            ++run;
        m_text.append(p, run - p);
        if (run == end || *run == '\r' || *run == '\n')
            return run;
        p = run;
        if (*p == '*' && m_text.size() > NAME_LENGTH) {
            m_star = m_text.size();
            m_text.append('*');
            m_state = STATE_CHECKSUM;
            return p + 1;
        }
    } else if (_isIn(IS_CHECKSUM_DIGIT, *p)) {
        m_text.append(*p);
        if (m_text.size() == m_star + 1 + CHECKSUM_LENGTH) {
            _sentence();
            _discard();
        }
        return p + 1;
    }
    _reject();
    return p;
}

// Consumes bytes of a sentence's name, up to its end or a byte that cannot be part of it.
const char *cNmea::_takeName(const char *p, const char *end)
{
    const char *run = p;
    end = qMin(end, p + (NAME_LENGTH - m_text.size()));
    while (run < end && *run != '$' && *run != '\r' && *run != '\n')
        ++run;
    m_text.append(p, run - p);
    if (m_text.size() == NAME_LENGTH) {
        for (int kind = 0; kind < NMEA_KINDS; ++kind) {
            if (std::memcmp(m_text.constData(), NMEA_NAMES[size_t(kind)], NAME_LENGTH) == 0) {
                m_kind = kind;
                m_state = STATE_FIELDS;
                return run;
            }
        }
        _discard();
    }
    return run;
}

void cNmea::_reject()
{
    if (m_state != STATE_NAME)
        ++m_account.malformed[size_t(m_kind)];
    _discard();
}

void cNmea::_discard()
{
    m_state = STATE_SKIP;
    m_text.clear();
    if (m_text.capacity() > TEXT_KEPT)
        m_text.squeeze();
}

// Reads the complete sentence in m_text.
void cNmea::_sentence()
{
    const QByteArrayView text(m_text.constData(), m_text.size());
    const std::array<char, CHECKSUM_LENGTH> sum = _nmeaChecksum(text.first(m_star));
    if (std::memcmp(sum.data(), text.sliced(m_star + 1).data(), CHECKSUM_LENGTH) != 0) {
        ++m_account.badChecksum[size_t(m_kind)];
        return;
    }
    const bool complete = _splitFields(text.sliced(NAME_LENGTH, m_star - NAME_LENGTH));
    if (!complete && m_kind != NMEA_PGRME) {
        ++m_account.tooFewFields[size_t(m_kind)];
        return;
    }
    ++m_account.accepted[size_t(m_kind)];
    if (m_kind == NMEA_GPGGA)
        _gpgga();
    else if (m_kind == NMEA_GPRMC)
        _gprmc();
    else
        _pgrme();
    if (m_fix.valid) {
        ++m_account.points;
        m_account.invalidPoints += m_isInvalid;
        Q_EMIT signal_Data(m_fix);
    }
}

// Sets m_fields to the fields after the first comma. Returns false if there are too few.
bool cNmea::_splitFields(QByteArrayView fields)
{
    const char *p = fields.begin();
    const char *const end = fields.end();
    const auto toComma = [&] {
        while (p < end && *p != ',')
            ++p;
    };
    toComma();
    for (QByteArrayView &field : m_fields) {
        if (p == end)
            return false;
        const char *const begin = ++p;
        toComma();
        field = QByteArrayView(begin, p);
    }
    return true;
}

// Returns the two checksum digits for the text from a sentence's name up to the asterisk.
std::array<char, cNmea::CHECKSUM_LENGTH> cNmea::_nmeaChecksum(QByteArrayView sentence)
{
    const char *p = sentence.begin();
    quint64 sums = 0; // eight bytes at once
    for (; sentence.end() - p >= qsizetype(sizeof sums); p += sizeof sums)
        sums ^= qFromUnaligned<quint64>(p);
    sums ^= sums >> 32;
    sums ^= sums >> 16;
    auto sum = static_cast<unsigned char>(sums ^ (sums >> 8));
    for (; p < sentence.end(); ++p)
        sum ^= static_cast<unsigned char>(*p);
    return {CHECKSUM_DIGITS[sum >> 4], CHECKSUM_DIGITS[sum & 15]};
}

void cNmea::_gpgga()
{
    m_fix.time = _getTime(_field(0));
    _position(1);
    m_fix.alt = _getDouble(_field(8));
    m_isInvalid = _is(_field(5), '0') && (m_fix.lat != 0 || m_fix.lon != 0);
}

void cNmea::_gprmc()
{
    m_fix.time = _getTime(_field(0));
    m_fix.valid = _is(_field(1), 'A');
    _position(2);
    m_isInvalid = false;
    m_fix.speed = _getDouble(_field(6)) * KNOTS_TO_MPS;
    m_fix.course = _getDouble(_field(7));
    m_fix.date = _getDate(_field(8));
}

// The receiver's error estimate. None of its fields is used, but the sentence emits a record.
void cNmea::_pgrme() {}

// Reads latitude, hemisphere, longitude and hemisphere from the four fields at index.
void cNmea::_position(int index)
{
    m_fix.lat = _getDegreese(_field(index));
    if (!_is(_field(index + 1), 'N'))
        m_fix.lat = -m_fix.lat;
    m_fix.lon = _getDegreese(_field(index + 2));
    if (!_is(_field(index + 3), 'E'))
        m_fix.lon = -m_fix.lon;
    _countDecimals(_field(index), _field(index + 2));
}

// Counts a position by the decimals of its latitude, or of its longitude if those are four.
void cNmea::_countDecimals(QByteArrayView lat, QByteArrayView lon)
{
    constexpr qsizetype usual = 4;
    const auto decimals = [](QByteArrayView field) {
        if (field.size() > usual && field[field.size() - 1 - usual] == '.')
            return usual;
        const qsizetype point = field.lastIndexOf('.');
        return point < 0 ? 0 : field.size() - 1 - point;
    };
    if (lat.isEmpty() || lon.isEmpty())
        return;
    const qsizetype n = decimals(lat) == usual ? decimals(lon) : decimals(lat);
    ++m_account.decimals[size_t(qMin(n, qsizetype(m_account.decimals.size()) - 1))];
}

// Returns the longest number at the start of the field, or 0 if there is none. The result is that
// of strtod in the C locale, whatever the locale of the process.
double cNmea::_getDouble(QByteArrayView field)
{
    const char *begin = field.begin();
    if (field.startsWith('+')) {
        ++begin;
        if (begin < field.end() && *begin == '-')
            return 0;
    }
    double value = 0;
    if (_readPlain(field, value))
        return value;
    const auto [end, error] = std::from_chars(begin, field.end(), value);
    if (error == std::errc::result_out_of_range) {
        // from_chars does not distinguish too large from too small.
        static const locale_t neutral = newlocale(LC_ALL_MASK, "C", nullptr);
        return strtod_l(QByteArray(begin, end - begin).constData(), nullptr, neutral);
    }
    return value;
}

// Converts dddmm.mmmm to degrees. The last seven characters are the minutes, wherever the point is.
// A field of fewer characters is read as both degrees and minutes.
double cNmea::_getDegreese(QByteArrayView field)
{
    constexpr qsizetype minuteLength = 7;
    const double deg =
        _getDouble(field.size() < minuteLength ? field : field.first(field.size() - minuteLength));
    const double min = _getDouble(_right(field, minuteLength));
    return (deg * 60 + min) / 60;
}

// Converts ddmmyy, a date from 2000 to 2099, to the seconds since 1970 at local midnight.
double cNmea::_getDate(QByteArrayView field)
{
    const QByteArrayView dayAndMonth = _mid(field, 0, 4);
    const QByteArrayView year = _right(field, 2);
    const QByteArrayView last(m_dateField);
    if (last.size() != dayAndMonth.size() + year.size() || !last.startsWith(dayAndMonth) ||
        !last.endsWith(year)) {
        m_dateField = dayAndMonth.toByteArray() + year.toByteArray();
        m_date = _midnight(m_dateField);
    }
    return m_date;
}

// Converts a date that differs from the last one. Qt takes microseconds, even to reject it.
double cNmea::_midnight(const QByteArray &date)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const int number = date.toInt();
    if (date.size() != 6 || !std::all_of(date.begin(), date.end(), isDigit) ||
        !QDate::isValid(2000 + number % 100, number / 100 % 100, number / 10000))
        return UNREADABLE_DATE;
    const auto known = m_dates.constFind(number);
    if (known != m_dates.cend())
        return *known;
    const QString text = QString::fromLatin1(date).insert(4, u"20"_s);
    const QDateTime midnight = QDateTime::fromString(text, u"ddMMyyyy"_s);
    return *m_dates.insert(number, midnight.isValid() ? double(midnight.toSecsSinceEpoch())
                                                      : UNREADABLE_DATE);
}

// Converts hhmmss.sss to seconds.
double cNmea::_getTime(QByteArrayView field)
{
    return _getDouble(_mid(field, 0, 2)) * 3600 + _getDouble(_mid(field, 2, 2)) * 60 +
           _getDouble(_mid(field, 4, field.size()));
}
