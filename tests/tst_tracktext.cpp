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
    void numbers();
    void line();
    void clock();
    void nearest();
};

// Every number has the same bytes as with Qt's own formatting.
void tst_TrackText::numbers()
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    QList<double> values = {0.0,         0.05,     0.15,        0.9999995,         0.99999949999999,
                            4.9e-324,    2.2e-308, 5e-7,        4.9999999e-7,      1e-80,
                            179.9999995, 1e15,     1e22,        8796093022207.999, 8796093022208.0,
                            1e300,       inf,      std::nan("")};
    QRandomGenerator random(20110323);
    for (int i = 0; i < 100'000; ++i) {
        values << random.generateDouble() * 360                                 // degrees
               << std::ldexp(random.generateDouble(), random.bounded(-90, 60)); // any size
        // Ties: halves, quarters and so on of the last decimal.
        values << double(random.generate64() >> 21) / double(1 << random.bounded(31));
        if (i % 100 == 0)
            values << std::bit_cast<double>(random.generate64());
    }
    cTrackLine line;
    for (const double positive : std::as_const(values)) {
        for (const double value : {positive, -positive}) {
            for (const auto &[width, decimals] :
                 {std::pair(7, 6), std::pair(5, 6), std::pair(0, 1)})
                QCOMPARE(line.begin().number(value, width, decimals).bytes(),
                         QString("%0").arg(value, width, 'f', decimals).toLatin1());
        }
    }
}

void tst_TrackText::line()
{
    cTrackLine line;
    QCOMPARE(line.begin().digits(0, 2).digits(7, 2).digits(59, 2).digits(2011, 4).bytes(),
             "0007592011");
    const QByteArray kept = line.bytes();
    // Longer than the memory that a line has at first.
    const QByteArray text(1000, 'a');
    QCOMPARE(line.begin().text(text).text("").text(text).number(1, 0, 1).bytes(),
             text + text + "1.0");
    QCOMPARE(kept, "0007592011");
}

// Local time is the same as QDateTime's.
void tst_TrackText::clock()
{
    for (const char *zone :
         {"UTC", "America/Sao_Paulo", "Australia/Lord_Howe", "Africa/Monrovia"}) {
        qputenv("TZ", zone);
        tzset();
        QRandomGenerator random(7);
        for (int i = 0; i < 20'000; ++i) {
            const auto second = random.bounded(qint64(-1'230'000'000), qint64(4'070'000'000));
            const std::optional<CIVIL_T> c = localTime(second);
            QVERIFY(c);
            const QDateTime wanted = QDateTime::fromSecsSinceEpoch(second);
            QCOMPARE(QDate(c->year, c->month, c->day), wanted.date());
            QCOMPARE(QTime(c->hour, c->minute, c->second), wanted.time());
        }
        QVERIFY(localTime(-62135510400) && localTime(253402214400));
        QVERIFY(!localTime(-62135510401) && !localTime(253402214401));
    }
}

void tst_TrackText::nearest()
{
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    const auto second = [](double date, double time) {
        nmea_data n;
        n.date = date;
        n.time = time;
        return nearestSecond(n);
    };
    QCOMPARE(second(4294967295.0, 0.49), 4294967295);
    QCOMPARE(second(86400, 45319.5), 131720);
    QCOMPARE(second(0, std::nan("")), 0);
    for (const double time : {1e300, 0x1p63, std::numeric_limits<double>::infinity()}) {
        QCOMPARE(second(0, time), most);
        QCOMPARE(second(0, -time), -most - 1);
    }
}

QTEST_APPLESS_MAIN(tst_TrackText)
#include "tst_tracktext.moc"
