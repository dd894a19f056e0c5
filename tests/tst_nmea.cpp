#include "gps/nmea.h"
#include "sample/receivertext.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <clocale>
#include <cmath>
#include <ctime>

using Records = QList<nmea_data>;

static bool operator==(const nmea_data &a, const nmea_data &b)
{
    const auto same = [](double x, double y) {
        return x == y ? std::signbit(x) == std::signbit(y) : std::isnan(x) && std::isnan(y);
    };
    return a.valid == b.valid && same(a.time, b.time) && same(a.date, b.date) &&
           same(a.lat, b.lat) && same(a.lon, b.lon) && same(a.alt, b.alt) &&
           same(a.speed, b.speed) && same(a.course, b.course);
}

static Records _decode(const QByteArrayList &chunks)
{
    Records records;
    cNmea nmea;
    QObject::connect(&nmea, &cNmea::signal_Data, [&](const nmea_data &n) { records += n; });
    for (const QByteArray &chunk : chunks)
        nmea.slot_Data(chunk);
    if (nmea.account().points != records.size())
        qFatal("the account counts %lld points", nmea.account().points);
    return records;
}

// The same by the plain words of what the decoder does: all text is kept, a pattern is searched in
// it, numbers are read by strtod in the C locale.
static Records _decodePlainly(const QByteArray &text)
{
    static const QRegularExpression pattern(
        "\\$(GPGGA|GPRMC|PGRME)([0-9.,AENMSW+-]+)\\*([0-9ABCDEF]{2})");
    const auto number = [](const QString &s) { return strtod(s.toLatin1().constData(), nullptr); };
    const auto degrees = [&](const QString &s) {
        const QString left = s.size() < 7 ? s : s.left(s.size() - 7);
        return (number(left) * 60 + number(s.right(7))) / 60;
    };
    const auto time = [&](const QString &s) {
        return number(s.left(2)) * 3600 + number(s.mid(2, 2)) * 60 + number(s.mid(4));
    };
    Records records;
    nmea_data fix;
    auto found = pattern.globalMatch(QString::fromLatin1(text).remove(u'\r').remove(u'\n'));
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        int sum = 0;
        for (const QChar c : QString(match.captured(1) + match.captured(2)))
            sum ^= c.unicode();
        QStringList f = match.captured(2).split(u',');
        f.removeFirst();
        const bool rmc = match.captured(1) == u"GPRMC", gga = match.captured(1) == u"GPGGA";
        if (sum != match.captured(3).toInt(nullptr, 16) || (f.size() < 9 && (rmc || gga)))
            continue;
        if (rmc || gga) {
            const int at = rmc ? 2 : 1;
            fix.time = time(f[0]);
            fix.lat = f[at + 1] == u"N" ? degrees(f[at]) : -degrees(f[at]);
            fix.lon = f[at + 3] == u"E" ? degrees(f[at + 2]) : -degrees(f[at + 2]);
        }
        if (gga)
            fix.alt = number(f[8]);
        if (rmc) {
            fix.valid = f[1] == u"A";
            fix.speed = number(f[6]) * KNOTS_TO_MPS;
            fix.course = number(f[7]);
            const QDateTime day =
                QDateTime::fromString(f[8].left(4) + "20" + f[8].right(2), "ddMMyyyy");
            fix.date = day.isValid() ? double(day.toSecsSinceEpoch()) : 4294967295.0;
        }
        if (fix.valid)
            records += fix;
    }
    return records;
}

static QByteArrayList _cut(const QByteArray &text, QRandomGenerator &random, int longest)
{
    QByteArrayList chunks;
    for (qsizetype pos = 0; pos < text.size(); pos += chunks.last().size())
        chunks += text.mid(pos, random.bounded(1, longest + 1));
    return chunks;
}

static const QByteArray RMC = nmeaSentence("GPRMC,123519.50,A,5545.1234,N,03737.0500,E,10.0,84.4,"
                                           "230311,,,A");
static const QByteArray GGA =
    nmeaSentence("GPGGA,123519.50,5545.1234,N,03737.0500,E,1,08,0.9,145.5,M,14.0,M,,");

class tst_Nmea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyCut();
    void whatCounts_data();
    void whatCounts();
    void numbers_data();
    void numbers();
    void dates_data();
    void dates();
    void randomText();
    void endlessText();
};

