// makeinput KIND MEBIBYTES FILE: writes an input of at least that size for the comparisons. Its
// bytes are the same on every machine.
#include "sample/archivewriter.h"
#include "sample/receivertext.h"

#include <QFile>
#include <QRandomGenerator>

#include <cstdio>
#include <cstring>
#include <utility>

namespace
{
constexpr qsizetype MEBIBYTE = 1 << 20;
// Text per block, as written by a recorder every few seconds.
constexpr qsizetype TEXT_BLOCK = 2000;

QByteArray _fill(const QByteArray &pattern)
{
    return pattern.repeated(MEBIBYTE / pattern.size() + 1);
}

// Generates an input in pieces of about a mebibyte. The first piece contains the header.
class cInput
{
public:
    QByteArray next(const char *kind)
    {
        const auto is = [kind](const char *name) { return std::strcmp(kind, name) == 0; };
        if (is("noise"))
            return _noise();
        if (is("b5"))
            return {MEBIBYTE, '\xB5'};
        if (is("05"))
            return {MEBIBYTE, '\x05'};
        if (is("magics"))
            return _fill("\xB5\xB5\x05\xB5");
        if (is("nested"))
            return _nested();
        if (is("titles"))
            return _titles();
        if (is("text"))
            return _text();
        const bool isFirst = !std::exchange(m_begun, true);
        if (isFirst)
            m_writer.header("A drive", {{2, 2}, {253, 4}});
        if (is("noise-after-header")) {
            m_writer.rawBytes(_noise());
            return m_writer.take();
        }
        if (isFirst)
            m_writer.index(0, 0);
        if (is("others")) { // large blocks from a camera, and a little text
            for (int i = 0; i < 32; ++i)
                m_writer.block(2, QByteArray(32000, 'v'));
            m_writer.block(253, m_receiver.second());
        } else if (is("blocks40")) {
            const QByteArray payload(36, 'x');
            while (m_writer.bytes().size() < MEBIBYTE)
                m_writer.block(2, payload);
        } else if (is("tiny")) {
            while (m_writer.bytes().size() < MEBIBYTE) {
                m_writer.header({}, {});
                m_writer.index(0, 0);
            }
        } else if (is("receiver")) {
            const QByteArray text = _text();
            for (qsizetype pos = 0; pos < text.size(); pos += TEXT_BLOCK)
                m_writer.block(253, text.mid(pos, TEXT_BLOCK));
        } else {
            return {};
        }
        return m_writer.take();
    }

private:
    QByteArray _noise()
    {
        QByteArray bytes(MEBIBYTE, Qt::Uninitialized);
        m_random.fillRange(reinterpret_cast<quint32 *>(bytes.data()), bytes.size() / 4);
        return bytes;
    }

    // Headers whose tables end just before a string that is too long, with their last entry in it.
    static QByteArray _nested()
    {
        QByteArray bytes;
        for (int left = 65'000; left > 13; left -= 13) {
            bytes += QByteArray::fromHex("b5b505b5");
            bytes += char(left);
            bytes += char(left >> 8);
            bytes += QByteArray("\0\0\0a\0b\0", 7);
        }
        return (bytes + QByteArray(200'000, 'x')).repeated(4);
    }

    // Small headers whose titles extend past the record, up to the same zero byte. A title of more
    // than 131,070 bytes would be rejected.
    static QByteArray _titles()
    {
        const QByteArray header = QByteArray::fromHex("b5b505b501010101") + QByteArray(506, '\xFF');
        return (header.repeated(254) + '\0').repeated(8);
    }

    QByteArray _text()
    {
        QByteArray text;
        while (text.size() < MEBIBYTE)
            text += m_receiver.second();
        return text;
    }

    cArchiveWriter m_writer;
    cReceiverText m_receiver;
    QRandomGenerator m_random{1};
    bool m_begun = false;
};
} // namespace

int main(int argc, char **argv)
{
    const qint64 size = argc == 4 ? QByteArray(argv[2]).toLongLong() * MEBIBYTE : 0;
    QFile file(argc == 4 ? QString::fromLocal8Bit(argv[3]) : QString());
    if (size <= 0 || !file.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "usage: makeinput KIND MEBIBYTES FILE\n"
                             "Kinds: noise, noise-after-header, b5, 05, magics, nested, titles, "
                             "others, blocks40, tiny, receiver, text\n");
        return 2;
    }
    cInput input;
    while (file.pos() < size) {
        const QByteArray bytes = input.next(argv[1]);
        if (bytes.isEmpty() || file.write(bytes) != bytes.size()) {
            std::fprintf(stderr, "makeinput: cannot write %s\n", argv[3]);
            return 1;
        }
    }
    return 0;
}
