// makeseeds FOLDER: writes small initial inputs for the fuzzers, in one folder for each harness.
#include "sample/archivewriter.h"
#include "sample/receivertext.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace
{
bool _write(const QString &folder, const char *name, const QByteArray &bytes)
{
    if (!QDir().mkpath(folder))
        return false;
    QFile file(folder + '/' + QString::fromLatin1(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray _sentences()
{
    return receiverText(250) + nmeaSentence("PGRME,3.1,M,4.2,M,5.3,M") +
           nmeaSentence("GPRMC,000000,A,,,,,,,990099");
}

// All kinds of sentences from which the track is read.
QByteArray _otherSentences()
{
    return "A title\n" + nmeaSentence("GNRMC,235959.5,A,5545.12345,N,17959.9,E,1,2,311299,,,A,V") +
           nmeaSentence("GPGGA,235959.5,5545.12,N,17959.9,E,2,08,0.9,145.5,M,14,M,,") +
           nmeaSentence("GPGSA,A,3,,,,,,,,,,,,,1,0.8,1") +
           nmeaSentence("GNGNS,1,5545,N,17959.9,W,AN,9,1.5,7,1,,") +
           nmeaSentence("GPVTG,1,,,,,,9") + nmeaSentence("GPZDA,2,01,01,2000") +
           nmeaSentence("GPGLL,5545,S,1,E,2,A") + "$IIGLL,5545.1,N,03737.0,E,120107,A\r\n";
}

// Interleaved fragments, an extension head, two groups, a second header.
QByteArray _rich()
{
    cArchiveWriter w;
    w.header("T", {{253, 4}, {1, 1}}, {{1, "x"}, {0, ""}});
    w.index(1, 2, "e");
    w.block(253, _sentences().first(60), FRAGMENT_FIRST);
    w.block(1, "abc", FRAGMENT_FIRST, 0, {3001, 2, 1});
    w.block(253, _sentences().mid(60), FRAGMENT_LAST);
    w.block(1, "def", FRAGMENT_LAST);
    w.header("U", {{253, 4}});
    w.index(3, 4);
    w.block(253, _sentences());
    return w.take();
}

// Texts that control a terminal, exceed 16 bits or are long, and a point without a time.
QByteArray _texts()
{
    // The linter rejects a literal that leaves the direction of text changed, so it is closed here.
    const QByteArray text =
        "\xC2\x9B\x7F\xE2\x80\xAE\xE2\x80\xAC\xE2\x80\xA8\xF3\xA0\x81\x81\xF0\x9F\x9A\x97";
    cArchiveWriter w;
    w.header(text.repeated(20), {{253, 4, text, text.repeated(60), "\xFF"}}, {{5, text}});
    w.index(0, 0);
    w.block(253, nmeaSentence("GPRMC,,A,5530.0000,N,03730.0000,E,0.0,0.0,,,"));
    return w.take();
}

QByteArray _damaged()
{
    cArchiveWriter w;
    w.rawBytes("\x05\xB5\xB5\xB5 before \xB5\xB5");
    w.header("", {{253, 4}});
    w.index(0, 0);
    w.block(9, "unknown stream");
    w.rawBytes(QByteArray::fromHex("b5b505b500000000"));
    w.index(0, 0);
    w.block(253, "$GPRMC,1,A", FRAGMENT_MIDDLE);
    return w.take();
}

// Headers whose title or table does not end, between a good one and a group of blocks. The harness
// replaces the bytes from 0xFC on.
QByteArray _open()
{
    cArchiveWriter w;
    w.header("T", {{253, 4}});
    w.rawBytes(QByteArray("\xB5\xB5\x05\xB5 \xB5\xB5\x05\xB5\xF0\xFF\0\0\0a\0b", 17));
    w.rawBytes("\xFC\xFE\xFE\xFE");
    w.index(0, 0);
    w.block(253, _sentences().first(70));
    return w.take();
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: makeseeds FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QByteArray ini = "[common]\noptions_version=1.0\nfullscreen=\"a\\\\x41\"\n"
                           "[vrktrk.session]\nwinHeight=220\na=@ByteArray(x)\n";
    const bool done = _write(folder + "/fuzz_chain", "rich", _rich()) &&
                      _write(folder + "/fuzz_chain", "damaged", _damaged()) &&
                      _write(folder + "/fuzz_chain", "open", "\xFE" + _open()) &&
                      _write(folder + "/fuzz_info", "rich", _rich()) &&
                      _write(folder + "/fuzz_info", "texts", _texts()) &&
                      _write(folder + "/fuzz_nmea", "sentences", _sentences()) &&
                      _write(folder + "/fuzz_track", "sentences", _otherSentences()) &&
                      _write(folder + "/fuzz_undecorate", "escapes", R"(a\\b\x41\n\q\)") &&
                      _write(folder + "/fuzz_inifile", "file", ini);
    if (!done)
        std::fprintf(stderr, "makeseeds: cannot write into %s\n", argv[1]);
    return done ? 0 : 1;
}
