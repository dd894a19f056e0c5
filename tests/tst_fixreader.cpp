#include "sample/receivertext.h"
#include "track/fixreader.h"

#include <QDateTime>
#include <QDir>
#include <QMultiMap>
#include <QRegularExpression>
#include <QTest>

#include <cmath>
#include <functional>
#include <numeric>

using namespace Qt::StringLiterals;

namespace
{
QList<FIX_T> _read(const QByteArrayList &chunks)
{
    QList<FIX_T> fixes;
    cFixReader reader;
    QObject::connect(&reader, &cFixReader::signal_Data, [&](const FIX_T &fix) { fixes += fix; });
    for (const QByteArray &chunk : chunks)
        reader.slot_Data(chunk);
    reader.finish();
    return fixes;
}

// Returns the fixes, one per line, with only the values that they have.
QStringList _lines(const QList<FIX_T> &fixes)
{
    QStringList lines;
    for (const FIX_T &fix : fixes) {
        QString line = u"no time"_s;
        if (fix.clock != FIX_CLOCK::NONE)
            line =
                QDateTime::fromMSecsSinceEpoch(fix.time, Qt::UTC).toString("yyyyMMdd hh:mm:ss.zzz");
        if (fix.clock == FIX_CLOCK::TIME_OF_DAY)
            line.replace(0, 8, u"day %1"_s.arg(fix.time / MS_PER_DAY));
        if (line.startsWith(u"20"))
            line.remove(0, 2);
        line += u" %1 %2"_s.arg(fix.lat, 0, 'f', 8).arg(fix.lon, 0, 'f', 8);
        const auto add = [&line](const char *name, double value, double none) {
            if (!std::isnan(value) && value != none)
                line += u" %1 %2"_s.arg(QLatin1StringView(name)).arg(value);
        };
        add("alt", fix.altitude, HUGE_VAL);
        add("speed", fix.speed, HUGE_VAL);
        add("course", fix.course, HUGE_VAL);
        add("hdop", fix.hdop, HUGE_VAL);
        add("sat", fix.satellites, -1);
        add("repeat", fix.repeat, 0);
        add("kind", int(fix.kind), 0);
        lines += line;
    }
    return lines;
}

// Returns the positions in the sentences of a text, by their seconds.
QMultiMap<QTime, QGeoCoordinate> _declared(const QByteArray &text)
{
    QMultiMap<QTime, QGeoCoordinate> places;
    const QRegularExpression form(R"(\$(..(RMC|GGA|GLL),[^*$\r\n]*)\*([0-9A-F]{2}))");
    for (const auto &match : form.globalMatch(QString::fromLatin1(text))) {
        const QByteArray sentence = match.captured(1).toLatin1();
        const QStringList field = match.captured(1).split(u',');
        const int at = match.captured(2) == u"RMC" ? 3 : match.captured(2) == u"GGA" ? 2 : 1;
        const int sum = std::accumulate(sentence.begin(), sentence.end(), 0, std::bit_xor<>());
        if (sum != match.captured(3).toInt(nullptr, 16) || field.value(at).isEmpty() ||
            u"V0"_s.contains(field.value(at == 3 ? 2 : 6)))
            continue;
        const auto degrees = [&field](int i) {
            const double value = field[i].toDouble(), whole = std::floor(value / 100);
            return (whole + (value - whole * 100) / 60) * (u"SW"_s.contains(field[i + 1]) ? -1 : 1);
        };
        places.insert(QTime::fromString(field[at == 1 ? 5 : 1].left(6), "hhmmss"),
                      {degrees(at), degrees(at + 2)});
    }
    return places;
}

// Returns true if each of these places is within a metre of one of those.
bool _areNear(const QList<QGeoCoordinate> &these, const QList<QGeoCoordinate> &those)
{
    return std::all_of(these.begin(), these.end(), [&](const QGeoCoordinate &a) {
        return std::any_of(those.begin(), those.end(),
                           [&](const QGeoCoordinate &b) { return a.distanceTo(b) < 1; });
    });
}
} // namespace