void tst_Nmea::anyCut()
{
    QVERIFY(RMC.endsWith("*5D\r\n") && GGA.endsWith("*65\r\n"));
    const QByteArray text = RMC + GGA;
    const Records records = _decode({text});
    QCOMPARE(records.size(), 2);
    nmea_data n = records.first();
    QVERIFY(n.valid);
    QCOMPARE(n.time, 45319.5);
    QCOMPARE(n.date, double(QDateTime(QDate(2011, 3, 23), QTime()).toSecsSinceEpoch()));
    QCOMPARE(n.lat, 55.752056666666666);
    QCOMPARE(n.lon, 37.6175);
    QCOMPARE(n.alt, 0.0);
    QCOMPARE(n.speed, 5.14444444);
    QCOMPARE(n.course, 84.4);
    n.alt = 145.5;
    QVERIFY(records.last() == n);
    for (qsizetype i = 0; i <= text.size(); ++i) {
        QVERIFY(_decode({text.first(i), text.sliced(i)}) == records);
        QVERIFY(_decode({QByteArray(text).insert(i, "\n\r")}) == records);
    }
    QVERIFY(_decode({QByteArray(text).replace("\r\n", "")}) == records);
}

void tst_Nmea::whatCounts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("malformed");
    const QByteArray bad = QByteArray(RMC).replace("*5D", "*5C");
    const QByteArray status = "GPRMC,123519.50,%,5545.1234,N,03737.0500,E,10.0,84.4,230311,,,A";
    const auto rmc = [&](const char *s) {
        return nmeaSentence(QByteArray(status).replace("%", s));
    };
    const QByteArray pgrme = nmeaSentence("PGRME,3.1,M,4.2,M,5.3,M");
    QTest::newRow("no fix told") << GGA + GGA + pgrme << 0 << 0;
    QTest::newRow("three kinds") << GGA + RMC + pgrme + GGA << 3 << 0;
    QTest::newRow("unknown between")
        << nmeaSentence("GPGSV,1") + RMC + "$GPGGX,1*00$" + GGA << 2 << 0;
    QTest::newRow("bad checksum") << RMC + bad + GGA << 2 << 0;
    QTest::newRow("lower case checksum") << QByteArray(RMC).replace("*5D", "*5d") + RMC << 1 << 1;
    QTest::newRow("status V is not seen") << RMC + rmc("V") + GGA << 2 << 1;
    QTest::newRow("empty status") << RMC + rmc("") + GGA << 1 << 0;
    QTest::newRow("AA is not A") << rmc("AA") + GGA << 0 << 0;
    QTest::newRow("too few fields") << RMC + nmeaSentence("GPGGA,1,2,N,3,E,1,2") + GGA << 2 << 0;
    QTest::newRow("eight fields") << RMC + nmeaSentence("GPGGA,1,2,N,3,E,1,2,3") + GGA << 2 << 0;
    QTest::newRow("nine fields") << RMC + nmeaSentence("GPGGA,1,2,N,3,E,1,2,3,4") + GGA << 3 << 0;
    QTest::newRow("no field at all") << RMC + nmeaSentence("GPGGA") + GGA << 2 << 1;
    QTest::newRow("cut short") << RMC.first(30) + GGA.first(20) + RMC << 1 << 2;
    QTest::newRow("byte above 0x7F") << RMC + QByteArray(GGA).insert(20, '\xC0') + GGA << 2 << 1;
    QTest::newRow("zero byte") << RMC + QByteArray(1, '\0') + GGA << 1 << 0;
    QTest::newRow("dollars") << "$$$" + RMC + "$" << 1 << 0;
}

void tst_Nmea::whatCounts()
{
    QFETCH(QByteArray, text);
    QFETCH(int, points);
    QFETCH(int, malformed);
    QCOMPARE(_decode({text}).size(), points);
    cNmea nmea;
    nmea.slot_Data(text);
    const NMEA_ACCOUNT_T::counts &m = nmea.account().malformed;
    QCOMPARE(int(m[NMEA_GPGGA] + m[NMEA_GPRMC] + m[NMEA_PGRME]), malformed);
}

void tst_Nmea::numbers_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<double>("asDegrees");
    QTest::addColumn<double>("asAltitude");
    QTest::newRow("usual") << QByteArray("5545.1234") << 55.752056666666666 << 5545.1234;
    QTest::newRow("two decimals") << QByteArray("5545.12") << 5545.12 / 60 << 5545.12;
    QTest::newRow("short") << QByteArray("45.1") << (45.1 * 60 + 45.1) / 60 << 45.1;
    QTest::newRow("empty") << QByteArray() << 0.0 << 0.0;
    QTest::newRow("letters") << QByteArray("EAS") << 0.0 << 0.0;
    QTest::newRow("exponent") << QByteArray("1E2") << 6100.0 / 60 << 100.0;
    QTest::newRow("half an exponent") << QByteArray("1E-") << 61.0 / 60 << 1.0;
    QTest::newRow("signs") << QByteArray("+-5") << 0.0 << 0.0;
    QTest::newRow("plus") << QByteArray("+5.5") << (5.5 * 61) / 60 << 5.5;
    QTest::newRow("longest") << QByteArray("1.5.6") << (1.5 * 61) / 60 << 1.5;
    QTest::newRow("nan") << QByteArray("NAN") << std::nan("") << std::nan("");
    QTest::newRow("huge") << QByteArray("9E999") << HUGE_VAL << HUGE_VAL;
    QTest::newRow("tiny") << QByteArray("9E-999") << 0.0 << 0.0;
}

