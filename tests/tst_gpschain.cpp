#include "gps/filesaver.h"
#include "gps/gpschain.h"
#include "sample/archivewriter.h"
#include "sample/receivertext.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <array>

namespace
{
const char *const FILTERS[] = {"Raw GPS output file (*.txt)", "GPS Exchange Format (*.gpx)",
                               "OziExplorer track (*.plt)", "GoogleEarth track (*.kml)"};

// Returns an archive whose GPS stream contains text in blocks of random sizes up to `longest`.
QByteArray _archive(const QByteArray &title, const QByteArray &text, int longest = 65535)
{
    const QByteArray other = nmeaSentence("GPRMC,1,A,2,N,3,E,4,5,230311");
    QRandomGenerator random(3);
    cArchiveWriter w;
    // Streams with the type or the id of the GPS stream, but not both.
    w.header("other title", {{2, 2}, {9, 4}, {253, 2}});
    w.index(0, 0);
    w.block(253, other);
    w.header(title, {{1, 2}, {9, 4}, {253, 4, "", "Receiver", ""}});
    w.index(0, 0);
    w.block(9, other);
    for (qsizetype pos = 0; pos < text.size();) {
        const QByteArray piece = text.mid(pos, random.bounded(1, longest + 1));
        w.block(253, piece);
        w.block(1, other);
        pos += piece.size();
    }
    return w.take();
}

// Runs the whole chain and returns its output file, which replaces an older and longer one.
QByteArray _convert(const QByteArray &archive, const char *filter, int chunk = 65536)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("out"));
    if (file.open(QIODevice::WriteOnly))
        file.write(QByteArray(100, 'x') + archive + archive);
    file.close();
    {
        cFileSaver saver(file.fileName());
        cGpsChain chain(filter, &saver);
        for (qsizetype pos = 0; pos < archive.size(); pos += chunk)
            chain.parser().slot_Data(archive.mid(pos, chunk));
    }
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

QByteArray _gpx(const QByteArray &title, const QByteArray &points)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
           "<gpx version=\"1.1\" creator=\"kt_vrktrk\"\r\n"
           "xmlns=\"http://www.topografix.com/GPX/1/1\"\r\n"
           "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\r\n"
           "xsi:schemaLocation=\"http://www.topografix.com/GPX/1/1\r\n"
           "http://www.topografix.com/GPX/1/1/gpx.xsd\">\r\n"
           "\t<trk><name><![CDATA[" +
           title + "]]></name><trkseg>\r\n" + points + "\t</trkseg></trk>\r\n</gpx>\r\n";
}

QByteArray _trkpt(const char *lat, const char *lon, const char *ele, const char *time)
{
    return QByteArray("\t\t<trkpt lat=\"") + lat + "\" lon=\"" + lon + "\"><ele>" + ele +
           "</ele><time>" + time + "</time></trkpt>\r\n";
}

QByteArray _plt(const QByteArray &title, const QByteArray &countAndPoints)
{
    return "OziExplorer Track Point File Version 2.0\r\nWGS 84\r\nAltitude is in Feet\r\n"
           "Reserved 3\r\n0,2,255," +
           title + ",0\r\n" + countAndPoints;
}

QByteArray _kml(const QByteArray &title, const QByteArray &points)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
           "<kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document>\r\n"
           "<Folder><name>Tracks</name>\r\n"
           "<Style id=\"\"><LineStyle><color>ffff0000</color><width>2</width></LineStyle>"
           "<PolyStyle><fill>0</fill></PolyStyle></Style>\r\n<Placemark>\r\n<name>" +
           title + "</name><styleUrl>#</styleUrl>\r\n<LineString><coordinates>" + points +
           "</coordinates>\r\n</LineString></Placemark></Folder></Document></kml>\r\n";
}

// The parts of PLT that depend on the locale and the time zone: names of months, and day numbers.
struct LOCALE_T {
    const char *name;
    const char *march;
    const char *december;
    const char *day1;
    const char *day2;
    const char *day3;
};
const LOCALE_T LOCALES[] = {
    {"C.UTF-8", "Mar", "Dec", "40625.524531", "40178.999991", "40178.000009"},
    {"ru_RU.UTF-8", "мар.", "дек.", "40625.399531", "40178.874991", "40177.875009"},
    {"de_DE.UTF-8", "März", "Dez.", "40625.649531", "40179.083325", "40178.083342"},
    {"en_US.UTF-8", "Mar", "Dec", "40625.284948", "40178.760408", "40177.760425"}};
} // namespace