class tst_FixReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void limits();
    void receiverLogs();
};

void tst_FixReader::texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("fixes");
    QFile file(QFINDTESTDATA("fixes.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray position = "5545.1234,N,03737.0500,E";
    const QByteArray sentence = "$GPRMC,120107.5,A," + position + ",10.8,84.4,230311,,,A*6D";
    const QStringList cases = QString::fromLatin1(file.readAll()).trimmed().split(u"\n\n"_s);
    for (const QString &lines : cases.sliced(1)) {
        QByteArray text;
        QStringList fixes;
        for (const QString &line : lines.split(u'\n').sliced(1)) {
            QByteArray bytes = line.sliced(1).toLatin1().replace('@', position);
            if (line.startsWith(u'$')) {
                text += nmeaSentence(bytes);
            } else if (line.startsWith(u'<')) {
                bytes.replace('&', sentence);
                for (qsizetype i; (i = bytes.indexOf('\\')) >= 0;)
                    bytes.replace(i, 3, QByteArray::fromHex(bytes.sliced(i + 1, 2)));
                text += bytes;
            } else {
                fixes += QString(line).replace(u'@', u"55.75205667 37.61750000"_s);
            }
        }
        QTest::newRow(qPrintable(lines.section(u'\n', 0, 0))) << text << fixes;
    }
}

void tst_FixReader::texts()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, fixes);
    QCOMPARE(_lines(_read({text})), fixes);
    for (qsizetype i = 0; i <= text.size(); ++i)
        QCOMPARE(_lines(_read({text.first(i), text.sliced(i)})), fixes);
}

// A sentence is at most a kilobyte long. Fixes without a date are kept only up to a limit.
void tst_FixReader::limits()
{
    const QByteArray gll = "GPGLL,5545.1234,N,03737.0500,E,120108,A";
    for (const int length : {1024, 1025})
        QCOMPARE(_read({nmeaSentence(gll + QByteArray(length - 4 - gll.size(), ','))}).size(),
                 length == 1024);
    QList<FIX_T> fixes;
    cFixReader reader;
    QObject::connect(&reader, &cFixReader::signal_Data, [&](const FIX_T &fix) { fixes += fix; });
    for (qsizetype i = 0; i < cFixDater::MAX_WAITING + 10; ++i)
        reader.slot_Data(
            nmeaSentence("GPGLL,5545.1234,N,03737.0500,E," + QByteArray::number(i % 60) + ",A"));
    QCOMPARE(fixes.size(), cFixDater::MAX_WAITING);
}

// Exactly the positions that a receiver has sent are found.
void tst_FixReader::receiverLogs()
{
    const QDir folder(qEnvironmentVariable("VRKTRK_LOGS"));
    if (folder.path() == u".")
        QSKIP("VRKTRK_LOGS is not set");
    const QFileInfoList logs = folder.entryInfoList({"*.log"});
    QVERIFY(!logs.isEmpty());
    for (const QFileInfo &log : logs) {
        QFile file(log.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        const QMultiMap<QTime, QGeoCoordinate> declared = _declared(text);
        QMultiMap<QTime, QGeoCoordinate> found;
        for (const FIX_T &fix : _read({text}))
            found.insert(QTime::fromMSecsSinceStartOfDay(int(fix.time % MS_PER_DAY / 1000 * 1000)),
                         {fix.lat, fix.lon});
        QCOMPARE(found.uniqueKeys(), declared.uniqueKeys());
        for (const QTime &time : found.uniqueKeys())
            QVERIFY2(_areNear(found.values(time), declared.values(time)) &&
                         _areNear(declared.values(time), found.values(time)),
                     qPrintable(log.fileName() + time.toString()));
    }
}

QTEST_APPLESS_MAIN(tst_FixReader)
#include "tst_fixreader.moc"
