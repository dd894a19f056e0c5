#include "archive/vrk3parser.h"
#include "sample/archivewriter.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <utility>

namespace
{
template <typename... T>
QByteArray _join(T... values)
{
    return QByteArrayList{QByteArray::number(qint64(values))...}.join(',');
}

QByteArray _line(const HDR_T &hdr)
{
    QByteArray line = "HDR " + _join(hdr.magic, hdr.hdrLen, hdr.txtLen) + ' ' + hdr.title;
    for (const STREAM_T &s : hdr.streams)
        line += ' ' + _join(s.id, s.type) + ':' + s.textA + s.textB + s.textC;
    line += " texts " + hdr.texts.join('/');
    return line.replace('\0', '|');
}

QByteArray _line(const IDX_T &idx)
{
    return "IDX " + _join(idx.magic, idx.word1, idx.word2) + ' ' + idx.extra;
}

QByteArray _line(const DATA_T &d)
{
    return "DATA " +
           _join(d.streamId, d.stream.id, d.stream.type, d.flags, d.extWord, d.extByte1, d.extByte2,
                 d.size) +
           ' ' + d.payload;
}

// The first number is 0 if the account adds up.
QByteArray _line(const ACCOUNT_T &a)
{
    const qint64 sum =
        a.scanned + a.hdr + a.idx + a.heads + a.delivered + a.lost + a.unfinished + a.buffered;
    QByteArray line =
        _join(a.received - sum, a.scanned, a.hdr, a.idx, a.heads, a.delivered, a.lost, a.unfinished,
              a.buffered, a.stretchCount, a.lostBlocks, a.unfinishedBlocks);
    for (const STRETCH_T &stretch : a.stretches)
        line += ' ' + _join(stretch.offset, stretch.length);
    return line;
}

constexpr int WHOLE = 0;

// Feeds an input in random chunks of up to `longest` bytes. Returns a line for each signal and one
// for the account.
QByteArrayList _parse(const QByteArray &input, int longest, int id = -1, int type = -1)
{
    QByteArrayList lines;
    cVrk3Parser parser;
    parser.deliverOnly(id, type);
    const auto add = [&](const auto &record) { lines += _line(record); };
    QObject::connect(&parser, qOverload<const HDR_T &>(&cVrk3Parser::signal_Data), add);
    QObject::connect(&parser, qOverload<const IDX_T &>(&cVrk3Parser::signal_Data), add);
    QObject::connect(&parser, qOverload<const DATA_T &>(&cVrk3Parser::signal_Data), add);
    QRandomGenerator random(1);
    QByteArray chunk;
    for (qsizetype pos = 0; pos < input.size(); pos += chunk.size()) {
        chunk = input.mid(pos, longest == WHOLE ? input.size() : random.bounded(longest) + 1);
        parser.slot_Data(chunk);
        std::fill(chunk.begin(), chunk.end(), '\xB5'); // the memory may be used again
    }
    parser.slot_Data(QByteArray());
    return lines << _line(parser.account());
}

// Reads HDR and IDX records as the description of the format says, all at once and without
// shortcuts. Returns a line for each of them, and one with the number of bytes skipped.
QByteArrayList _plain(const QByteArray &archive)
{
    QByteArrayList lines;
    QByteArrayView in; // no record is longer, and no string may be open at its end
    qsizetype pos = 0; // an offset in `in`
    const auto take = [&](qsizetype size) {
        if (size > in.size() - pos)
            throw QString();
        return in.sliced(std::exchange(pos, pos + size), size).toByteArray();
    };
    const auto number = [&](auto zero) {
        return qFromLittleEndian<decltype(zero)>(take(sizeof(zero)).constData());
    };
    const auto string = [&] {
        const qsizetype zero = in.indexOf('\0', pos);
        return take(zero < 0 ? in.size() + 1 : zero + 1 - pos);
    };
    HDR_T hdr;
    const auto readHdr = [&] {
        const int hdrLen = number(quint16());
        const int txtLen = number(quint16());
        if (hdrLen + txtLen == 0)
            return false;
        HDR_T h = {HDR_MAGIC, hdrLen, txtLen, string(), {}, QByteArrayList(9)};
        while (pos < hdrLen) {
            const STREAM_T s = {number(quint8()), number(quint8()), string(), string(), string()};
            if (pos <= hdrLen)
                h.streams += s;
        }
        pos = hdrLen;
        while (pos < hdrLen + txtLen) {
            const int tag = number(quint8());
            if (tag >= 1 && tag <= 8)
                h.texts[tag] = string();
        }
        if (pos > in.size())
            throw QString();
        hdr = h;
        return true;
    };
    qint64 skipped = 0;
    bool isGroup = false;
    for (qsizetype start = 0; archive.size() - start >= 4; start += pos) {
        in = QByteArrayView(archive).sliced(start);
        in = in.first(qMin<qsizetype>(131'070, in.size()));
        pos = 0;
        try {
            const quint32 magic = number(quint32());
            const auto stream =
                std::find_if(hdr.streams.cbegin(), hdr.streams.cend(),
                             [&](const STREAM_T &s) { return s.id == magic >> 24; });
            isGroup = isGroup && magic != HDR_MAGIC && magic != IDX_MAGIC &&
                      stream != hdr.streams.cend() && isStreamType(stream->type);
            if (isGroup) {
                take((stream->type == 1 && (magic >> 22 & 2) != 0 ? 4 : 0) + (magic & 0xFFFF));
            } else if (magic == IDX_MAGIC && hdr.magic != 0) {
                lines += _line(
                    IDX_T{magic, number(quint32()), number(quint32()), take(number(quint8()))});
                isGroup = true;
            } else if (magic == HDR_MAGIC && readHdr()) {
                lines += _line(hdr);
            } else {
                pos = 0;
            }
        } catch (const QString &) {
            if (in.size() < 131'070)
                break;
            pos = 0;
        }
        skipped += pos == 0 ? 1 : 0;
        pos = qMax<qsizetype>(1, pos);
    }
    return lines << _join(0, skipped);
}

// Compares the parser with the plain reader, for chunks of all sizes and with and without other
// streams.
void _compare(const QByteArray &input, const QByteArray &where)
{
    const QByteArrayList whole = _parse(input, WHOLE);
    QByteArrayList records = whole;
    records.removeIf([](const QByteArray &line) { return line.startsWith("DATA "); });
    QByteArrayList expected = _plain(input);
    QVERIFY2(records.takeLast().startsWith(expected.takeLast() + ','), where);
    QVERIFY2(records == expected, where);
    const auto only = [&](const QByteArray &stream) {
        QByteArrayList lines = whole;
        lines.removeIf([&](const QByteArray &line) {
            return line.startsWith("DATA ") && !line.startsWith("DATA " + stream);
        });
        return lines;
    };
    for (const int longest : {WHOLE, input.size() < 5000 ? 1 : 2000, 90'000}) {
        QVERIFY2(_parse(input, longest) == whole, where);
        QVERIFY2(_parse(input, longest, 253, 4) == only("253,253,4,"), where);
        QVERIFY2(_parse(input, longest, 2) == only("2,2,"), where);
    }
}

const QList<ARCHIVESTREAM_T> STREAMS = {{253, 4, "gps", "GPS", ""}, {1, 1, "", "ext", ""},
                                        {2, 2, "", "", ""},         {3, 0, "none", "", ""},
                                        {5, 16, "", "", ""},        {253, 2, "second", "", ""},
                                        {7, 3, "", "", ""}};

QByteArray _soundArchive()
{
    cArchiveWriter w;
    w.header("Title", STREAMS, {{1, "one"}, {0}, {8, "eight"}, {9}, {1, "again"}});
    w.index(0x01020304, 0x05060708, "abc");
    w.block(253, "$GP");
    w.block(1, "0123456789", FRAGMENT_FIRST, 5, {3001, 3, 9});
    w.block(2, "first", FRAGMENT_FIRST);
    w.block(1, "mmmm", FRAGMENT_MIDDLE);
    w.block(1, "whole", FRAGMENT_WHOLE, 0, {3000, 4, 0});
    w.block(1, "12345", FRAGMENT_LAST, 7);
    w.block(2, "B5\xB5\xB5\x05\xB5 ", FRAGMENT_LAST);
    w.block(5, "", FRAGMENT_WHOLE, 0x3F);
    w.header("Second", {{253, 4}});
    w.index(3, 4);
    w.fragments(253, QByteArray(70, 'x'), 30);
    return w.take();
}

// Returns headers whose tables and texts run into each other and into strings near the limit.
QByteArray _nestedHeaders(QRandomGenerator &random)
{
    const auto of = [&](const QByteArrayList &values) {
        return values.at(random.bounded(int(values.size())));
    };
    const auto length = [&] { // little-endian
        return of({"\xFF", "\x90", "\x09"}) + of({"\xFF", "\x90", QByteArray(1, '\0')});
    };
    const auto filler = [&](int size, int zeros) { // about every zeros-th byte is zero or a tag
        QByteArray bytes = of({"x", "x", "\x05"}).repeated(size);
        for (int i = zeros; i < size; i += 1 + random.bounded(2 * zeros))
            bytes[i] = QByteArray("\0\0\7\x09\xB5", 5).at(random.bounded(5));
        return bytes;
    };
    QByteArray input = of({_soundArchive(), ""});
    for (int parts = 1 + random.bounded(3); parts > 0; --parts) {
        const int zeros = QList{1, 3, 30, 30'000}.at(random.bounded(4));
        for (int i = random.bounded(300); i > 0; --i)
            input += "\xB5\xB5\x05\xB5" + length() + length() + filler(random.bounded(12), zeros);
        input += filler(random.bounded(60'000), QList{1, 20, 2'000}.at(random.bounded(3))) +
                 of({"", filler(120'000, 30'000), QByteArray(131'070, 'z')}) + _soundArchive();
    }
    return input;
}
} // namespace

class tst_Vrk3Parser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splitter();
    void records();
    void damage();
    void everyByte();
    void nestedHeaders();
    void openStrings();
};

// The functions that the parser does not use.
void tst_Vrk3Parser::splitter()
{
    cDataSplitter s;
    int pos = 0;
    QVERIFY_THROWS_EXCEPTION(QString, s.peek_string());
    s.append(QByteArray("\x01\x02\x03\x04\x41\0", 6));
    QCOMPARE(s.peek_block(6, 0), QByteArray());
    QVERIFY_THROWS_EXCEPTION(QString, s.peek_block(5, 2));
    QVERIFY_THROWS_EXCEPTION(QString, s.get_quint32(pos = 3));
    QVERIFY_THROWS_EXCEPTION(QString, s.skip(7));
    QCOMPARE(s.get_block(pos, 1), "\x04");
    QCOMPARE(pos, 4);
    const QByteArray kept = s.get_block(4);
    s.append("more");
    QCOMPARE(kept, "\x01\x02\x03\x04");
    QCOMPARE(s.get_string(), QByteArray("A\0", 2));
    QCOMPARE(s.bytes(), "more");
}

void tst_Vrk3Parser::records()
{
    const QByteArray first =
        "HDR 3037050293,68,21 Title| 253,4:gps|GPS|| 1,1:|ext|| 2,2:||| 3,0:none||| 5,16:||| "
        "253,2:second||| 7,3:||| texts /again|///////eight|";
    const QByteArrayList sound = {first,
                                  "IDX 3048584453,16909060,84281096 abc",
                                  "DATA 253,253,4,192,0,0,0,3 $GP",
                                  "DATA 1,1,1,192,3000,4,0,5 whole",
                                  "DATA 1,1,1,199,1,3,9,19 0123456789mmmm12345",
                                  "DATA 2,2,2,192,0,0,0,12 firstB5\xB5\xB5\x05\xB5 ",
                                  "DATA 5,5,16,255,0,0,0,0 ",
                                  "HDR 3037050293,20,0 Second| 253,4:||| texts ////////",
                                  "IDX 3048584453,3,4 ",
                                  "DATA 253,253,4,192,0,0,0,70 " + QByteArray(70, 'x'),
                                  "0,0,109,29,52,109,0,0,0,0,0,0"};
    QCOMPARE(_parse(_soundArchive(), WHOLE), sound);

    cArchiveWriter w;
    w.rawBytes("noise");
    w.header("", STREAMS);
    w.block(253, "before any group");
    w.index(1, 1);
    w.block(2, "begun", FRAGMENT_FIRST);
    w.block(2, "replaced", FRAGMENT_FIRST);
    w.block(253, "nothing to join", FRAGMENT_MIDDLE);
    w.index(2, 2);
    w.block(2, "too late", FRAGMENT_LAST);
    w.block(5, "unfinished", FRAGMENT_FIRST);
    w.block(5, "!", FRAGMENT_MIDDLE);
    const QByteArray unfinished = w.bytes();
    w.block(7, "type 3 is unknown");
    w.block(253, "out of step");
    QCOMPARE(_parse(unfinished + "\5", 1).last(), "0,25,63,26,24,0,36,11,1,2,4,1 0,5 68,20");
    QCOMPARE(_parse(w.take(), WHOLE, 253, 4).last(),
             "0,58,63,26,24,0,36,11,3,3,4,1 0,5 68,20 185,33");
}

void tst_Vrk3Parser::damage()
{
    const QByteArray pieces = QByteArray::fromHex(
        "b5b505b500000000 05b5b5b5000000000000000000 b5b505b50000000002 00000003 0100c007 0000c0fe"
        "b5b505b509000300 7a0279000177 b5b505b50c000000 5400fd044100420043");
    for (quint32 seed = 0; seed < 1000; ++seed) {
        QRandomGenerator random(seed);
        QByteArray input = _soundArchive().repeated(2);
        for (int i = random.bounded(1, 12); i > 0; --i) {
            const int at = random.bounded(int(input.size()));
            input.insert(at, pieces.mid(random.bounded(60), random.bounded(20)));
            input.remove(random.bounded(int(input.size())), random.bounded(20));
            input[random.bounded(int(input.size()))] = char(random.bounded(256));
        }
        _compare(input, "seed " + QByteArray::number(seed));
    }
}

// Damage to any byte does not affect what was complete before it.
void tst_Vrk3Parser::everyByte()
{
    const QByteArray archive = _soundArchive();
    const QByteArrayList sound = _parse(archive, WHOLE);
    for (qsizetype at = 0; at < archive.size(); ++at) {
        QByteArrayList damaged = {archive.first(at), archive.first(at) + archive.mid(at + 1),
                                  archive.first(at + 1) + archive.mid(at)};
        for (int bit = 1; bit < 256; bit *= 2)
            damaged += archive.first(at) + char(archive.at(at) ^ bit) + archive.mid(at + 1);
        const qsizetype complete = _parse(archive.first(at), 1).size() - 1;
        for (const QByteArray &input : std::as_const(damaged)) {
            const QByteArrayList lines = _parse(input, WHOLE);
            QCOMPARE(lines.first(complete), sound.first(complete));
            QVERIFY(lines.last().startsWith("0,"));
        }
    }
}

void tst_Vrk3Parser::nestedHeaders()
{
    for (quint32 seed = 0; seed < 40; ++seed) {
        QRandomGenerator random(seed);
        _compare(_nestedHeaders(random), "seed " + QByteArray::number(seed));
    }
}

// Strings that end just before or after the limit.
void tst_Vrk3Parser::openStrings()
{
    for (const char *const start : {"0800 0100", "1000 0000 00 0101 00", "1000 0000 00 0101 0000",
                                    "0900 0300 00 00 05", "ffff ffff 00"}) {
        for (int size = HDR_STRING_LIMIT - 1; size <= HDR_STRING_LIMIT + 1; ++size) {
            QByteArray input = QByteArray::fromHex("b5b505b5") + QByteArray::fromHex(start);
            input = input.leftJustified(size - 1, 'x') + '\0' + _soundArchive();
            _compare(input, start);
            _compare(_soundArchive() + input, start);
        }
    }
}

QTEST_APPLESS_MAIN(tst_Vrk3Parser)
#include "tst_vrk3parser.moc"
