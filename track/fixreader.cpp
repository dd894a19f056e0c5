#include "track/fixreader.h"

#include <QDate>
#include <QGeoCoordinate>
#include <QNmeaPositionInfoSource>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <utility>

// Qt lets only subclasses read single sentences.
class cNmeaLibrary : public QNmeaPositionInfoSource
{
public:
    cNmeaLibrary() : QNmeaPositionInfoSource(SimulationMode) {}
    using QNmeaPositionInfoSource::parsePosInfoFromNmeaData;
};

namespace
{
// Number of instants open at a time. A sentence may be late by one instant less than this.
constexpr qsizetype MAX_OPEN = 4;
// Number of sentence names whose positions an instant remembers. Repeats under other names are not
// recognized.
constexpr qsizetype MAX_POSITIONS = 16;
// Two-digit years from here on are in the 20th century.
constexpr int FIRST_YEAR = 80;
constexpr int MAX_YEAR = 9999;
constexpr qint64 JULIAN_DAY_OF_1970 = 2440588;
// No altitude in metres, speed in metres per second or HDOP has a larger absolute value.
constexpr double MAX_VALUE = 1e9;
constexpr double FULL_TURN = 360;

// Converts digits to a number. Returns a negative number for anything else.
int _number(QByteArrayView digits)
{
    bool isNumber = false;
    const int value = digits.toInt(&isNumber);
    return isNumber ? value : -1;
}

// Converts hhmmss or hhmmss.sss to milliseconds of the day. Returns -1 for anything else. Leading
// zeros may be missing, because some receivers omit them. No output format can express a leap
// second, so it is squeezed into the last hundredth of the previous second, which keeps the order.
int _time(QByteArrayView field)
{
    const qsizetype point = field.indexOf('.');
    const int digits = _number(point < 0 ? field : field.first(point));
    const int hour = digits / 10000;
    const int minute = digits / 100 % 100;
    const int second = digits % 100;
    if (digits < 0 || hour > 23 || minute > 59 || second > 60)
        return -1;
    int fraction = 0;
    for (int weight = 100; const char c : point < 0 ? QByteArrayView() : field.sliced(point + 1)) {
        if (c < '0' || c > '9')
            return -1;
        fraction += (c - '0') * weight;
        weight /= 10;
    }
    const int whole = (hour * 60 + minute) * 60 * 1000;
    return whole + (second == 60 ? 59'990 + fraction / 100 : second * 1000 + fraction);
}

// Converts a date to days since 1970-01-01. Empty if there is no such date.
std::optional<qint64> _day(int year, int month, int day)
{
    if (year >= 0 && year < 100)
        year += year < FIRST_YEAR ? 2000 : 1900;
    const QDate date(year, month, day);
    if (year < 0 || year > MAX_YEAR || !date.isValid())
        return {};
    return date.toJulianDay() - JULIAN_DAY_OF_1970;
}

bool _isValid(QByteArrayView status)
{
    return status == "A" || status == "D"; // D was once the mark of a differential fix
}

// Stores a value unless one is already known or the new one cannot be true.
void _fill(double &known, double value, double min = 0, double max = MAX_VALUE)
{
    if (std::isnan(known) && value >= min && value <= max)
        known = value;
}

// A receiver that has lost its fix may report zeros and mark them as valid.
bool _isPlace(const QGeoCoordinate &at)
{
    return at.isValid() && (at.latitude() != 0 || at.longitude() != 0);
}

double _real(QByteArrayView field)
{
    bool isNumber = false;
    const double value = field.toDouble(&isNumber);
    return isNumber ? value : qQNaN();
}
} // namespace

cFixReader::cFixReader(QObject *parent)
    : QObject(parent), m_library(std::make_unique<cNmeaLibrary>())
{
    connect(&m_splitter, SIGNAL(signal_Data(QByteArray)), SLOT(_slot_Sentence(QByteArray)));
    connect(&m_dater, SIGNAL(signal_Data(FIX_T)), SIGNAL(signal_Data(FIX_T)));
}

cFixReader::~cFixReader() = default;

void cFixReader::slot_Data(const QByteArray &a)
{
    m_splitter.slot_Data(a);
}

void cFixReader::finish()
{
    m_splitter.finish();
    for (const INSTANT_T &instant : std::as_const(m_open))
        _close(instant);
    m_open.clear();
    m_dater.finish();
}

void cFixReader::_slot_Sentence(const QByteArray &sentence)
{
    if (sentence.startsWith('P')) // proprietary; PGRMC, for example, is not an RMC
        return;
    const QByteArrayView name = QByteArrayView(sentence).sliced(2, 3);
    const auto read = [&](void (cFixReader::*how)()) {
        _split(sentence);
        (this->*how)();
    };
    if (name == "RMC")
        read(&cFixReader::_rmc);
    else if (name == "GGA" || name == "GNS")
        read(&cFixReader::_gga);
    else if (name == "GLL")
        read(&cFixReader::_gll);
    else if (name == "VTG")
        read(&cFixReader::_vtg);
    else if (name == "ZDA")
        read(&cFixReader::_zda);
    else if (name == "GSA")
        read(&cFixReader::_gsa);
}

// Sets m_fields to the name and the fields of a sentence, without the spaces around them.
// Missing fields are empty.
void cFixReader::_split(QByteArrayView sentence)
{
    m_fieldCount = 0;
    while (m_fieldCount < FIELDS_READ) {
        const qsizetype comma = sentence.indexOf(',');
        m_fields.at(m_fieldCount++) = (comma < 0 ? sentence : sentence.first(comma)).trimmed();
        if (comma < 0)
            break;
        sentence = sentence.sliced(comma + 1);
    }
    std::fill(m_fields.begin() + qsizetype(m_fieldCount), m_fields.end(), QByteArrayView());
}

// Lets the library read a sentence made of these fields. This class itself reads times, dates and
// whether a sentence is valid: the library treats a missing time and a leap second as midnight and
// the year 99 as 2099, and it spends most of its time on them. This class also reads the satellites
// and the kind of a fix, which the library does not report, HDOP, which it converts to metres, and
// the altitude, which is in the same sentence.
QGeoPositionInfo cFixReader::_ask(std::initializer_list<QByteArrayView> fields)
{
    QGeoPositionInfo info;
    if (std::all_of(fields.begin() + 1, fields.end(), [](QByteArrayView f) { return f.isEmpty(); }))
        return info;
    m_question.resize(0);
    for (const QByteArrayView field : fields)
        m_question.append(m_question.isEmpty() ? '$' : ',').append(field);
    const int sum =
        std::accumulate(m_question.cbegin() + 1, m_question.cend(), 0, std::bit_xor<>());
    const char *const digits = "0123456789ABCDEF";
    m_question.append('*').append(digits[sum >> 4 & 15]).append(digits[sum & 15]);
    bool hasFix = false;
    m_library->parsePosInfoFromNmeaData(m_question.constData(), int(m_question.size()), &info,
                                        &hasFix);
    return info;
}

// Returns the position from the sentences of that name; null if there is none.
QByteArray cFixReader::INSTANT_T::position(QByteArrayView name) const
{
    const auto it = std::find_if(positions.begin(), positions.end(),
                                 [name](const auto &position) { return position.first == name; });
    return it == positions.end() ? QByteArray() : it->second;
}

// Returns the open instant with that time of day, or the newest one for a sentence without a time.
// Null if there is none.
cFixReader::INSTANT_T *cFixReader::_find(int time)
{
    const auto it = std::find_if(m_open.rbegin(), m_open.rend(), [time](const INSTANT_T &instant) {
        return time == NO_TIME || instant.time == time;
    });
    return it == m_open.rend() ? nullptr : &*it;
}

cFixReader::INSTANT_T &cFixReader::_open(int time)
{
    if (m_open.size() == MAX_OPEN)
        _close(m_open.takeFirst());
    m_open.append(INSTANT_T());
    m_open.last().time = time;
    return m_open.last();
}

// Stores the position of the current sentence, which is marked as valid, and its speed and course
// if it has any. The position is in four fields, starting at index first. Returns the instant, or
// null if the sentence has no position.
cFixReader::INSTANT_T *cFixReader::_locate(int time, size_t first, QByteArrayView speed,
                                           QByteArrayView course)
{
    if (m_fieldCount < first + 4)
        return nullptr;
    const QByteArrayView name = _field(0);
    const QByteArrayView text(_field(first).begin(), _field(first + 3).end());
    const qsizetype point = _field(first).indexOf('.');
    const qsizetype decimals = point < 0 ? 0 : _field(first).size() - point - 1;

    INSTANT_T *instant = _find(time);
    const QByteArray known = instant ? instant->position(name) : QByteArray();
    const bool isRepeat = !known.isNull() && known != text;
    const bool isNeeded = !instant || !instant->located || isRepeat || decimals > instant->decimals;

    const auto place = [&](size_t i) { return isNeeded ? _field(first + i) : QByteArrayView(); };
    const QGeoPositionInfo info =
        speed.isEmpty() && course.isEmpty()
            ? _ask({"GPGLL", place(0), place(1), place(2), place(3)})
            : _ask({"GPRMC", "", "", place(0), place(1), place(2), place(3), speed, course});
    if (isNeeded && !_isPlace(info.coordinate()))
        return nullptr;
    if (!instant || isRepeat) {
        const quint32 repeat = isRepeat ? instant->fix.repeat + 1 : 0;
        instant = &_open(time);
        instant->fix.repeat = repeat;
    }
    if (instant->positions.size() < MAX_POSITIONS && (known.isNull() || isRepeat))
        instant->positions.append({name.toByteArray(), text.toByteArray()});
    if (isNeeded) {
        instant->located = true;
        instant->decimals = decimals;
        instant->fix.lat = info.coordinate().latitude();
        instant->fix.lon = info.coordinate().longitude();
    }
    _move(*instant, info);
    return instant;
}

// Stores speed and course unless they are already known.
void cFixReader::_move(INSTANT_T &instant, const QGeoPositionInfo &info)
{
    if (info.hasAttribute(QGeoPositionInfo::GroundSpeed))
        _fill(instant.fix.speed, info.attribute(QGeoPositionInfo::GroundSpeed));
    if (info.hasAttribute(QGeoPositionInfo::Direction))
        _fill(instant.fix.course, info.attribute(QGeoPositionInfo::Direction), 0, FULL_TURN);
}

void cFixReader::_rmc()
{
    const int time = _time(_field(1));
    const int digits = _field(9).size() > 6 ? -1 : _number(_field(9));
    const std::optional<qint64> day =
        _day(digits < 0 ? -1 : digits % 100, digits / 100 % 100, digits / 10000);

    INSTANT_T *const instant =
        _isValid(_field(2)) ? _locate(time, 3, _field(7), _field(8)) : nullptr;
    if (instant && day && time != NO_TIME)
        instant->day = day;
    _enterDay(time, day);
}

// GNS has the fields of GGA, except that the quality is replaced by letters for the mode of each
// satellite system. The library cannot read it.
void cFixReader::_gga()
{
    FIX_KIND kind = FIX_KIND::UNKNOWN;
    const QByteArrayView quality = _field(6);
    if (_field(0).endsWith("GNS")) {
        if (std::all_of(quality.begin(), quality.end(), [](char c) { return c == 'N'; }))
            return;
        if (quality.contains('P'))
            kind = FIX_KIND::PRECISE;
        else if (quality.contains('D') || quality.contains('R') || quality.contains('F'))
            kind = FIX_KIND::DIFFERENTIAL;
    } else {
        const int number = _number(quality);
        if (number <= 0)
            return;
        if (number == 3)
            kind = FIX_KIND::PRECISE;
        else if (number == 2 || number == 4 || number == 5)
            kind = FIX_KIND::DIFFERENTIAL;
    }
    INSTANT_T *const instant = _locate(_time(_field(1)), 2);
    if (!instant)
        return;
    FIX_T &fix = instant->fix;
    fix.kind = qMax(fix.kind, kind);
    if (fix.satellites < 0)
        fix.satellites = _number(_field(7));
    _fill(fix.hdop, _real(_field(8)));
    _fill(fix.altitude, _real(_field(9)), -MAX_VALUE);
}

void cFixReader::_gll()
{
    // Early receivers sent no status field, and no GLL without a fix.
    if (m_fieldCount <= 6 || _isValid(_field(6)))
        _locate(_time(_field(5)), 1);
}

void cFixReader::_vtg()
{
    if (m_open.isEmpty() || _field(9) == "N")
        return;
    // Most receivers have sent both values in an RMC.
    INSTANT_T &instant = m_open.last();
    const auto unknown = [this](double known, size_t i) {
        return std::isnan(known) ? _field(i) : QByteArrayView();
    };
    const QByteArrayView course = unknown(instant.fix.course, 1);
    const QByteArrayView knots = unknown(instant.fix.speed, 5);
    const QByteArrayView kmh = unknown(instant.fix.speed, 7);
    _move(instant, kmh.isEmpty() ? _ask({"GPRMC", "", "", "", "", "", "", knots, course})
                                 : _ask({"GPVTG", course, "", "", "", "", "", kmh}));
}

void cFixReader::_zda()
{
    _enterDay(_time(_field(1)), _day(_number(_field(4)), _number(_field(3)), _number(_field(2))));
}

// The library can read GSA, but it does not report whether the fix includes a height.
void cFixReader::_gsa()
{
    if (m_open.isEmpty())
        return;
    FIX_T &fix = m_open.last().fix;
    if (_field(2) == "2")
        fix.kind = qMax(fix.kind, FIX_KIND::TWO_D);
    else if (_field(2) == "3")
        fix.kind = qMax(fix.kind, FIX_KIND::THREE_D);
    _fill(fix.hdop, _real(_field(16)));
}

// Stores the date of a sentence that may have no position.
void cFixReader::_enterDay(int time, const std::optional<qint64> &day)
{
    if (time == NO_TIME || !day)
        return;
    INSTANT_T *instant = _find(time);
    if (!instant)
        instant = &_open(time);
    if (!instant->day)
        instant->day = day;
}

// Passes an instant on if it has a position or a date.
void cFixReader::_close(const INSTANT_T &instant)
{
    const auto time =
        instant.time == NO_TIME ? std::optional<int>() : std::optional<int>(instant.time);
    if (instant.located)
        m_dater.addFix(instant.fix, time, instant.day);
    else if (time && instant.day)
        m_dater.addDate(*time, *instant.day);
}
