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

// The fuzzer's inputs are too short for strings that overrun the limit. In an input that begins
// with 0xFE, each of the next three 0xFE bytes is therefore replaced by a long text.
QByteArray _expanded(QByteArray input)
{
    constexpr char run = '\xFE';
    if (!input.startsWith(run))
        return input;
    input.remove(0, 1);
    for (int i = 0; i < 3; ++i) {
        if (const qsizetype at = input.indexOf(run); at >= 0)
            input.replace(at, 1, QByteArray(400'000, 'x'));
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
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray input = _expanded(inputOf(data, size));
    for (const char *const filter : {"(*.txt)", "(*.gpx)", "(*.plt)", "(*.kml)"})
        require(_run(input, filter, true) == _run(input, filter, false),
                "the output does not depend on how the archive is cut");
    return 0;
}

#include "fuzz_chain.moc"
