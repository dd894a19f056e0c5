// Speed of the conversion of receiver text to each format, and of its parts. Where Qt has such a
// function, it is measured for comparison.
#include "gps/gpsgpx.h"
#include "gps/gpskml.h"
#include "gps/gpsplt.h"
#include "gps/nmea.h"
#include "gps/tracktext.h"
#include "sample/receivertext.h"

#include <QDateTime>

#include <benchmark/benchmark.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{
class cSink : public QObject
{
    Q_OBJECT

public:
    qint64 bytes = 0;

public Q_SLOTS:
    void slot_Data(const QByteArray &a) { bytes += a.size(); }
};

const QByteArray &_text()
{
    static const QByteArray text = receiverText(8 << 20);
    return text;
}

// Converts the text once per iteration, with a new writer.
template <typename F>
void _feed(benchmark::State &state)
{
    constexpr qsizetype chunk = 4096;
    for ([[maybe_unused]] auto _ : state) {
        cSink sink;
        {
            F filter;
            QObject::connect(&filter, SIGNAL(signal_Data(QByteArray)), &sink,
                             SLOT(slot_Data(QByteArray)));
            for (qsizetype pos = 0; pos < _text().size(); pos += chunk)
                filter.slot_Data(_text().mid(pos, chunk));
        }
        benchmark::DoNotOptimize(sink.bytes);
    }
    state.SetBytesProcessed(state.iterations() * _text().size());
    state.counters["per sentence"] = benchmark::Counter(
        double(_text().count('$')),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void decoder(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state) {
        cNmea nmea;
        nmea.slot_Data(_text());
        benchmark::DoNotOptimize(nmea.account().points);
    }
    state.SetBytesProcessed(state.iterations() * _text().size());
}

void number(benchmark::State &state)
{
    cTrackLine line;
    double value = 55.7;
    for ([[maybe_unused]] auto _ : state) {
        value += 0.000013;
        benchmark::DoNotOptimize(line.begin().number(value, 5, 6).bytes().constData());
    }
}

void numberByQt(benchmark::State &state)
{
    double value = 55.7;
    for ([[maybe_unused]] auto _ : state) {
        value += 0.000013;
        benchmark::DoNotOptimize(u"%0"_s.arg(value, 5, 'f', -1).toLatin1());
    }
}

void localTime(benchmark::State &state)
{
    qint64 second = 1300881667;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(::localTime(++second));
}

void localTimeByQt(benchmark::State &state)
{
    qint64 second = 1300881667;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(
            QDateTime::fromSecsSinceEpoch(++second).toString(u"yyyy-MM-ddThh:mm:ssZ"_s));
}
} // namespace

BENCHMARK(decoder);
BENCHMARK(_feed<cGpsGpx>)->Name("gpx");
BENCHMARK(_feed<cGpsPlt>)->Name("plt");
BENCHMARK(_feed<cGpsKml>)->Name("kml");
BENCHMARK(number);
BENCHMARK(numberByQt);
BENCHMARK(localTime);
BENCHMARK(localTimeByQt);

#include "bench_gps.moc"
