#include "gps/nmea.h"
#include "sample/receivertext.h"

#include <QDateTime>
#include <QLocale>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

#include <clocale>
#include <cmath>

namespace
{
// Returns a record as text. Equal texts mean equal numbers.
QString _text(const nmea_data &n)
{
    QString text = n.valid ? "A" : "V";
    for (const double x : {n.time, n.date, n.lat, n.lon, n.alt, n.speed, n.course})
        text += (std::signbit(x) && !std::isnan(x) ? " -" : " ") +
                QString::number(std::fabs(x), 'g', QLocale::FloatingPointShortest);
    return text;
}

QString _text(const NMEA_ACCOUNT_T &account)
{
    QString text = QString("%1 points").arg(account.points);
    for (const auto &counts :
         {account.accepted, account.badChecksum, account.tooFewFields, account.malformed})
        text += QString(", %1 %2 %3").arg(counts[0]).arg(counts[1]).arg(counts[2]);
    return text;
}

// Returns the records and the account as text. ctest also sets a locale with a decimal comma, which
// must not matter.
QStringList _decode(const QByteArrayList &chunks)
{
    QStringList result;
    cNmea nmea;
    QObject::connect(&nmea, &cNmea::signal_Data, [&](const auto &n) { result += _text(n); });
    if (!setlocale(LC_NUMERIC, ""))
        qFatal("the locale is missing");
    for (const QByteArray &chunk : chunks)
        nmea.slot_Data(chunk);
    setlocale(LC_NUMERIC, "C");
    return result << _text(nmea.account());
}

// Does the same in the simplest way: it searches the whole text for a pattern, and strtod reads
// numbers.
QStringList _decodePlainly(const QByteArray &bytes)
{
    static const QRegularExpression name("\\$(GPGGA|GPRMC|PGRME)");
    static const QRegularExpression sentence(name.pattern() +
                                             "([0-9.,AENMSW+-]+)\\*([0-9ABCDEF]{2})");
    static const QRegularExpression unfinished(
        name.pattern() + "([0-9.,AENMSW+-]*|[0-9.,AENMSW+-]+\\*[0-9ABCDEF]?)\\z");
    const auto kindOf = [](const QRegularExpressionMatch &match) {
        return size_t(std::find(NMEA_NAMES.begin(), NMEA_NAMES.end(), match.captured(1)) -
                      NMEA_NAMES.begin());
    };
    const auto number = [](const QString &s) { return strtod(s.toLatin1().constData(), nullptr); };
    const auto degrees = [&](const QString &s) {
        const QString left = s.size() < 7 ? s : s.left(s.size() - 7);
        return (number(left) * 60 + number(s.right(7))) / 60;
    };
    const auto time = [&](const QString &s) {
        return number(s.left(2)) * 3600 + number(s.mid(2, 2)) * 60 + number(s.mid(4));
    };
    QStringList result;
    NMEA_ACCOUNT_T account;
    const QString text = QString::fromLatin1(bytes).remove(u'\r').remove(u'\n');
    for (const auto &match : name.globalMatch(text))
        ++account.malformed[kindOf(match)];
    for (const auto &match : unfinished.globalMatch(text))
        --account.malformed[kindOf(match)];
    nmea_data fix;
    for (const auto &match : sentence.globalMatch(text)) {
        const size_t kind = kindOf(match);
        --account.malformed[kind];
        int sum = 0;
        for (const QChar c : QString(match.captured(1) + match.captured(2)))
            sum ^= c.unicode();
        const QStringList f = match.captured(2).split(u',').mid(1);
        if (sum != match.captured(3).toInt(nullptr, 16)) {
            ++account.badChecksum[kind];
            continue;
        }
        if (f.size() < 9 && kind != NMEA_PGRME) {
            ++account.tooFewFields[kind];
            continue;
        }
        ++account.accepted[kind];
        if (kind != NMEA_PGRME) {
            const int at = kind == NMEA_GPRMC ? 2 : 1;
            fix.time = time(f[0]);
            fix.lat = f[at + 1] == u"N" ? degrees(f[at]) : -degrees(f[at]);
            fix.lon = f[at + 3] == u"E" ? degrees(f[at + 2]) : -degrees(f[at + 2]);
        }
        if (kind == NMEA_GPGGA)
            fix.alt = number(f[8]);
        if (kind == NMEA_GPRMC) {
            fix.valid = f[1] == u"A";
            fix.speed = number(f[6]) * 0.514444444;
            fix.course = number(f[7]);
            const QDateTime day =
                QDateTime::fromString(f[8].left(4) + "20" + f[8].right(2), "ddMMyyyy");
            fix.date = day.isValid() ? double(day.toSecsSinceEpoch()) : 4294967295.0;
        }
        account.points += fix.valid;
        if (fix.valid)
            result += _text(fix);
    }
    return result << _text(account);
}

// Returns a sentence whose fields have any kind of content, or a damaged one.
QByteArray _randomSentence(QRandomGenerator &random)
{
    const auto any = [&](const QByteArrayList &list) { return list[random.bounded(list.size())]; };
    const auto field = [&](const QByteArrayList &usual) {
        return random.bounded(4) ? any(usual)
                                 : any({"", "0", "EAS", "1E2", "1E-", "+-5", "+5.5", "-7", "1.5.6",
                                        "NAN", "9E999", "-9E999", "9E-999", "45.1", "5545.12",
                                        "12345678901234567", "1234567890.12345", "4.", ".5"});
    };
    const QByteArray time = field({"123519.50", "000000", "235959.999"});
    const QByteArray position =
        ',' + field({"5545.1234", "0000.0001", "3352.7"}) + ',' + any({"N", "S", "", "NN"}) + ',' +
        field({"03737.0500", "15112.5678", "00000.5"}) + ',' + any({"E", "W", "", "EE"}) + ',';
    const QByteArray date = field({"230311", "161011", "010199", "300211", "23031", "2303111", ""});
    const QByteArray rmc = "GPRMC," + time + ',' + any({"A", "A", "A", "", "AA"}) + position +
                           field({"10.0", "0.5"}) + ',' + field({"84.4"}) + ',' + date + ",,,A";
    const QByteArray gga = "GPGGA," + time + position + "1,08,0.9," + field({"145.5"}) + ",M,,M";
    QByteArray sentence = nmeaSentence(
        any({rmc, rmc, rmc, gga, gga, gga, "PGRME,3.1,M,4.2,M,5.3,M", "PGRME,",
             "GPGSV,2,1,08,03,41", "GPGGA,1,2,N,3,E,1,2,3", "GPRMC,,,,,,,,", "GPGGA"}));
    const QByteArray letters = "$*,.-+0159AENMSWDVabxyz\r\n\x80GPRMC";
    const QByteArray letter(1, letters[random.bounded(letters.size())]);
    const int at = random.bounded(int(sentence.size()));
    switch (random.bounded(8)) {
    case 0:
        return sentence.first(at);
    case 1:
        return QByteArray(sentence).insert(at, letter);
    case 2:
        return QByteArray(sentence).replace(at, 1, letter);
    default:
        return sentence;
    }
}

const QByteArray RMC =
    nmeaSentence("GPRMC,123519.50,A,5545.1234,N,03737.0500,E,10.0,84.4,230311,,,A");
const QByteArray GGA =
    nmeaSentence("GPGGA,123519.50,5545.1234,N,03737.0500,E,1,08,0.9,145.5,M,14.0,M,,");
} // namespace

