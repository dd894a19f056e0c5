#include "sample/receivertext.h"

#include <array>
#include <cstdio>
#include <numeric>

using namespace Qt::StringLiterals;

namespace
{
constexpr int SECONDS_A_DAY = 86400;
constexpr int FULL_TURN = 3600; // tenths of a degree
constexpr qint64 MICROMINUTES_A_DEGREE = 60'000'000;
// A knot is one minute of arc per hour, so a tenth of a knot is 1/36000 of a minute per second.
constexpr qint64 MICROMINUTES_A_SECOND_NUMERATOR = 1'000'000;
constexpr qint64 MICROMINUTES_A_SECOND_DENOMINATOR = 36'000;
constexpr qint64 COSINE_OF_LATITUDE = 5628; // of 55.75 degrees, in ten thousandths
constexpr qint64 ONE = 10'000;

// A part of the route.
struct LEG_T {
    int seconds; // duration
    int turn;    // tenths of a degree per second, clockwise
    int speed;   // tenths of a knot, approached gradually
};

constexpr std::array<LEG_T, 22> ROUTE = {{
    {20, 0, 220},   {9, 100, 120}, {55, 0, 300},  {40, -15, 330}, {12, 0, 0},     {35, 0, 290},
    {15, -60, 160}, {70, 4, 380},  {30, 30, 310}, {18, 0, 80},    {10, -90, 110}, {64, 6, 340},
    {8, 110, 90},   {45, 0, 320},  {22, 0, 0},    {50, -8, 360},  {24, 38, 200},  {60, 0, 400},
    {36, -25, 300}, {11, 85, 130}, {48, 0, 280},  {15, 0, 0},
}};

constexpr int ROUTE_SECONDS = 697;
static_assert(std::accumulate(ROUTE.begin(), ROUTE.end(), 0, [](int sum, const LEG_T &leg) {
                  return sum + leg.seconds;
              }) == ROUTE_SECONDS);

const LEG_T &_leg(qint64 second)
{
    auto left = int(second % ROUTE_SECONDS);
    for (const LEG_T &leg : ROUTE) {
        if (left < leg.seconds)
            return leg;
        left -= leg.seconds;
    }
    return ROUTE.back();
}

// Returns the sine of an angle in tenths of a degree, in ten-thousandths. Bhaskara's approximation
// has an error below two thousandths and, unlike std::sin, the same digits on every machine.
qint64 _sine(int tenths)
{
    const int turn = ((tenths % FULL_TURN) + FULL_TURN) % FULL_TURN;
    const qint64 x = turn % (FULL_TURN / 2);
    const qint64 p = x * (FULL_TURN / 2 - x);
    const qint64 sine = 4 * p * ONE / (4'050'000 - p);
    return turn < FULL_TURN / 2 ? sine : -sine;
}

template <typename... T>
QByteArray _format(const char *format, T... values)
{
    std::array<char, 128> text = {};
    const int size = std::snprintf(text.data(), text.size(), format, values...);
    return {text.data(), size};
}

// Formats an angle as ddmm.mmmm or dddmm.mmmm, depending on `format`.
QByteArray _angle(const char *format, qint64 micro)
{
    const qint64 value = micro < 0 ? -micro : micro;
    const qint64 minutes = value % MICROMINUTES_A_DEGREE / 100;
    return _format(format, int(value / MICROMINUTES_A_DEGREE), int(minutes / ONE),
                   int(minutes % ONE));
}
} // namespace

QByteArray nmeaSentence(const QByteArray &body)
{
    unsigned sum = 0;
    for (const char c : body)
        sum ^= static_cast<unsigned char>(c);
    return '$' + body + _format("*%02X\r\n", sum);
}

cReceiverText::cReceiverText()
    : m_date(2011, 3, 23),
      m_timeOfDay((12 * 60 + 1) * 60 + 7),
      m_lat(55 * MICROMINUTES_A_DEGREE + 45'123'400),
      m_lon(37 * MICROMINUTES_A_DEGREE + 37'050'000),
      m_altitude(1455),
      m_course(844)
{
}

QByteArray cReceiverText::_time() const
{
    return _format("%02d%02d%02d", m_timeOfDay / 3600, m_timeOfDay / 60 % 60, m_timeOfDay % 60);
}

QByteArray cReceiverText::_position() const
{
    return _angle("%02d%02d.%04d", m_lat) + (m_lat < 0 ? ",S," : ",N,") +
           _angle("%03d%02d.%04d", m_lon) + (m_lon < 0 ? ",W" : ",E");
}

QByteArray cReceiverText::gprmc() const
{
    return nmeaSentence(
        "GPRMC," + _time() + (m_sky ? ",A," : ",V,") + _position() +
        _format(",%d.%d,%d.%d,", m_speed / 10, m_speed % 10, m_course / 10, m_course % 10) +
        m_date.toString(u"ddMMyy"_s).toLatin1() + ",,,A");
}

QByteArray cReceiverText::gpgga() const
{
    const QByteArray position = m_sky ? _position() + ",1,08,0.9" : QByteArray(",,,,0,00,");
    return nmeaSentence("GPGGA," + _time() + ',' + position +
                        _format(",%d.%d,M,14.0,M,,", m_altitude / 10, m_altitude % 10));
}

QByteArray cReceiverText::gpgsv() const
{
    const int azimuth = int(m_second / 60 % 360);
    return nmeaSentence(
        _format("GPGSV,2,1,08,03,41,%03d,42,06,12,%03d,33,16,67,%03d,47,19,30,%03d,38", azimuth,
                (azimuth + 80) % 360, (azimuth + 170) % 360, (azimuth + 260) % 360));
}

void cReceiverText::_drive()
{
    const LEG_T &leg = _leg(m_second);
    const int wanted = leg.speed - m_speed;
    m_speed += wanted > 25 ? 25 : (wanted < -40 ? -40 : wanted);
    m_course = (m_course + leg.turn + FULL_TURN) % FULL_TURN;
    // Climbs two metres per minute for two minutes, then descends for two minutes.
    m_altitude += m_second % 240 < 120 ? int(m_second % 3 == 0) : -int(m_second % 3 == 0);
    const qint64 way = m_speed * MICROMINUTES_A_SECOND_NUMERATOR;
    m_lat += way * _sine(m_course + FULL_TURN / 4) / (MICROMINUTES_A_SECOND_DENOMINATOR * ONE);
    m_lon += way * _sine(m_course) / (MICROMINUTES_A_SECOND_DENOMINATOR * COSINE_OF_LATITUDE);
    ++m_second;
    if (++m_timeOfDay == SECONDS_A_DAY) {
        m_timeOfDay = 0;
        m_date = m_date.addDays(1);
    }
}

QByteArray cReceiverText::second()
{
    if (m_started)
        _drive();
    m_started = true;
    const QByteArray known = gprmc() + gpgga();
    return m_second % 2 == 0 ? known + gpgsv() : known;
}

QByteArray receiverText(qsizetype size)
{
    cReceiverText receiver;
    QByteArray text;
    text.reserve(size + 512);
    while (text.size() < size)
        text += receiver.second();
    return text;
}
