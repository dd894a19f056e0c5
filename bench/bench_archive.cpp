// Speed of the parser for different kinds of archive.
#include "archive/vrk3parser.h"
#include "sample/archivewriter.h"

#include <QRandomGenerator>

#include <benchmark/benchmark.h>

namespace
{
constexpr qsizetype CHUNK = 65536; // the size of the programs' reads

class cListener : public QObject
{
    Q_OBJECT

public:
    qint64 blocks = 0;

public Q_SLOTS:
    void slot_Data(const DATA_T & /*d*/) { ++blocks; }

Q_SIGNALS:
    // NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): moc uses other names
    void signal_Data(const DATA_T &d);
};

QByteArray _beginning()
{
    cArchiveWriter w;
    w.header("T", {{2, 2}, {253, 4}});
    w.index(0, 0);
    return w.take();
}

// Feeds `beginning` once and then `pattern` repeatedly, in chunks, to a parser with a connected
// listener. If gpsOnly is set, the pattern is a block of another stream.
void _walk(benchmark::State &state, const QByteArray &beginning, QByteArray pattern,
           bool gpsOnly = false)
{
    const qsizetype blockSize = pattern.size();
    // Whole chunks, so that the pattern continues correctly from the last to the first.
    while (pattern.size() % CHUNK != 0 || pattern.size() < CHUNK)
        pattern += pattern;
    QByteArrayList chunks;
    for (qsizetype pos = 0; pos < pattern.size(); pos += CHUNK)
        chunks += pattern.mid(pos, CHUNK);
    cVrk3Parser parser;
    if (gpsOnly)
        parser.deliverOnly(253, 4);
    cListener listener;
    QObject::connect(&parser, SIGNAL(signal_Data(DATA_T)), &listener, SLOT(slot_Data(DATA_T)));
    parser.slot_Data(beginning);
    qsizetype next = 0;
    for ([[maybe_unused]] auto _ : state) {
        parser.slot_Data(chunks.at(next));
        next = (next + 1) % chunks.size();
    }
    state.SetBytesProcessed(state.iterations() * CHUNK);
    const qint64 blocks = gpsOnly ? parser.account().received / blockSize : listener.blocks;
    if (blocks > 0)
        state.counters["per block"] = benchmark::Counter(
            double(blocks), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

QByteArray _blocks(int payload)
{
    cArchiveWriter w;
    w.block(2, QByteArray(payload, 'x'));
    return w.take();
}

QByteArray _noise()
{
    QRandomGenerator random(1);
    QByteArray bytes(16 * CHUNK, Qt::Uninitialized);
    random.fillRange(reinterpret_cast<quint32 *>(bytes.data()), bytes.size() / 4);
    return bytes;
}

QByteArray _header()
{
    cArchiveWriter w;
    w.header("T", {{2, 2}, {253, 4}});
    return w.take();
}

// Headers whose tables all run into the same string, which is too long.
void nestedHeaders(benchmark::State &state)
{
    const QByteArray header = QByteArray::fromHex("b5b505b5 ffffffff 6162636400");
    _walk(state, {}, header.repeated(5041) + QByteArray(65539, 'x'));
}

void largeBlocks(benchmark::State &state)
{
    _walk(state, _beginning(), _blocks(65532));
}

void blocksOf40Bytes(benchmark::State &state)
{
    _walk(state, _beginning(), _blocks(36));
}

void recordsOnly(benchmark::State &state)
{
    _walk(state, _beginning(), _beginning());
}

// The cost of a block's signal alone, for comparison.
void bareSignal(benchmark::State &state)
{
    cListener sender;
    cListener listener;
    QObject::connect(&sender, SIGNAL(signal_Data(DATA_T)), &listener, SLOT(slot_Data(DATA_T)));
    const DATA_T d;
    for ([[maybe_unused]] auto _ : state)
        Q_EMIT sender.signal_Data(d);
    benchmark::DoNotOptimize(listener.blocks);
}
} // namespace

BENCHMARK_CAPTURE(_walk, noise, QByteArray(), _noise());
BENCHMARK_CAPTURE(_walk, noiseAfterHeader, _header(), _noise());
BENCHMARK_CAPTURE(_walk, onlyB5, QByteArray(), QByteArray("\xB5"));
BENCHMARK_CAPTURE(_walk, only05, QByteArray(), QByteArray("\x05"));
BENCHMARK_CAPTURE(_walk, magicsWithoutZero, QByteArray(), QByteArray("\xB5\xB5\x05\xB5"));
BENCHMARK_CAPTURE(_walk, magicsAfterHeader, _header(), QByteArray("\xB5\xB5\x05\xB5xxxx"));
BENCHMARK(largeBlocks);
BENCHMARK(blocksOf40Bytes);
BENCHMARK_CAPTURE(_walk, skippedBlocksOf40Bytes, _beginning(), _blocks(36), true);
BENCHMARK(bareSignal);
BENCHMARK(recordsOnly);
BENCHMARK(nestedHeaders);

#include "bench_archive.moc"
