#include "gps/gpschain.h"
#include "sample/archivewriter.h"
#include "sample/receivertext.h"

#include <QTest>

// One small sound archive, damaged in every way at every byte. Whatever the damage, the run ends,
// and all that was finished ahead of it is in the output.

class cCollector : public QObject
{
    Q_OBJECT

public:
    QByteArray bytes;

public Q_SLOTS:
    void slot_Data(const QByteArray &a) { bytes += a; }
};

// A format: its filter, and how the file's points are told from the rest of it.
struct FORMAT_T {
    const char *filter;
    const char *begin; // the points come behind this text,
    char close;        // each of them ends with this byte,
    const char *end;   // and what follows them begins like this
};
static const FORMAT_T FORMATS[] = {{"(*.gpx)", "<trkseg>\r\n", '\n', "\t</trkseg>"},
                                   {"(*.plt)", ",0\r\n", '\n', ""},
                                   {"(*.kml)", "<coordinates>", ' ', "</coordinates>"}};

static QByteArray _convert(const QByteArray &archive, const char *filter)
{
    cCollector collector;
    {
        cGpsChain chain(QString::fromLatin1(filter), &collector);
        chain.parser().slot_Data(archive);
    }
    return collector.bytes;
}

// The points of a track file.
static QByteArrayList _points(const QByteArray &file, const FORMAT_T &format)
{
    const qsizetype begin = file.indexOf(format.begin);
    if (begin < 0)
        return {};
    QByteArray points = file.mid(begin + qsizetype(qstrlen(format.begin)));
    if (*format.end)
        points.truncate(points.indexOf(format.end));
    QByteArrayList list = points.split(format.close);
    list.removeLast(); // behind the last closing byte there is nothing
    if (QByteArray(format.filter) == "(*.plt)")
        list.removeFirst(); // the count
    return list;
}

class tst_EveryByte : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void damage_data();
    void damage();

private:
    QByteArray m_archive;
    // For each length of the archive's beginning, the receiver text of the logical blocks that are
    // finished in it, and how many points that text has.
    QByteArrayList m_textAt;
    QList<qsizetype> m_pointsAt;
};

void tst_EveryByte::initTestCase()
{
    cReceiverText receiver;
    cArchiveWriter w;
    QByteArray text;
    const auto finished = [&](const QByteArray &more) {
        while (m_textAt.size() < w.bytes().size())
            m_textAt += text;
        text += more;
    };
    w.header("T", {{253, 4, "", "g", ""}, {1, 1, "", "e", ""}}, {{1, "x"}});
    w.index(1, 2, "ee");
    for (int group = 0; group < 2; ++group) {
        const QByteArray a = receiver.second();
        const QByteArray b = receiver.second();
        w.block(253, a);
        finished(a);
        w.block(253, b.first(20), FRAGMENT_FIRST);
        w.block(1, "other", FRAGMENT_WHOLE, 0, {3000, 3, 1});
        w.block(253, b.mid(20), FRAGMENT_LAST);
        finished(b);
        w.index(3, 4);
    }
    finished({});
    m_archive = w.take();
    m_textAt += text;
    for (const QByteArray &head : std::as_const(m_textAt)) {
        cArchiveWriter sound;
        sound.header("T", {{253, 4}});
        sound.index(0, 0);
        sound.block(253, head);
        m_pointsAt += _points(_convert(sound.take(), FORMATS[0].filter), FORMATS[0]).size();
    }
    QCOMPARE(_convert(m_archive, "(*.txt)"), text);
    QCOMPARE(m_pointsAt.last(), 8);
}

void tst_EveryByte::damage_data()
{
    QTest::addColumn<int>("kind");
    for (int bit = 0; bit < 8; ++bit)
        QTest::addRow("bit %d flipped", bit) << bit;
    QTest::newRow("removed") << 8;
    QTest::newRow("doubled") << 9;
    QTest::newRow("cut") << 10;
}

void tst_EveryByte::damage()
{
    QFETCH(int, kind);
    QList<QByteArrayList> sound;
    for (const FORMAT_T &format : FORMATS)
        sound += _points(_convert(m_archive, format.filter), format);
    for (qsizetype at = 0; at < m_archive.size(); ++at) {
        QByteArray archive = m_archive;
        if (kind < 8)
            archive[at] = char(archive[at] ^ (1 << kind));
        else if (kind == 8)
            archive.remove(at, 1);
        else if (kind == 9)
            archive.insert(at, archive[at]);
        else
            archive.truncate(at);
        const QByteArray where = "at byte " + QByteArray::number(at);
        QVERIFY2(_convert(archive, "(*.txt)").startsWith(m_textAt[at]), where);
        for (size_t i = 0; i < std::size(FORMATS); ++i) {
            const QByteArrayList points = _points(_convert(archive, FORMATS[i].filter), FORMATS[i]);
            const qsizetype safe = m_pointsAt[at];
            QVERIFY2(points.mid(0, safe) == sound[qsizetype(i)].mid(0, safe), where);
        }
    }
}

QTEST_APPLESS_MAIN(tst_EveryByte)
#include "tst_everybyte.moc"
