#include "archive/vrk3parser.h"
#include "sample/archivewriter.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

namespace
{
// How an input is cut into chunks.
enum CUT { CUT_WHOLE, CUT_BYTES, CUT_RANDOM };

void _feed(cVrk3Parser &parser, const QByteArray &input, CUT cut, quint32 seed = 1)
{
    QRandomGenerator random(seed);
    for (qsizetype pos = 0; pos < input.size();) {
        const qsizetype n = cut == CUT_WHOLE   ? input.size()
                            : cut == CUT_BYTES ? 1
                                               : random.bounded(1, 300);
        parser.slot_Data(input.mid(pos, n));
        pos += n;
    }
    parser.slot_Data(QByteArray());
}

// The result of parsing an input: each signal as one line, and the account.
struct OUTCOME_T {
    QByteArrayList signalled;
    QList<qint64> receivedAt; // bytes received before each signal
    ACCOUNT_T account;
    qint64 payload = 0;
};

OUTCOME_T _parse(const QByteArray &input, CUT cut, quint32 seed = 1)
{
    OUTCOME_T outcome;
    cVrk3Parser parser;
    QObject::connect(
        &parser, qOverload<const HDR_T &>(&cVrk3Parser::signal_Data), [&](const HDR_T &hdr) {
            QByteArray line = "HDR " + hdr.title.toPercentEncoding();
            for (const STREAM_T &s : hdr.streams)
                line += ' ' + QByteArray::number(s.id) + ':' + QByteArray::number(s.type) + ':' +
                        (s.textA + s.textB + s.textC).toPercentEncoding();
            for (int tag = 0; tag < hdr.texts.size(); ++tag)
                if (!hdr.texts.at(tag).isEmpty())
                    line += " t" + QByteArray::number(tag) + '=' +
                            hdr.texts.at(tag).toPercentEncoding();
            outcome.signalled += line;
            outcome.receivedAt += parser.account().received;
        });
    QObject::connect(
        &parser, qOverload<const IDX_T &>(&cVrk3Parser::signal_Data), [&](const IDX_T &idx) {
            outcome.signalled += "IDX " + QByteArray::number(idx.word1) + ' ' +
                                 QByteArray::number(idx.word2) + ' ' + idx.extra.toHex();
            outcome.receivedAt += parser.account().received;
        });
    QObject::connect(
        &parser, qOverload<const DATA_T &>(&cVrk3Parser::signal_Data), [&](const DATA_T &d) {
            outcome.signalled +=
                "DATA " + QByteArray::number(d.streamId) + ':' + QByteArray::number(d.stream.type) +
                " f" + QByteArray::number(d.flags, 16) + " e" + QByteArray::number(d.extWord) +
                ',' + QByteArray::number(d.extByte1) + ',' + QByteArray::number(d.extByte2) + ' ' +
                QByteArray::number(d.size) + ' ' + d.payload.toPercentEncoding();
            outcome.receivedAt += parser.account().received;
            outcome.payload += d.payload.size();
        });
    _feed(parser, input, cut, seed);
    outcome.account = parser.account();
    return outcome;
}

// Checks the account against the input and the signals.
void _checkAccount(const OUTCOME_T &outcome, qint64 size)
{
    const ACCOUNT_T &a = outcome.account;
    QCOMPARE(a.received, size);
    QCOMPARE(a.scanned + a.hdr + a.idx + a.heads + a.delivered + a.lost + a.unfinished + a.buffered,
             size);
    QCOMPARE(a.delivered, outcome.payload);
    if (a.stretchCount <= cVrk3Parser::STRETCH_MAX) {
        qint64 listed = 0;
        for (const STRETCH_T &stretch : a.stretches)
            listed += stretch.length;
        QCOMPARE(listed, a.scanned);
    }
}

bool _isSame(const ACCOUNT_T &a, const ACCOUNT_T &b)
{
    return a.scanned == b.scanned && a.hdr == b.hdr && a.idx == b.idx && a.heads == b.heads &&
           a.lost == b.lost && a.unfinished == b.unfinished && a.buffered == b.buffered &&
           a.stretchCount == b.stretchCount && a.lostBlocks == b.lostBlocks;
}

const QList<ARCHIVESTREAM_T> STREAMS = {{253, 4, "gps", "GPS", ""}, {1, 1, "", "ext", ""},
                                        {2, 2, "", "", ""},         {3, 0, "none", "", ""},
                                        {5, 16, "", "", ""},        {253, 2, "second", "", ""},
                                        {7, 3, "", "", ""}};

QByteArray _soundArchive()
{
    cArchiveWriter w;
    w.header("Title", STREAMS, {{1, "one"}, {0, ""}, {8, "eight"}, {1, "again"}});
    w.index(1, 2, "abc");
    w.block(253, "$GP");
    w.block(1, "0123456789", FRAGMENT_FIRST, 5, {3001, 3, 9});
    w.block(2, "first", FRAGMENT_FIRST);
    w.block(1, QByteArray(20, 'm'), FRAGMENT_MIDDLE);
    w.block(1, "whole", FRAGMENT_WHOLE, 0, {3000, 4, 0});
    w.block(1, "12345", FRAGMENT_LAST, 7);
    w.block(2, QByteArray("B5\xB5\xB5\x05\xB5 \0", 7), FRAGMENT_LAST);
    w.block(5, "", FRAGMENT_WHOLE, 0x3F);
    w.header("Second", {{253, 4}});
    w.index(3, 4);
    w.fragments(253, QByteArray(700, 'x'), 300);
    return w.take();
}
} // namespace

