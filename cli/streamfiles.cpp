#include "cli/streamfiles.h"

#include "cli/mediatype.h"
#include "cli/messages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr size_t COLUMNS = 9; // of the index

// Returns a line of the index. With QByteArray::number, an index of empty blocks takes eight times
// as long.
QByteArray _line(std::initializer_list<qint64> columns)
{
    constexpr size_t maxDigits = std::numeric_limits<qint64>::digits10 + 2; // with a sign
    std::array<char, COLUMNS *(maxDigits + 1)> text;
    char *end = text.data();
    for (const qint64 column : columns) {
        end = std::to_chars(end, text.end(), column).ptr;
        *end++ = ',';
    }
    end[-1] = '\n';
    return {text.data(), end - text.data()};
}
} // namespace

cStreamFiles::cStreamFiles(const STREAM_CHOICE_T &choice, OPEN_T open,
                           std::shared_ptr<cOutputFile> index, const cFeed &feed,
                           const cVrk3Parser &parser)
    : m_choice(choice),
      m_openFile(std::move(open)),
      m_index(std::move(index)),
      m_feed(feed),
      m_parser(parser)
{
    connect(&parser, SIGNAL(signal_Data(HDR_T)), SLOT(slot_Data(HDR_T)));
    connect(&parser, SIGNAL(signal_Data(IDX_T)), SLOT(slot_Data(IDX_T)));
    connect(&parser, SIGNAL(signal_Data(DATA_T)), SLOT(slot_Data(DATA_T)));
    if (m_index)
        m_index->slot_Data(
            "offset,length,archive_offset,ext_word,ext_byte1,ext_byte2,group,stream,type\n");
}

bool cStreamFiles::_isChosen(int id, int type) const
{
    return (m_choice.id < 0 || m_choice.id == id) && (m_choice.type < 0 || m_choice.type == type);
}

void cStreamFiles::slot_Data(const HDR_T &hdr)
{
    for (const STREAM_T &stream : hdr.streams) {
        if (isStreamType(stream.type))
            m_known.insert(stream.id << 8 | stream.type);
    }
}

void cStreamFiles::slot_Data(const IDX_T &)
{
    if (!m_feed.isBorrowed())
        ++m_groups;
}

void cStreamFiles::slot_Data(const DATA_T &d)
{
    if (!_isChosen(d.streamId, d.stream.type))
        return;
    FILE_T &file = m_files[d.streamId];
    if (m_index) {
        m_index->slot_Data(
            _line({file.size, d.size, m_feed.offset(m_parser.blockOffset()), d.extWord, d.extByte1,
                   d.extByte2, m_groups, d.streamId, d.stream.type}));
        m_hasError = m_hasError || !m_index->error().isEmpty();
    }
    ++m_blocks;
    m_bytes += d.size;
    file.size += d.size;
    if (file.output) {
        file.output->slot_Data(d.payload);
        m_hasError = m_hasError || !file.output->error().isEmpty();
        return;
    }
    file.start += d.payload;
    if (file.start.size() >= MEDIA_START_SIZE)
        _open(d.streamId, file);
}

void cStreamFiles::_open(int id, FILE_T &file)
{
    file.output = m_openFile(id, mediaExtension(file.start));
    file.output->slot_Data(file.start);
    file.start = QByteArray();
    m_hasError = m_hasError || !file.output->error().isEmpty();
}

bool cStreamFiles::isDone() const
{
    const auto isSkipped = [](const FILE_T &file) {
        return file.output && file.output->isSkipped();
    };
    return m_hasError ||
           (m_choice.id >= 0 && std::any_of(m_files.begin(), m_files.end(), isSkipped));
}

QString cStreamFiles::finish()
{
    if (isDone())
        return {};
    for (const int stream : std::as_const(m_known)) {
        const int id = stream >> 8;
        if (_isChosen(id, stream & 0xFF) && !m_files[id].output)
            _open(id, m_files[id]);
    }
    if (m_known.isEmpty())
        return u"it has no streams"_s;
    if (m_files.isEmpty())
        return u"it has no such stream, only "_s + _streams();
    for (const auto &file : files())
        file->finish();
    return {};
}

// Lists the streams of the headers for a message.
QString cStreamFiles::_streams() const
{
    constexpr qsizetype maxListed = 32;
    QList<int> streams = m_known.values();
    std::sort(streams.begin(), streams.end());
    QStringList texts;
    for (const int stream : streams.mid(0, maxListed))
        texts.append(u"%1:%2"_s.arg(stream >> 8).arg(stream & 0xFF));
    if (streams.size() > maxListed)
        texts.append(u"%1 more"_s.arg(streams.size() - maxListed));
    return texts.join(u", "_s);
}

QList<std::shared_ptr<cOutputFile>> cStreamFiles::files() const
{
    QList<std::shared_ptr<cOutputFile>> files;
    bool isSkipped = false;
    for (const FILE_T &file : m_files) {
        if (!file.output)
            continue;
        files.append(file.output);
        isSkipped = m_choice.id >= 0 && file.output->isSkipped();
    }
    if (m_index && !isSkipped)
        files.append(m_index);
    return files;
}
