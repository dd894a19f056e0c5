#ifndef STREAMFILES_H
#define STREAMFILES_H

#include "cli/feed.h"
#include "cli/outputfile.h"

#include <QMap>
#include <QObject>
#include <QSet>

#include <functional>
#include <memory>

// The streams to extract: those with this id and type; -1 means any.
struct STREAM_CHOICE_T {
    int id = -1;
    int type = -1;
};

// Writes the payloads of an archive's streams to one file for each id, and a table of the blocks.
// Connects itself to the parser.
class cStreamFiles : public QObject
{
    Q_OBJECT

public:
    // Opens the file for a stream; never returns null.
    using OPEN_T =
        std::function<std::shared_ptr<cOutputFile>(int id, const QString &mediaExtension)>;

    // The index may be null. The feed and the parser that it feeds must outlive this object.
    cStreamFiles(const STREAM_CHOICE_T &choice, OPEN_T open, std::shared_ptr<cOutputFile> index,
                 const cFeed &feed, const cVrk3Parser &parser);

    // True if the rest of the archive need not be read: a file could not be written, or the only
    // one exists and is skipped.
    bool isDone() const;
    // Writes all data to the disk, with an empty file for each chosen stream without a block.
    // Returns an error message if the archive has no such stream; errors of files are in files().
    QString finish();

    // The files, the index last; check each for errors. If the only stream's file exists and is
    // skipped, the index is not among them.
    QList<std::shared_ptr<cOutputFile>> files() const;
    // What the files contain.
    qsizetype count() const { return m_files.size(); } // streams
    qint64 blocks() const { return m_blocks; }
    qint64 bytes() const { return m_bytes; }

private Q_SLOTS:
    void slot_Data(const HDR_T &hdr);
    void slot_Data(const IDX_T &idx);
    void slot_Data(const DATA_T &d);

private:
    struct FILE_T {
        QByteArray start; // the first bytes, until the file is open
        qint64 size = 0;
        std::shared_ptr<cOutputFile> output;
    };
    bool _isChosen(int id, int type) const;
    void _open(int id, FILE_T &file);
    QString _streams() const;

    STREAM_CHOICE_T m_choice;
    OPEN_T m_openFile;
    std::shared_ptr<cOutputFile> m_index;
    const cFeed &m_feed;
    const cVrk3Parser &m_parser;
    QSet<int> m_known; // streams of the headers, as id << 8 | type
    QMap<int, FILE_T> m_files;
    qint64 m_groups = 0;
    qint64 m_blocks = 0;
    qint64 m_bytes = 0;
    bool m_hasError = false;
};

#endif
