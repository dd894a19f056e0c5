#include "gps/tracktext.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QTest>

#include <bit>
#include <cmath>
#include <ctime>
#include <limits>

class tst_TrackText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void digits();
    void clock_data();
    void clock();
    void insaneSeconds();
};

static void _compare(cTrackLine &line, double value)
{
    for (const auto &[width, decimals] : {std::pair(5, 6), std::pair(7, 6), std::pair(0, 1)}) {
        const QByteArray got = line.begin().number(value, width, decimals).bytes();
        // -1 stands for six decimals, as ever.
        const QByteArray wanted =
            QString("%0").arg(value, width, 'f', decimals == 6 ? -1 : decimals).toLatin1();
        if (got != wanted)
            QFAIL(qPrintable(QString("%1 (bits %2): got %3, Qt gives %4")
                                 .arg(value, 0, 'g', 17)
                                 .arg(std::bit_cast<quint64>(value), 16, 16)
                                 .arg(QString(got), QString(wanted))));
    }
}

void tst_TrackText::numbers_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("awkward") << 0;
    QTest::newRow("degrees") << 1;
    QTest::newRow("ties") << 2;
    QTest::newRow("any bits") << 3;
    QTest::newRow("any size") << 4;
}

// Numbers read, to the byte, as Qt's own formatting has them.
void tst_TrackText::numbers()
{
    QFETCH(int, kind);
    cTrackLine line;
    if (kind == 0) {
        constexpr auto inf = std::numeric_limits<double>::infinity();
        const double awkward[] = {0.0,
                                  145.25,
                                  0.05,
                                  0.15,
                                  0.25,
                                  0.5,
                                  0.9999995,
                                  0.99999949999999,
                                  4.9e-324,
                                  2.2e-308,
                                  5e-7,
                                  4.9999999e-7,
                                  1e-80,
                                  179.9999995,
                                  8796093022207.999,
                                  8796093022208.0,
                                  1e15,
                                  9007199254740993.0,
                                  1e22,
                                  1e300,
                                  1.7976931348623157e308,
                                  inf,
                                  std::numeric_limits<double>::quiet_NaN()};
        for (const double value : awkward) {
            _compare(line, value);
            _compare(line, -value);
        }
        return;
    }
    QRandomGenerator random(20110323U + quint32(kind));
    for (int i = 0; i < (kind == 3 ? 10'000 : 1'000'000) && !QTest::currentTestFailed(); ++i) {
        double value = 0;
        if (kind == 1)
            value = random.generateDouble() * 360 - 180;
        else if (kind == 2) // halves, quarters ... of the last decimal
            value = double(qint64(random.generate64() >> 20) - (qint64(1) << 43)) /
                    double(1 << random.bounded(31));
        else if (kind == 3)
            value = std::bit_cast<double>(random.generate64());
        else
            value = std::ldexp(random.generateDouble() - 0.5, random.bounded(-90, 50));
        _compare(line, value);
    }
}

void tst_TrackText::digits()
{
    cTrackLine line;
    line.begin().digits(0, 2).digits(7, 2).digits(59, 2).digits(100, 2).digits(2011, 4);
    QCOMPARE(line.digits(99, 4).digits(12, 1).digits(1234, 1).bytes(), "0007591002011009912"
                                                                       "1234");
    const QByteArray kept = line.bytes();
    line.begin().text(QByteArray(1000, 'a')).text("");
    QCOMPARE(line.bytes(), QByteArray(1000, 'a'));
    QCOMPARE(kept.first(4), "0007");
}

void tst_TrackText::clock_data()
{
    QTest::addColumn<QByteArray>("zone");
    for (const char *zone : {"UTC", "Europe/Moscow", "America/Sao_Paulo", "Asia/Kathmandu",
                             "Australia/Lord_Howe", "Africa/Monrovia", "America/New_York"})
        QTest::newRow(zone) << QByteArray(zone);
}

// Times read as Qt's own have them, also about every change of the clocks.
void tst_TrackText::clock()
{
    QFETCH(QByteArray, zone);
    qputenv("TZ", zone);
    tzset();
    cLocalClock clock;
    QRandomGenerator random(7);
    for (int i = 0; i < 6000; ++i) {
        // 16 October 2011, 03:00 UTC: no midnight in Sao Paulo. The others: from 1931 to 2099.
        qint64 second = i % 8 == 0 ? 1318734000 + random.bounded(-9000, 9000)
                                   : qint64(random.bounded(5'300'000'000.0)) - 1'230'000'000;
        for (int step = 0; step < 8; ++step, second += random.bounded(-2, 700)) {
            const cLocalClock::CIVIL *const c = clock.civil(second);
            QVERIFY(c);
            const QDateTime wanted = QDateTime::fromSecsSinceEpoch(second);
            const QDateTime got(QDate(c->year, c->month, c->day),
                                QTime(c->hour, c->minute, c->second), Qt::UTC);
            if (got.date() != wanted.date() || got.time() != wanted.time())
                QFAIL(qPrintable(QString("%1: %2").arg(second).arg(got.toString())));
        }
    }
}

void tst_TrackText::insaneSeconds()
{
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    cLocalClock clock;
    for (const double time : {1e300, std::numeric_limits<double>::infinity()}) {
        nmea_data n;
        n.time = time;
        QCOMPARE(nearestSecond(n), most);
        n.time = -time;
        QCOMPARE(nearestSecond(n), -most - 1);
        QVERIFY(!clock.civil(nearestSecond(n)));
    }
    nmea_data n;
    n.date = 4294967295.0;
    QCOMPARE(nearestSecond(n), 4294967295);
    n.time = std::nan("");
    QCOMPARE(nearestSecond(n), 0);
    n = nmea_data();
    n.time = 45319.5;
    QCOMPARE(nearestSecond(n), 45320);
    QVERIFY(clock.civil(253402214400) && !clock.civil(253402214401) && !clock.civil(most));
}

QTEST_APPLESS_MAIN(tst_TrackText)
#include "tst_tracktext.moc"
