// Sends arbitrary bytes as an archive through the whole chain, in all four formats.
#include "fuzz/harness.h"
#include "gps/gpschain.h"

#include <array>

namespace
{
class cCollector : public QObject
{
    Q_OBJECT

public:
    QByteArray bytes;

public Q_SLOTS:
    void slot_Data(const QByteArray &a) { bytes += a; }
};

// The fuzzer's inputs are too short for many headers and for strings that overrun the limit. In an
// input that begins with 0xFE, the next 0xFC byte is therefore replaced by many copies of the 16
// bytes before it, and each of the next three 0xFE bytes by a text of about half the limit.
QByteArray _expanded(QByteArray input)
{
    constexpr char text = '\xFE';
    constexpr char copies = '\xFC';
    if (!input.startsWith(text))
        return input;
    input.remove(0, 1);
    if (const qsizetype at = input.indexOf(copies); at >= 16)
        input.replace(at, 1, input.mid(at - 16, 16).repeated(2000));
    for (int i = 0; i < 3; ++i) {
        if (const qsizetype at = input.indexOf(text); at >= 0)
            input.replace(at, 1, QByteArray(HDR_STRING_LIMIT / 2 - 16, 'x'));
    }
    return input;
}

void _checkAccount(const ACCOUNT_T &a, qsizetype size)
{
    require(a.received == size, "the account counts the bytes received");
    require(a.scanned + a.hdr + a.idx + a.heads + a.delivered + a.lost + a.unfinished +
                    a.buffered ==
                size,
            "the account counts each byte once");
    require(a.scanned >= 0 && a.lost >= 0 && a.unfinished >= 0, "no sum is negative");
}

QByteArray _run(const QByteArray &input, const char *filter, bool whole)
{
    cCollector collector;
    {
        cGpsChain chain(QString::fromLatin1(filter), &collector);
        if (const cNmea *const decoder = chain.decoder()) {
            QObject::connect(decoder, &cNmea::signal_Data, [decoder](const nmea_data &n) {
                require(n.valid && decoder->account().accepted[NMEA_GPRMC] > 0,
                        "a point is emitted only after a valid GPRMC");
            });
        }
        if (whole)
            chain.parser().slot_Data(input);
        else
            inChunks(input, [&](const QByteArray &a) { chain.parser().slot_Data(a); });
        _checkAccount(chain.parser().account(), input.size());
    }
    return collector.bytes;
}

// The records that the chain uses, and how the other bytes were used.
struct GPS_T {
    QByteArrayList titles;
    QByteArrayList payloads;
    QList<qint64> account;

    bool operator==(const GPS_T &) const = default;
};

GPS_T _gps(const QByteArray &input, bool only)
{
    GPS_T gps;
    cVrk3Parser parser;
    if (only)
        parser.deliverOnly(GPS_STREAM_ID, GPS_STREAM_TYPE);
    QObject::connect(&parser, qOverload<const HDR_T &>(&cVrk3Parser::signal_Data),
                     [&](const HDR_T &hdr) { gps.titles += hdr.title; });
    QObject::connect(
        &parser, qOverload<const DATA_T &>(&cVrk3Parser::signal_Data), [&](const DATA_T &d) {
            const bool isGps = d.streamId == GPS_STREAM_ID && d.stream.type == GPS_STREAM_TYPE;
            require(isGps || !only, "no other stream is delivered");
            if (isGps)
                gps.payloads += d.payload;
        });
    inChunks(input, [&](const QByteArray &a) { parser.slot_Data(a); });
    const ACCOUNT_T a = parser.account();
    _checkAccount(a, input.size());
    gps.account = {
        a.scanned,    a.hdr,      a.idx,          a.heads,      a.delivered,       a.lost,
        a.unfinished, a.buffered, a.stretchCount, a.lostBlocks, a.unfinishedBlocks};
    for (const STRETCH_T &stretch : a.stretches)
        gps.account += {stretch.offset, stretch.length};
    return gps;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray input = _expanded(inputOf(data, size));
    for (const char *const filter : {"(*.txt)", "(*.gpx)", "(*.plt)", "(*.kml)"})
        require(_run(input, filter, true) == _run(input, filter, false),
                "the output does not depend on how the archive is cut");
    require(_gps(input, true) == _gps(input, false),
            "the account and the GPS stream do not depend on whether other streams are delivered");
    return 0;
}

#include "fuzz_chain.moc"