class tst_Nmea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void anyCut();
    void zeroByte();
    void randomText();
    void endlessText();
};

void tst_Nmea::initTestCase()
{
    qputenv("TZ", "America/Sao_Paulo"); // where 16 October 2011 has no midnight
}

void tst_Nmea::anyCut()
{
    QVERIFY(RMC.endsWith("*5D\r\n") && GGA.endsWith("*65\r\n"));
    const QByteArray text = RMC + GGA;
    // The date is 23 March 2011, 03:00 UTC.
    const QString fix = "A 45319.5 1300849200 55.75205666666667 37.6175 %1 5.14444444 84.4";
    const QStringList wanted{fix.arg("0"), fix.arg("145.5"),
                             "2 points, 1 1 0, 0 0 0, 0 0 0, 0 0 0"};
    QCOMPARE(_decode({QByteArray(text).replace("\r\n", "")}), wanted);
    for (qsizetype i = 0; i <= text.size(); ++i) {
        QCOMPARE(_decode({text.first(i), text.sliced(i)}), wanted);
        QCOMPARE(_decode({QByteArray(text).insert(i, "\n\r")}), wanted);
    }
}

// The rest of a chunk after a zero byte is lost, and nothing else.
void tst_Nmea::zeroByte()
{
    QCOMPARE(_decode({RMC.first(30) + '\0' + GGA, RMC.sliced(30) + GGA}), _decode({RMC, GGA}));
}

// Sentences, parts of sentences and noise, cut anywhere.
void tst_Nmea::randomText()
{
    for (quint32 seed = 1; seed <= 3000; ++seed) {
        QRandomGenerator random(seed);
        QByteArray text = random.bounded(3) ? RMC : QByteArray();
        for (int i = random.bounded(1, 25); i > 0; --i)
            text += _randomSentence(random);
        QByteArrayList chunks;
        for (qsizetype pos = 0; pos < text.size(); pos += chunks.last().size())
            chunks += text.mid(pos, random.bounded(1, 40));
        const QStringList wanted = _decodePlainly(text);
        QCOMPARE(_decode({text}), wanted);
        QCOMPARE(_decode(chunks), wanted);
    }
}

// Megabytes that never match, in small chunks. A decoder that keeps or rescans them takes minutes.
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
