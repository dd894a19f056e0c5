#include "gps/filesaver.h"
#include "gps/gpschain.h"
#include "sample/archivewriter.h"
#include "sample/receivertext.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

static const char *const FILTERS[] = {"Raw GPS output file (*.txt)", "GPS Exchange Format (*.gpx)",
                                      "OziExplorer track (*.plt)", "GoogleEarth track (*.kml)"};

// An archive of one GPS stream whose text lies in blocks of random size up to longest.
static QByteArray _archive(const QByteArray &title, const QByteArray &text, int longest = 65535)
{
    QRandomGenerator random(3);
    cArchiveWriter w;
    // Beside the receiver's stream one of its type and one of its id that are not it.
    w.header(title, {{2, 2}, {9, 4}, {253, 2}});
    w.index(0, 0);
    w.block(253, nmeaSentence("GPRMC,1,A,2,N,3,E,4,5,230311"));
    w.header(title, {{1, 2}, {9, 4}, {253, 4, "", "Receiver", ""}});
    w.index(0, 0);
    w.block(9, nmeaSentence("GPRMC,1,A,2,N,3,E,4,5,230311"));
    for (qsizetype pos = 0; pos < text.size();) {
        const QByteArray piece = text.mid(pos, random.bounded(1, longest + 1));
        w.block(253, piece);
        w.block(1, "not the receiver's");
        pos += piece.size();
    }
    return w.take();
}

// What the whole chain writes into a file.
static QByteArray _convert(const QByteArray &archive, const char *filter, int chunk = 65536)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("out");
    {
        cFileSaver saver(name);
        cGpsChain chain(filter, &saver);
        for (qsizetype pos = 0; pos < archive.size(); pos += chunk)
            chain.parser().slot_Data(archive.mid(pos, chunk));
    }
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

class tst_GpsChain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeFiles_data();
    void wholeFiles();
    void dateThatCannotBe();
    void lastTitleCounts();
    void headerTexts();
    void sink();
    void anyCut();
    void receiverLogs();
};

static QByteArray _gpx(const QByteArray &title, const QByteArray &points)
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

static QByteArray _plt(const QByteArray &title, const QByteArray &countAndPoints)
{
    return "OziExplorer Track Point File Version 2.0\r\nWGS 84\r\nAltitude is in Feet\r\n"
           "Reserved 3\r\n0,2,255," +
           title + ",0\r\n" + countAndPoints;
}

static QByteArray _kml(const QByteArray &title, const QByteArray &points)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
           "<kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document>\r\n"
           "<Folder><name>Tracks</name>\r\n"
           "<Style "
           "id=\"\"><LineStyle><color>ffff0000</color><width>2</width></LineStyle><PolyStyle>"
           "<fill>0</fill></PolyStyle></Style>\r\n<Placemark>\r\n<name>" +
           title + "</name><styleUrl>#</styleUrl>\r\n<LineString><coordinates>" + points +
           "</coordinates>\r\n</LineString></Placemark></Folder></Document></kml>\r\n";
}

void tst_GpsChain::wholeFiles_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("gpx");
    QTest::addColumn<QByteArray>("plt");
    QTest::addColumn<QByteArray>("kml");

    // The month's name and the day number in the locale and the zone that ctest sets.
    const QByteArray month = qEnvironmentVariable("VRKTRK_MONTH", "Mar").toUtf8();
    const QByteArray day = qgetenv("VRKTRK_DAY").isEmpty() ? "40625" : qgetenv("VRKTRK_DAY");
    const QByteArray text =
        nmeaSentence("GPRMC,123519.50,A,5545.1234,S,03737.0500,W,10.0,84.4,230311,,,A") +
        nmeaSentence("GPGGA,123519.50,5545.1234,N,03737.0500,E,1,08,0.9,145.25,M,14.0,M,,");
    const QByteArray gpxPoints =
        "\t\t<trkpt lat=\"-55.752057\" lon=\"-37.617500\"><ele>0.000000</ele>"
        "<time>2011-03-23T12:35:20Z</time></trkpt>\r\n"
        "\t\t<trkpt lat=\"55.752057\" lon=\"37.617500\"><ele>145.250000</ele>"
        "<time>2011-03-23T12:35:20Z</time></trkpt>\r\n";
    const QByteArray when = "," + day + ",23-" + month + "-11,12:35:20\r\n";
    const QByteArray pltPoints =
        "2\r\n-55.752057,-37.617500,0,0.000000" + when + "55.752057,37.617500,0,476.541995" + when;
    const QByteArray kmlPoints = "-37.617500,-55.752057,0.0 37.617500,55.752057,145.3 ";

    const auto row = [&](const char *name, const QByteArray &title, const QByteArray &pltTitle) {
        QTest::newRow(name) << title << text << _gpx(title, gpxPoints) << _plt(pltTitle, pltPoints)
                            << _kml(title, kmlPoints);
    };
    row("plain", "A drive", "A drive");
    row("no title", "", "");
    row("not ASCII", "Поездка", "Поездка");
    row("markers", "%0 x%1y %3", "%0 x%1y %3");
    row("commas and lines", "a,b\r\nc", "a;b  c");
    row("long", "0123456789012345678901234567890123456789abcdefghij",
        "0123456789012345678901234567890123456789abcdefghij");
    row("not escaped", "a & <b>", "a & <b>");
    QTest::newRow("no fix") << QByteArray("T") << text.sliced(text.indexOf("$GPGGA"))
                            << _gpx("T", "") << _plt("T", "0\r\n") << _kml("T", "");
    QTest::newRow("no receiver") << QByteArray("T") << QByteArray() << QByteArray()
                                 << _plt("T", "0\r\n") << _kml("T", "");
    QTest::newRow("lost fix")
        << QByteArray("T") << nmeaSentence("GPRMC,000000,A,,,,,,,230311")
        << _gpx("T", "\t\t<trkpt lat=\"0.000000\" lon=\"0.000000\"><ele>0.000000</ele>"
                     "<time>2011-03-23T00:00:00Z</time></trkpt>\r\n")
        << QByteArray() << _kml("T", "0.000000,0.000000,0.0 ");
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
    if (!plt.isEmpty())
        QCOMPARE(_convert(archive, FILTERS[2]), plt);
    QCOMPARE(_convert(archive, FILTERS[3]), kml);
}

