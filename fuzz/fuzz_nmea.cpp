// Sends arbitrary bytes as receiver text through the decoder alone.
#include "fuzz/harness.h"
#include "gps/nmea.h"

#include <QList>

#include <bit>

namespace
{
QList<nmea_data> _decode(const QByteArray &text, bool whole)
{
    QList<nmea_data> points;
    cNmea nmea;
    QObject::connect(&nmea, &cNmea::signal_Data, [&](const nmea_data &n) {
        require(n.valid && nmea.account().accepted[NMEA_GPRMC] > 0,
                "a point is emitted only after a valid GPRMC");
        points.append(n);
    });
    if (whole)
        nmea.slot_Data(text);
    else
        inChunks(text, [&](const QByteArray &a) { nmea.slot_Data(a); });
    require(nmea.account().points == points.size(), "the account counts the points");
    return points;
}

// Compares the bits, so that NaN equals itself.
bool _isSame(const nmea_data &a, const nmea_data &b)
{
    const auto same = [](double x, double y) {
        return std::bit_cast<quint64>(x) == std::bit_cast<quint64>(y);
    };
    return a.valid == b.valid && same(a.time, b.time) && same(a.date, b.date) &&
           same(a.lat, b.lat) && same(a.lon, b.lon) && same(a.alt, b.alt) &&
           same(a.speed, b.speed) && same(a.course, b.course);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    QByteArray text = inputOf(data, size);
    _decode(text, false);
    // A zero byte discards the rest of its chunk, so the cut would matter.
    text.replace('\0', "\r");
    const QList<nmea_data> whole = _decode(text, true);
    const QList<nmea_data> cut = _decode(text, false);
    require(whole.size() == cut.size(), "the cut does not change the number of points");
    for (qsizetype i = 0; i < whole.size(); ++i)
        require(_isSame(whole.at(i), cut.at(i)), "the cut does not change a point");
    return 0;
}