class tst_GpsChain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeFiles_data();
    void wholeFiles();
    void dateThatCannotBe();
    void lastTitleCounts();
    void headerTexts();
    void anyCut_data();
    void anyCut();
};

void tst_GpsChain::wholeFiles_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("gpx");
    QTest::addColumn<QByteArray>("plt");
    QTest::addColumn<QByteArray>("kml");

    const auto *const locale =
        std::find_if(std::begin(LOCALES), std::end(LOCALES),
                     [](const LOCALE_T &l) { return qgetenv("LC_ALL") == l.name; });
    QVERIFY2(locale != std::end(LOCALES), "ctest sets LC_ALL and TZ");
    const QByteArray pgrme = nmeaSentence("PGRME,3.1,M,4.2,M,5.3,M");
    const QByteArray beforeTheFix =
        nmeaSentence("GPGGA,1,3351.0000,S,15112.0000,W,1,08,0.9,12,M,14.0,M,,") + pgrme;
    const QByteArray text =
        beforeTheFix +
        nmeaSentence("GPRMC,123519.50,A,5545.1234,S,03737.0500,W,10.0,84.4,230311,,,A") +
        nmeaSentence("GPGGA,123519.50,5545.1234,N,03737.0500,E,1,08,0.9,145.25,M,14.0,M,,") +
        pgrme + nmeaSentence("GPRMC,235959.25,A,0005.6000,N,00030.7500,E,1,2,311209,,,A") +
        nmeaSentence("GPGGA,000000.75,0005.6000,S,17959.9999,W,1,08,0.9,-0.05,M,14.0,M,,");
    const QByteArray gpxPoints =
        _trkpt("-55.752057", "-37.617500", "12.000000", "2011-03-23T12:35:20Z") +
        _trkpt("55.752057", "37.617500", "145.250000", "2011-03-23T12:35:20Z") +
        _trkpt("55.752057", "37.617500", "145.250000", "2011-03-23T12:35:20Z") +
        _trkpt("0.093333", "0.512500", "145.250000", "2009-12-31T23:59:59Z") +
        _trkpt("-0.093333", "-179.999998", "-0.050000", "2009-12-31T00:00:01Z");
    const auto when = [](const char *day, const char *date, const char *month, const char *rest) {
        return QByteArray(",") + day + ',' + date + '-' + month + '-' + rest + "\r\n";
    };
    const QByteArray time1 = when(locale->day1, "23", locale->march, "11,12:35:20");
    const QByteArray time2 = when(locale->day2, "31", locale->december, "09,23:59:59");
    const QByteArray time3 = when(locale->day3, "31", locale->december, "09,00:00:01");
    const QByteArray point2 = "55.752057,37.617500,0,476.541995" + time1;
    const QByteArray pltPoints = "5\r\n-55.752057,-37.617500,0,39.370079" + time1 + point2 +
                                 point2 + "0.093333,0.512500,0,476.541995" + time2 +
                                 "-0.093333,-179.999998,0,-0.164042" + time3;
    const QByteArray kmlPoints = "-37.617500,-55.752057,12.0 37.617500,55.752057,145.3 "
                                 "37.617500,55.752057,145.3 0.512500,0.093333,145.3 "
                                 "-179.999998,-0.093333,-0.1 ";

    const auto row = [&](const char *name, const QByteArray &title, const QByteArray &pltTitle) {
        QTest::newRow(name) << title << text << _gpx(title, gpxPoints) << _plt(pltTitle, pltPoints)
                            << _kml(title, kmlPoints);
    };
    row("plain", "A drive", "A drive");
    row("no title", "", "");
    row("not ASCII", "Поездка", "Поездка");
    row("markers", "%0 x%1y %3", "%0 x%1y %3");
    row("commas and lines", "a,b\rc\nd", "a;b c d");
    row("long", QByteArray(44, 'a') + "bcdefg", QByteArray(44, 'a') + "bcdefg");
    row("not escaped", "a & <b>", "a & <b>");
    QTest::newRow("no fix") << QByteArray("T") << beforeTheFix << _gpx("T", "")
                            << _plt("T", "0\r\n") << _kml("T", "");
    QTest::newRow("no receiver") << QByteArray("T") << QByteArray() << QByteArray()
                                 << _plt("T", "0\r\n") << _kml("T", "");
    QTest::newRow("lost fix") << QByteArray("T") << nmeaSentence("GPRMC,235959.25,A,,,,,,,311209")
                              << _gpx("T", _trkpt("0.000000", "0.000000", "0.000000",
                                                  "2009-12-31T23:59:59Z"))
                              << _plt("T", "1\r\n0.000000,0.000000,0,0.000000" + time2)
                              << _kml("T", "0.000000,0.000000,0.0 ");
}

