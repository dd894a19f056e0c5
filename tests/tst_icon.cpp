#include <QtTest>

#include <QIcon>
#include <QResource>
#include <QtEndian>

class TstIcon : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The file as linked into the program: five plain bitmaps with their masks, one behind the
    // other.
    void images()
    {
        const QResource resource(":/resources/halvorant_vrktrk.ico");
        QVERIFY(resource.isValid());
        QCOMPARE(resource.compressionAlgorithm(), QResource::ZlibCompression);
        const QByteArray ico = resource.uncompressedData();
        const auto number = [&](qsizetype at) {
            return qFromLittleEndian<quint32>(&ico.data()[at]);
        };
        QCOMPARE(ico.size(), 285858);
        QCOMPARE(ico.left(6), QByteArray("\0\0\1\0\5\0", 6));
        const std::pair<int, quint32> images[] = {
            {255, 268300}, {48, 9640}, {32, 4264}, {24, 2440}, {16, 1128}};
        quint32 entry = 6, data = 86;
        for (const auto &[size, bytes] : images) {
            QCOMPARE(ico.mid(entry, 2), QByteArray(2, static_cast<char>(size)));
            QCOMPARE(number(entry + 8), bytes);
            QCOMPARE(number(entry + 12), data);
            QCOMPARE(number(data), 40U); // A bitmap's head; PNG begins otherwise.
            QCOMPARE(number(data + 12), 0x200001U);
            QVERIFY(
                QIcon(resource.absoluteFilePath()).availableSizes().contains(QSize(size, size)));
            entry += 16;
            data += bytes;
        }
    }
};

QTEST_MAIN(TstIcon)
#include "tst_icon.moc"