class tst_Vrk3Parser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splitter();
    void search();
    void records_data();
    void records();
    void anyBytesAnyCut_data();
    void anyBytesAnyCut();
    void everyByte();
    void openString_data();
    void openString();
};

void tst_Vrk3Parser::splitter()
{
    cDataSplitter s;
    int pos = 0;
    QVERIFY_THROWS_EXCEPTION(QString, s.peek_quint32());
    QVERIFY_THROWS_EXCEPTION(QString, s.peek_string());
    s.append(QByteArray("\x01\x02\x03\x04\x05\x41\x42", 7));
    QCOMPARE(s.peek_quint32(), 0x04030201U);
    QCOMPARE(s.get_quint8(pos), quint8(1));
    QCOMPARE(s.get_quint32(pos), 0x05040302U);
    QCOMPARE(s.get_quint16(pos), quint16(0x4241));
    QCOMPARE(s.peek_block(7, 0), QByteArray());
    QVERIFY_THROWS_EXCEPTION(QString, s.get_quint8(pos));
    pos = 6;
    QVERIFY_THROWS_EXCEPTION(QString, s.get_quint16(pos));
    QCOMPARE(pos, 6);
    QVERIFY_THROWS_EXCEPTION(QString, s.peek_string(5));
    QVERIFY_THROWS_EXCEPTION(QString, s.peek_string(7));
    QVERIFY_THROWS_EXCEPTION(QString, s.skip(8));
    s.skip(5);
    s.append(QByteArray("\0\0z", 3));
    pos = 0;
    QCOMPARE(s.get_string(pos), QByteArray("AB\0", 3));
    QCOMPARE(s.get_string(pos), QByteArray("\0", 1));
    QCOMPARE(pos, 4);
    QCOMPARE(s.get_string(), QByteArray("AB\0", 3));
    const QByteArray kept = s.get_block(2);
    s.append("more");
    QCOMPARE(kept, QByteArray("\0z", 2));
    QCOMPARE(s.get_block(4), QByteArray("more"));
    QCOMPARE(s.size(), 0);
    s.skip(0);
}

// Compares the search for a magic with a plain loop, in bytes full of incomplete magics.
void tst_Vrk3Parser::search()
{
    QRandomGenerator random(5);
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes(random.bounded(260), '\xB5');
        for (int i = random.bounded(60); i > 0 && !bytes.isEmpty(); --i)
            bytes[random.bounded(int(bytes.size()))] = i % 3 ? '\x05' : 'x';
        qsizetype wanted = 0;
        while (wanted + 4 <= bytes.size() && !bytes.mid(wanted, 4).startsWith("\xB5\xB5\x05\xB5") &&
               !bytes.mid(wanted, 4).startsWith("\x05\xB5\xB5\xB5"))
            ++wanted;
        cDataSplitter s;
        s.append(bytes);
        const qsizetype limit = random.bounded(300);
        QCOMPARE(s.find_quint32(HDR_MAGIC, IDX_MAGIC, MAGIC_MARK, limit), qMin(wanted, limit));
    }
}