void tst_GpsChain::wholeFiles()
{
    QFETCH(QByteArray, title);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, gpx);
    QFETCH(QByteArray, plt);
    QFETCH(QByteArray, kml);
    const QByteArray archive = _archive(title, text);
    QCOMPARE(_convert(archive, FILTERS[0]), text);
    QCOMPARE(_convert(archive, FILTERS[1]), gpx);
    QCOMPARE(_convert(archive, FILTERS[2]), plt);
    QCOMPARE(_convert(archive, FILTERS[3]), kml);
}

// An unreadable date is 4294967295, the year 2106. With a strange time of day, the instant may be
// outside the years of four digits or of any calendar.
void tst_GpsChain::dateThatCannotBe()
{
    const std::array<const char *, 4> expected[] = {
        {"120000", "2106-02-07T18:28:15Z", "75279.769618", "07-Feb-06,18:28:15"},
        {"00001E12", "33794-11-03T08:14:55Z", "11649353.343692", "03-Nov-94,08:14:55"},
        {"0000-9E11", "-26415-03-28T14:28:16Z", "-10341387.397049", "28-Mar--15,14:28:16"},
        {"00009E17", "", "10416666741945.935547", ""},
        {"0000-9E30", "", "-104166666666666673777410048.000000", ""},
        {"0000NAN", "1970-01-01T00:00:00Z", "    nan", "01-Jan-70,00:00:00"}};
    QByteArray text;
    QByteArray gpx;
    QByteArray plt = "6\r\n";
    for (const auto &[time, gpxTime, day, pltTime] : expected) {
        text += nmeaSentence(QByteArray("GPRMC,") + time + ",A,1,N,2,E,3,4,300211");
        gpx += _trkpt("1.016667", "2.033333", "0.000000", gpxTime);
        plt += QByteArray("1.016667,2.033333,0,0.000000,") + day + ',' + pltTime + "\r\n";
    }
    const QByteArray archive = _archive("T", text);
    QCOMPARE(_convert(archive, FILTERS[1]), _gpx("T", gpx));
    QCOMPARE(_convert(archive, FILTERS[2]), _plt("T", plt));
}

void tst_GpsChain::lastTitleCounts()
{
    const QByteArray text = nmeaSentence("GPRMC,000000,A,,,,,,,230311");
    const QByteArray archive = _archive("first", text) + _archive("second", text);
    QVERIFY(_convert(archive, FILTERS[1]).contains("<![CDATA[first]]>"));
    QVERIFY(_convert(archive, FILTERS[2]).contains(",second,0\r\n2\r\n"));
    QVERIFY(_convert(archive, FILTERS[3]).contains("<name>second</name>"));
}

void tst_GpsChain::headerTexts()
{
    const QByteArray zero(1, '\0');
    HDR_T hdr;
    hdr.title = "T\xD0\xAF\xFF" + zero;
    hdr.streams = {{7, 2, "a" + zero, "seven" + zero, zero}, {8, 0, zero, "none" + zero, zero}};
    QStringList sent;
    cHdrTxts texts;
    QObject::connect(&texts, &cHdrTxts::signal_Data, [&](int what, const QString &s) {
        sent += QString("%1 %2").arg(what).arg(s);
    });
    texts.slot_Data(hdr);
    QCOMPARE(sent, QStringList({QString("256 TЯ") + QChar::ReplacementCharacter, "7 seven"}));
}

void tst_GpsChain::anyCut_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("generated") << receiverText(60'000);
    // The output of real receivers.
    const QDir folder(qEnvironmentVariable("VRKTRK_LOGS", "no folder"));
    for (const QString &name : folder.entryList({"*.log"}, QDir::Files)) {
        QFile log(folder.filePath(name));
        QVERIFY(log.open(QIODevice::ReadOnly));
        QTest::newRow(qPrintable(name)) << log.readAll();
    }
}

void tst_GpsChain::anyCut()
{
    QFETCH(QByteArray, text);
    const QByteArray archive = _archive("T", text);
    const QByteArray smallBlocks = _archive("T", text, 50);
    QCOMPARE(_convert(smallBlocks, FILTERS[0]), text);
    for (const char *filter : FILTERS) {
        const QByteArray whole = _convert(archive, filter);
        QCOMPARE(_convert(archive, filter, 7), whole);
        if (!text.contains('\0')) // after a zero byte the rest of its block is lost
            QCOMPARE(_convert(smallBlocks, filter), whole);
    }
}

QTEST_APPLESS_MAIN(tst_GpsChain)
#include "tst_gpschain.moc"