// Numbers read the same in every locale.
void tst_Nmea::numbers()
{
    QFETCH(QByteArray, field);
    QFETCH(double, asDegrees);
    QFETCH(double, asAltitude);
    for (const char *locale : {"C", "de_DE.UTF-8"}) {
        QVERIFY2(setlocale(LC_ALL, locale), locale);
        const Records records =
            _decode({RMC + nmeaSentence("GPGGA,1," + field + ",N,2,E,1,08,0.9," + field + ",M")});
        setlocale(LC_ALL, "C");
        QCOMPARE(records.size(), 2);
        QCOMPARE(records.last().lat, asDegrees);
        QCOMPARE(records.last().alt, asAltitude);
    }
}

void tst_Nmea::dates_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QDate>("date");
    QTest::newRow("usual") << QByteArray("230311") << QDate(2011, 3, 23);
    QTest::newRow("always this century") << QByteArray("010199") << QDate(2099, 1, 1);
    QTest::newRow("no midnight") << QByteArray("161011") << QDate(2011, 10, 16);
    QTest::newRow("no such day") << QByteArray("300211") << QDate();
    QTest::newRow("empty") << QByteArray() << QDate();
    QTest::newRow("letters") << QByteArray("AAAAAA") << QDate();
}

void tst_Nmea::dates()
{
    QFETCH(QByteArray, field);
    QFETCH(QDate, date);
    for (const char *zone : {"America/Sao_Paulo", "UTC"}) {
        qputenv("TZ", zone);
        tzset();
        const Records records = _decode({nmeaSentence("GPRMC,1,A,2,N,3,E,4,5," + field)});
        QCOMPARE(records.size(), 1);
        const double got = records.first().date;
        if (date.isValid())
            QCOMPARE(QDateTime::fromSecsSinceEpoch(qint64(got)).date(), date);
        else
            QCOMPARE(got, 4294967295.0);
    }
}

// Text of sentences, of parts of sentences and of noise, in any cut, against the plain decoder.
void tst_Nmea::randomText()
{
    const QByteArray letters = "$*,.-+0159AENMSWDVxyz\r\n\x80GPRMC";
    for (quint32 seed = 1; seed <= 1500; ++seed) {
        QRandomGenerator random(seed);
        QByteArray text;
        cReceiverText receiver;
        for (int i = random.bounded(1, 25); i > 0; --i) {
            QByteArray piece = receiver.second();
            QByteArray body;
            for (int k = random.bounded(1, 90); k > 0; --k)
                body += letters[random.bounded(letters.size())];
            const int at = random.bounded(int(piece.size()));
            switch (random.bounded(5)) {
            case 0:
                piece = body;
                break;
            case 1:
                piece.truncate(at);
                break;
            case 2:
                piece[at] = letters[random.bounded(letters.size())];
                break;
            case 3:
                piece = nmeaSentence("GPRMC," + body.replace('$', "").replace('*', ","));
                break;
            default:
                break;
            }
            text += piece;
        }
        const Records wanted = _decodePlainly(text);
        QVERIFY2(_decode({text}) == wanted, qPrintable(QString("seed %1").arg(seed)));
        QVERIFY2(_decode(_cut(text, random, 40)) == wanted,
                 qPrintable(QString("seed %1").arg(seed)));
    }
}

// Megabytes that never match, in small chunks: a decoder that begins anew with each chunk is still
// at it when the test's time is up.
void tst_Nmea::endlessText()
{
    for (const QByteArray begin : {"$GPGGA,", "$GPGSV,", ""}) {
        cNmea nmea;
        nmea.slot_Data(begin);
        for (int i = 0; i < 300'000; ++i)
            nmea.slot_Data("1,2,3,4,5,6,7,8,9,10,11,12,13,\r\n");
        QCOMPARE(nmea.account().points, 0);
    }
}

QTEST_APPLESS_MAIN(tst_Nmea)
#include "tst_nmea.moc"
