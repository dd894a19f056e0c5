// vrk3 gives the bytes that the chain gives, for sound archives and damaged ones.
#include "gps/gpschain.h"
#include "sample/archivewriter.h"
#include "sample/receivertext.h"

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
    const QList<ARCHIVESTREAM_T> streams = {{1, 1, "a", "b", "c"},
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

// A few stretches removed, replaced or put in, and sometimes the end cut off.
QByteArray tst_samebytes::_damaged(QByteArray archive)
{
    for (int i = _below(4); i > 0; --i) {
        const QByteArray noise(_below(40), char(_below(256)));
        archive.replace(_below(int(archive.size())), _below(40), noise);
    }
    return _below(4) ? archive : archive.left(1 + _below(int(archive.size())));
}

void tst_samebytes::sameBytes()
{
    const int given = qEnvironmentVariableIntValue("VRKTRK_SEED");
    const quint32 seed = given ? quint32(given) : QRandomGenerator::global()->bounded(1U << 30);
    m_random.seed(seed);
    const QString hint = QString("VRKTRK_SEED=%1, %2").arg(seed);
    QTemporaryDir folder;
    QStringList names;
    QList<QByteArray> archives;
    for (int i = 0; i < 150; ++i) {
        archives << (i % 3 ? _damaged(_archive()) : _archive());
        names << folder.filePath(QString::number(i));
        QFile file(names.constLast() + ".vrk3");
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(archives.at(i)) > 0);
    }
    for (const QString format : {"txt", "gpx", "plt", "kml"}) {
        QStringList arguments{"convert", "-q", "--to", format == "txt" ? "raw" : format};
        for (const QString &name : names)
            arguments << name + ".vrk3";
        QProcess vrk3;
        vrk3.start(VRK3, arguments);
        QVERIFY(vrk3.waitForFinished(120000));
        bool anyFailed = false;
        for (int i = 0; i < names.size(); ++i) {
            cSink sink;
            {
                cGpsChain chain("Any name (*." + format + ")", &sink);
                connect(&chain.parser(), SIGNAL(signal_Data(DATA_T)), &sink,
                        SLOT(slot_Data(DATA_T)));
                chain.parser().slot_Data(archives.at(i));
            }
            anyFailed |= sink.gpsBlocks == 0;
            QFile file(names.at(i) + '.' + format);
            const QByteArray none = "no output";
            const QByteArray got = file.open(QIODevice::ReadOnly) ? file.readAll() : none;
            QVERIFY2(got == (sink.gpsBlocks ? sink.bytes : none),
                     qPrintable(hint.arg(file.fileName())));
        }
        QVERIFY2(vrk3.exitCode() == anyFailed, qPrintable(hint.arg(format)));
    }
}

QTEST_GUILESS_MAIN(tst_samebytes)
#include "tst_samebytes.moc"