// 4294967295 and times beyond any clock: some text or none, but the same every time and a whole
// file.
void tst_GpsChain::dateThatCannotBe()
{
    QByteArray text;
    for (const QByteArray time : {"120000", "1E300", "NAN", "-9E30", "9E17", "000001E12"})
        text += nmeaSentence("GPRMC," + time + ",A,1,N,2,E,3,4,990099");
    const QByteArray archive = _archive("T", text);
    for (const char *filter : FILTERS) {
        const QByteArray once = _convert(archive, filter);
        QCOMPARE(_convert(archive, filter), once);
        QVERIFY(once.count("\r\n") >= 6);
    }
    QCOMPARE(_convert(archive, FILTERS[1]).count("</time></trkpt>\r\n"), 6);
    if (qgetenv("TZ") == "UTC") // 4294967295 and twelve hours
        QVERIFY(_convert(archive, FILTERS[1]).contains("<time>2106-02-07T18:28:15Z</time>"));
    QCOMPARE(_convert(archive, FILTERS[2]).count("\r\n"), 12);
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
    HDR_T hdr;
    hdr.title = QByteArray("T\xD0\xAF\xFF\0", 5);
    const QByteArray zero(1, '\0');
    hdr.streams = {{7, 2, "a" + zero, "seven" + zero, zero},
                   {8, 0, zero, "none" + zero, zero},
                   {7, 16, zero, zero, zero},
                   {255, 3, zero, "odd" + zero, zero}};
    QList<std::pair<int, QString>> sent;
    cHdrTxts texts;
    QObject::connect(&texts, &cHdrTxts::signal_Data, [&](int what, const QString &s) {
        sent.append({what, s});
    });
    texts.slot_Data(hdr);
    const QList<std::pair<int, QString>> wanted = {
        {256, QString("TЯ") + QChar::ReplacementCharacter}, {7, "seven"}, {7, ""}, {255, "odd"}};
    QCOMPARE(sent, wanted);
    texts.slot_Data(HDR_T());
    QCOMPARE(sent.mid(4), (QList<std::pair<int, QString>>{{256, ""}}));
}

void tst_GpsChain::sink()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("out"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("older and longer") > 0);
    file.close();
    const QByteArray bytes("a\0\r\nb", 5);
    cFileSaver(folder.filePath("no/such/folder")).slot_Data(bytes);
    {
        cFileSaver saver(file.fileName());
        QCOMPARE(file.size(), 0);
        saver.slot_Data(bytes);
        saver.slot_Data({});
        saver.slot_Data("c");
    }
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), bytes + "c");
}

void tst_GpsChain::anyCut()
{
    const QByteArray text = receiverText(60'000);
    for (const char *filter : FILTERS) {
        const QByteArray whole = _convert(_archive("T", text), filter);
        QCOMPARE(_convert(_archive("T", text, 50), filter), whole);
        QCOMPARE(_convert(_archive("T", text), filter, 7), whole);
    }
}

// What real receivers sent, from the folder that VRKTRK_LOGS names.
void tst_GpsChain::receiverLogs()
{
    const QDir folder(qEnvironmentVariable("VRKTRK_LOGS"));
    if (qEnvironmentVariableIsEmpty("VRKTRK_LOGS"))
        QSKIP("VRKTRK_LOGS names no folder of receiver logs");
    const QStringList names = folder.entryList({"*.log"}, QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        QFile log(folder.filePath(name));
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QByteArray text = log.readAll();
        QCOMPARE(_convert(_archive(name.toUtf8(), text, 90), FILTERS[0]), text);
        for (const char *filter : FILTERS) {
            const QByteArray whole = _convert(_archive(name.toUtf8(), text), filter);
            QCOMPARE(_convert(_archive(name.toUtf8(), text), filter, 11), whole);
            if (!text.contains('\0')) // behind a zero byte the rest of its block is lost
                QCOMPARE(_convert(_archive(name.toUtf8(), text, 90), filter), whole);
        }
    }
}

QTEST_APPLESS_MAIN(tst_GpsChain)
#include "tst_gpschain.moc"
