// vrk3 gives the bytes that the chain gives, for sound archives and damaged ones.
#include "archivewriter.h"
#include "gpschain.h"
#include "receivertext.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

class cSink : public QObject
{
    Q_OBJECT

public:
    QByteArray bytes;
    int gpsBlocks = 0;

public Q_SLOTS:
    void slot_Data(const QByteArray &a) { bytes += a; }
    void slot_Data(const DATA_T &d) { gpsBlocks += d.streamId == 0xFD && d.stream.type == 4; }
};

class tst_samebytes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameBytes_data();
    void sameBytes();

private:
    QByteArray _archive();
    QByteArray _damaged(QByteArray archive);
    int _below(int limit) { return int(m_random.bounded(quint32(limit))); }

    QRandomGenerator m_random;
};

// Receiver text among other streams, in whole blocks and in fragments that interleave.
QByteArray tst_samebytes::_archive()
{
    const QVector<ARCHIVESTREAM_T> streams = {{1, 1, "a", "b", "c"},
                                              {2, 16, "", "", ""},
                                              {0xFD, quint8(_below(8) ? 4 : 2), "x", "y", "z"}};
    cArchiveWriter archive;
    archive.rawBytes(QByteArray(_below(3), '\xB5'));
    archive.header("Дорога %0, %1", streams, {{1, "text"}, {0}, {9}});
    cReceiverText receiver;
    for (int group = 0; group < 4; ++group) {
        archive.index(1, 2, QByteArray(_below(4), 'e'));
        for (int i = _below(30); i > 0; --i) {
            receiver.setSky(_below(5) > 0);
            QByteArray text = receiver.second();
            if (_below(6) == 0)
                text[_below(int(text.size()))] = char(_below(256));
            const int cut = _below(int(text.size()));
            const bool fragments = _below(2) > 0;
            archive.block(0xFD, text.left(cut), fragments ? FRAGMENT_FIRST : FRAGMENT_WHOLE);
            archive.block(1, QByteArray(_below(300), '$'), FRAGMENT_WHOLE, 3, {5, 2, 1});
            archive.block(0xFD, text.mid(cut), fragments ? FRAGMENT_LAST : FRAGMENT_WHOLE);
            archive.fragments(2, QByteArray(_below(500), '\xB5'), 100);
        }
        if (_below(3) == 0)
            archive.header("Второй", streams);
    }
    return archive.take();
}

QByteArray tst_samebytes::_damaged(QByteArray archive)
{
    for (int i = _below(4); i > 0; --i) {
        const int pos = _below(int(archive.size()));
        switch (_below(4)) {
        case 0:
            archive[pos] = char(_below(256));
            break;
        case 1:
            archive.remove(pos, 1 + _below(40));
            break;
        case 2:
            archive.insert(pos, QByteArray(1 + _below(40), char(_below(256))));
            break;
        default:
            archive.truncate(qMax(pos, 1));
        }
    }
    return archive;
}

void tst_samebytes::sameBytes_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("filter");
    QTest::newRow("txt") << "raw" << "Raw GPS output file (*.txt)";
    QTest::newRow("gpx") << "gpx" << "GPS Exchange Format (*.gpx)";
    QTest::newRow("plt") << "plt" << "OziExplorer track (*.plt)";
    QTest::newRow("kml") << "kml" << "GoogleEarth track (*.kml)";
}

void tst_samebytes::sameBytes()
{
    QFETCH(QString, format);
    QFETCH(QString, filter);
    const quint32 seed = qEnvironmentVariableIsSet("VRKTRK_SEED")
                             ? qEnvironmentVariable("VRKTRK_SEED").toUInt()
                             : QRandomGenerator::global()->generate();
    m_random.seed(seed);
    const QByteArray hint = "VRKTRK_SEED=" + QByteArray::number(seed);

    QTemporaryDir folder;
    QStringList arguments{"convert", "-q", "--to", format};
    QList<QByteArray> expected;
    for (int i = 0; i < 150; ++i) {
        const QByteArray archive = i % 3 ? _damaged(_archive()) : _archive();
        QFile file(folder.filePath(QString::number(i) + ".vrk3"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(archive) == archive.size());
        arguments << file.fileName();
        cSink sink;
        {
            cGpsChain chain(filter, &sink);
            connect(&chain.parser(), SIGNAL(signal_Data(DATA_T)), &sink, SLOT(slot_Data(DATA_T)));
            chain.parser().slot_Data(archive);
        }
        expected << (sink.gpsBlocks ? sink.bytes : QByteArray("no output"));
    }
    const bool anyFails = expected.contains("no output");
    QProcess vrk3;
    vrk3.start(VRK3, arguments);
    QVERIFY(vrk3.waitForFinished(120000));
    QVERIFY2(vrk3.exitStatus() == QProcess::NormalExit && vrk3.exitCode() == anyFails, hint);
    for (int i = 0; i < expected.size(); ++i) {
        const QString extension = format == "raw" ? QString("txt") : format;
        QFile file(folder.filePath(QString("%1.%2").arg(i).arg(extension)));
        const QByteArray got = file.open(QIODevice::ReadOnly) ? file.readAll() : "no output";
        QVERIFY2(got == expected.at(i), hint + ", archive " + QByteArray::number(i));
    }
}

QTEST_GUILESS_MAIN(tst_samebytes)
#include "tst_samebytes.moc"
