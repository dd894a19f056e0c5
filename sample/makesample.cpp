// makesample FILE: writes the bundled sample archive. Its bytes are the same on every machine.
//
// The sample is a drive of eleven minutes, recorded by a device with a camera, a microphone and a
// GPS receiver. It contains what occurs in real archives: noise before the first header, a second
// header, broken sentences, a tunnel, damaged bytes and unfinished blocks.
#include "sample/archivewriter.h"
#include "sample/receivertext.h"

#include <QFile>

#include <cstdio>

namespace
{
constexpr quint8 STREAM_PICTURES = 1;
constexpr quint8 STREAM_SOUND = 2;
constexpr quint8 STREAM_MARKS = 8;
constexpr quint8 STREAM_NONE = 9;
constexpr quint8 STREAM_VOLTAGE = 16;
constexpr quint8 STREAM_GPS = 0xFD;

constexpr int SECONDS = 660;
constexpr int SECONDS_A_GROUP = 30;
constexpr int SECOND_HEADER = 330;
constexpr int TUNNEL_BEGIN = 200;
constexpr int TUNNEL_END = 221;
constexpr int DAMAGE = 465;

QList<ARCHIVESTREAM_T> _streams()
{
    return {{STREAM_PICTURES, 1, "cam0", "Камера впереди", "mjpeg"},
            {STREAM_SOUND, 2, "mic0", "Микрофон", "pcm"},
            {STREAM_MARKS, 8, "btn", "Отметки", ""},
            {STREAM_NONE, 0, "", "Камера сзади (нет)", ""},
            {STREAM_VOLTAGE, 16, "adc", "Бортовая сеть", "mV"},
            {STREAM_GPS, 4, "com1", "Приёмник GPS", "nmea"}};
}

// Data for the other streams. The generator is written out here so that its bytes do not depend on
// a library.
class cNoise
{
public:
    QByteArray bytes(qsizetype size)
    {
        QByteArray result(size, Qt::Uninitialized);
        for (char &c : result) {
            m_state = m_state * 6364136223846793005U + 1442695040888963407U;
            c = char(m_state >> 56);
        }
        return result;
    }

private:
    quint64 m_state = 20110323;
};

// Changes one digit of a sentence, which makes the checksum wrong.
QByteArray _broken(QByteArray sentence)
{
    const qsizetype pos = sentence.indexOf('.') + 1;
    sentence[pos] = sentence[pos] == '7' ? '8' : '7';
    return sentence;
}

class cDrive
{
public:
    QByteArray write();

private:
    void _header(const QByteArray &title);
    void _second(int second);
    void _others(int second, const QByteArray &gps);
    QByteArray _text(int second);

    cArchiveWriter m_archive;
    cReceiverText m_receiver;
    cNoise m_noise;
};

void cDrive::_header(const QByteArray &title)
{
    m_archive.header(title, _streams(),
                     {{1, "2011-03-23"}, {2, "Регистратор № 7"}, {0}, {5, "Москва"}, {0xFF}});
}

QByteArray cDrive::_text(int second)
{
    m_receiver.setSky(second < TUNNEL_BEGIN || second >= TUNNEL_END);
    QByteArray text = m_receiver.second();
    if (second >= TUNNEL_BEGIN && second < TUNNEL_END)
        return m_receiver.gprmc() + m_receiver.gpgsv();
    if (second % 97 == 40)
        text = _broken(m_receiver.gprmc()) + m_receiver.gpgga();
    if (second % 131 == 70)
        text = m_receiver.gprmc() + _broken(m_receiver.gpgga());
    if (second % 10 == 3)
        text += nmeaSentence("PGRME,4.2,M,5.1,M,6.6,M");
    if (second % 15 == 8)
        text += nmeaSentence("GPGSA,A,3,03,06,16,19,22,24,27,,,,,,1.8,0.9,1.5");
    return text;
}

// Writes a picture in three fragments, with the receiver's text and the sound between them.
void cDrive::_others(int second, const QByteArray &gps)
{
    const QByteArray picture = m_noise.bytes(900 + second % 7 * 60);
    const ARCHIVEEXTENSION_T stamp = {quint16(second * 40), quint8(second % 5), 1};
    m_archive.block(STREAM_PICTURES, picture.left(400), FRAGMENT_FIRST, 0, stamp);
    const qsizetype cut = gps.size() * 2 / 5;
    if (second % 2 == 1) {
        m_archive.block(STREAM_GPS, gps.left(cut), FRAGMENT_FIRST);
        m_archive.block(STREAM_PICTURES, picture.mid(400, 300), FRAGMENT_MIDDLE);
        m_archive.block(STREAM_SOUND, m_noise.bytes(160));
        m_archive.block(STREAM_GPS, gps.mid(cut), FRAGMENT_LAST, 5);
    } else {
        // A sentence continues in the next block.
        m_archive.block(STREAM_GPS, gps.left(cut));
        m_archive.block(STREAM_PICTURES, picture.mid(400, 300), FRAGMENT_MIDDLE);
        m_archive.block(STREAM_GPS, gps.mid(cut));
    }
    m_archive.block(STREAM_PICTURES, picture.mid(700), FRAGMENT_LAST);
}

void cDrive::_second(int second)
{
    if (second == SECOND_HEADER)
        _header("Поездка по Москве, вторая половина");
    if (second % SECONDS_A_GROUP == 0)
        m_archive.index(quint32(second), quint32(SECONDS_A_GROUP), m_noise.bytes(second % 4));
    _others(second, _text(second));
    if (second % 5 == 0)
        m_archive.block(STREAM_VOLTAGE, QByteArray::number(13800 + second % 90));
    if (second % 60 == 45)
        m_archive.block(STREAM_MARKS, {});
    if (second % SECONDS_A_GROUP == SECONDS_A_GROUP - 1 && second % 4 == 1) {
        // The next group begins before this logical block ends.
        m_archive.block(STREAM_SOUND, m_noise.bytes(80), FRAGMENT_FIRST);
    }
    if (second == DAMAGE) {
        // These bytes are not a block, so the reader skips everything up to the next group.
        m_archive.rawBytes(QByteArray(4, '\x77') + m_noise.bytes(1500));
    }
}

QByteArray cDrive::write()
{
    m_archive.rawBytes(m_noise.bytes(37));
    _header("Поездка по Москве");
    for (int second = 0; second < SECONDS; ++second)
        _second(second);
    // The device is switched off while it writes a picture.
    m_archive.block(STREAM_PICTURES, m_noise.bytes(400), FRAGMENT_FIRST);
    return m_archive.take().chopped(250);
}
} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fputs("Usage: makesample FILE\n", stderr);
        return 2;
    }
    QFile file(QFile::decodeName(argv[1]));
    const QByteArray archive = cDrive().write();
    if (!file.open(QIODevice::WriteOnly) || file.write(archive) != archive.size() ||
        !file.flush()) {
        std::fprintf(stderr, "makesample: %s: %s\n", argv[1], qPrintable(file.errorString()));
        return 1;
    }
    return 0;
}
