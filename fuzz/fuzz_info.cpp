// Sends arbitrary bytes as an archive through info and plot. Their outputs must be well-formed,
// safe to show on a terminal and of limited size.
#include "cli/contents.h"
#include "cli/contentsjson.h"
#include "cli/contentstext.h"
#include "cli/messages.h"
#include "cli/trackpicture.h"
#include "cli/tracksource.h"
#include "fuzz/harness.h"

#include <QJsonDocument>
#include <QTemporaryFile>
#include <QXmlStreamReader>

namespace
{
// Room for the lists of info with the longest texts, all escaped.
constexpr qsizetype MAX_INFO_SIZE = 4'000'000;
// The size of a picture's frame with the longest title, and the most that a point adds to it.
constexpr qsizetype MAX_FRAME_SIZE = 20'000;
constexpr qsizetype MAX_POINT_SIZE = 60;

// The commands read files. All inputs go through the same one.
QString _fileOf(const QByteArray &input)
{
    static QTemporaryFile file;
    require((file.isOpen() || file.open()) && file.resize(0) && file.seek(0) &&
                file.write(input) == input.size() && file.flush(),
            "the input can be stored");
    return file.fileName();
}

void _checkText(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes);
    require(bytes.size() <= MAX_INFO_SIZE, "info's output has a limit");
    require(text.remove(u'\n') == printable(text), "info's output cannot control a terminal");
}

void _checkInfo(const QString &file)
{
    cProgress progress(1, false);
    cContents contents;
    if (!contents.read({file}, progress).isEmpty())
        return;
    _checkText(contentsText(contents).toUtf8());
    const QJsonObject object = contentsJson(contents);
    const QByteArray json = printableJson(QJsonDocument(object).toJson());
    _checkText(json);
    require(QJsonDocument::fromJson(json).object() == object, "escaping does not change the JSON");
}

void _checkPlot(const QString &file)
{
    cProgress progress(1, false);
    cTrackSource source;
    if (!source.read({file}, progress).failure.isEmpty() || !source.finish().isEmpty())
        return;
    const QByteArray svg = cTrackPicture(source.track(), source.summary(), source.title()).svg();
    require(svg.size() <= MAX_FRAME_SIZE + MAX_POINT_SIZE * source.summary().fixes,
            "the picture has a limit");
    QXmlStreamReader xml(svg);
    while (!xml.atEnd())
        xml.readNext();
    require(!svg.isEmpty() && !xml.hasError(), "the picture is well-formed");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QString file = _fileOf(inputOf(data, size));
    _checkInfo(file);
    _checkPlot(file);
    return 0;
}