void tst_Vrk3Parser::records_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArrayList>("signalled");
    QTest::addColumn<qint64>("buffered");

    const QByteArray example = QByteArray::fromHex(
        "b5b505b5 1200 0300 5400 fd04 410042004300 015800 05b5b5b5 01000000 02000000 00"
        "0300c0fd 244750");
    const QByteArrayList exampleSignals = {"HDR T%00 253:4:A%00B%00C%00 t1=X%00", "IDX 1 2 ",
                                           "DATA 253:4 fc0 e0,0,0 3 %24GP"};
    const QByteArray table = "253:4:gps%00GPS%00%00 1:1:%00ext%00%00 2:2:%00%00%00 "
                             "3:0:none%00%00%00 5:16:%00%00%00 253:2:second%00%00%00 7:3:%00%00%00";
    QTest::newRow("one of each") << example << exampleSignals << qint64(0);
    QTest::newRow("sound") << _soundArchive()
                           << QByteArrayList{"HDR Title%00 " + table + " t1=again%00 t8=eight%00",
                                             "IDX 1 2 616263",
                                             "DATA 253:4 fc0 e0,0,0 3 %24GP",
                                             "DATA 1:1 fc0 e3000,4,0 5 whole",
                                             "DATA 1:1 fc7 e1,3,9 35 0123456789" +
                                                 QByteArray(20, 'm') + "12345",
                                             "DATA 2:2 fc0 e0,0,0 12 firstB5%B5%B5%05%B5%20",
                                             "DATA 5:16 fff e0,0,0 0 ",
                                             "HDR Second%00 253:4:%00%00%00",
                                             "IDX 3 4 ",
                                             "DATA 253:4 fc0 e0,0,0 700 " + QByteArray(700, 'x')}
                           << qint64(0);
    const QByteArray noise = QByteArray::fromHex("05b5b5b5 b5b5 b5b505 0300c0fd");
    QTest::newRow("bytes before the header") << noise + example << exampleSignals << qint64(0);
    QTest::newRow("no header") << noise << QByteArrayList() << qint64(3);
    QTest::newRow("cut in a block") << example.chopped(1) << exampleSignals.first(2) << qint64(6);

    cArchiveWriter w;
    w.header("", STREAMS);
    w.block(253, "before any group");
    w.index(1, 1);
    w.block(2, "begun", FRAGMENT_FIRST);
    w.block(2, "replaced", FRAGMENT_FIRST);
    w.block(253, "nothing to join", FRAGMENT_MIDDLE);
    w.index(2, 2);
    w.block(2, "too late", FRAGMENT_LAST);
    w.block(7, "type 3 is unknown");
    w.block(253, "not in step");
    w.index(3, 3);
    w.block(3, "type 0 is no stream");
    w.index(4, 4);
    w.block(99, "not in the table");
    QByteArray damaged = w.take();
    const QByteArrayList noData = {"HDR %00 " + table, "IDX 1 1 ", "IDX 2 2 ", "IDX 3 3 ",
                                   "IDX 4 4 "};
    QTest::newRow("damaged") << damaged << noData << qint64(3);

    // The tables and texts of all these records run into the same open string.
    QTest::newRow("nested headers")
        << example +
               QByteArray::fromHex("b5b505b5 0080 0000 5400 b5b505b5 0c00 ff7f 5400")
                   .repeated(900) +
               QByteArray(HDR_STRING_LIMIT + 30'000, '\x03') + example.mid(21)
        << exampleSignals + exampleSignals.mid(1) << qint64(0);
    // Both lengths are 0, so these are not records. The earlier header stays in force.
    const QByteArray empty = QByteArray::fromHex("b5b505b5 00000000");
    QTest::newRow("magics without a zero byte")
        << example + QByteArray::fromHex("b5b505b541414141").repeated(20'000) +
               QByteArray(HDR_STRING_LIMIT, 'x') + example.mid(21)
        << exampleSignals + exampleSignals.mid(1) << qint64(0);
    QTest::newRow("empty header") << empty + empty << QByteArrayList() << qint64(3);
    QTest::newRow("empty header after a good one")
        << example + empty + example.mid(21) << exampleSignals + exampleSignals.mid(1) << qint64(0);
    // The table ends inside the title. An entry that ends after the table is ignored.
    QTest::newRow("texts in the title")
        << QByteArray::fromHex("b5b505b5 0900 0300 7a02 7900 0177 00")
        << QByteArrayList{"HDR z%02y%00 t2=y%00"} << qint64(3);
    QTest::newRow("entry overruns")
        << QByteArray::fromHex("b5b505b5 0c00 0000 5400 fd04 4100 420043 00")
        << QByteArrayList{"HDR T%00"} << qint64(3);
    QTest::newRow("text overruns")
        << QByteArray::fromHex("b5b505b5 0a00 0100 5400 08 313200") + example.mid(21)
        << QByteArrayList{"HDR T%00 t8=12%00", "IDX 1 2 "} << qint64(3);
}

void tst_Vrk3Parser::records()
{
    QFETCH(QByteArray, input);
    QFETCH(QByteArrayList, signalled);
    QFETCH(qint64, buffered);
    for (const CUT cut : {CUT_WHOLE, CUT_BYTES, CUT_RANDOM}) {
        const OUTCOME_T outcome = _parse(input, cut);
        QCOMPARE(outcome.signalled, signalled);
        QCOMPARE(outcome.account.buffered, buffered);
        _checkAccount(outcome, input.size());
    }
}

void tst_Vrk3Parser::anyBytesAnyCut_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 4; ++seed)
        QTest::addRow("%u", seed) << seed * 1000;
}

// How a randomly damaged archive is cut does not affect the result.
void tst_Vrk3Parser::anyBytesAnyCut()
{
    QFETCH(quint32, seed);
    for (const quint32 last = seed + 400; seed < last; ++seed) {
        QRandomGenerator random(seed);
        QByteArray input = _soundArchive().repeated(2);
        for (int i = random.bounded(1, 12); i > 0; --i) {
            const int at = random.bounded(int(input.size()));
            switch (random.bounded(4)) {
            case 0:
                input[at] = char(random.bounded(256));
                break;
            case 1:
                input.remove(at, random.bounded(20));
                break;
            case 2:
                input.insert(at, input.mid(random.bounded(int(input.size())), 30));
                break;
            default:
                input.insert(at, QByteArray::fromHex("b5b505b5"));
                break;
            }
        }
        const OUTCOME_T whole = _parse(input, CUT_WHOLE);
        for (const CUT cut : {CUT_BYTES, CUT_RANDOM}) {
            const OUTCOME_T pieces = _parse(input, cut, seed);
            QVERIFY2(pieces.signalled == whole.signalled, qPrintable(QString("seed %1").arg(seed)));
            const QByteArray where = "seed " + QByteArray::number(seed);
            QVERIFY2(_isSame(pieces.account, whole.account), where);
            _checkAccount(pieces, input.size());
        }
    }
}

// Damage to any byte does not affect what was complete before it.
void tst_Vrk3Parser::everyByte()
{
    const QByteArray archive = _soundArchive();
    const OUTCOME_T sound = _parse(archive, CUT_BYTES);
    for (qsizetype at = 0; at < archive.size(); ++at) {
        QByteArrayList damaged = {archive.first(at), archive.first(at) + archive.mid(at + 1),
                                  archive.first(at + 1) + archive.mid(at)};
        for (int bit = 0; bit < 8; ++bit) {
            damaged += archive;
            damaged.last()[at] = char(archive.at(at) ^ (1 << bit));
        }
        const qsizetype complete =
            std::upper_bound(sound.receivedAt.begin(), sound.receivedAt.end(), at) -
            sound.receivedAt.begin();
        for (const QByteArray &input : std::as_const(damaged)) {
            const OUTCOME_T outcome = _parse(input, CUT_WHOLE);
            QCOMPARE(outcome.signalled.first(qMin(complete, outcome.signalled.size())),
                     sound.signalled.first(complete));
            _checkAccount(outcome, input.size());
        }
    }
}

void tst_Vrk3Parser::openString_data()
{
    QTest::addColumn<int>("closedAt"); // offset of the first zero byte from the magic
    QTest::addColumn<bool>("afterGood");
    for (const bool afterGood : {false, true}) {
        QTest::addRow("last that closes, %d", afterGood) << HDR_STRING_LIMIT - 1 << afterGood;
        QTest::addRow("open too long, %d", afterGood) << HDR_STRING_LIMIT << afterGood;
    }
}

// The parser does not wait for ever for the end of a header string.
void tst_Vrk3Parser::openString()
{
    QFETCH(int, closedAt);
    QFETCH(bool, afterGood);
    const QByteArray good = _soundArchive();
    QByteArray input = afterGood ? good : QByteArray();
    input += QByteArray::fromHex("b5b505b5 0800 0100");
    input += QByteArray(closedAt - 8, 'x') + '\0' + good;
    OUTCOME_T outcome = _parse(input, CUT_WHOLE);
    _checkAccount(outcome, input.size());
    QCOMPARE(_parse(input, CUT_RANDOM).signalled, outcome.signalled);
    const QByteArrayList goodSignals = _parse(good, CUT_WHOLE).signalled;
    if (afterGood)
        outcome.signalled = outcome.signalled.mid(goodSignals.size());
    if (closedAt < HDR_STRING_LIMIT)
        QVERIFY(outcome.signalled.takeFirst().startsWith("HDR xxx"));
    QCOMPARE(outcome.signalled, goodSignals);
}

QTEST_APPLESS_MAIN(tst_Vrk3Parser)
#include "tst_vrk3parser.moc"
