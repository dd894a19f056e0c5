#include "cli/plot.h"

#include "cli/summary.h"
#include "cli/trackpicture.h"
#include "cli/tracksource.h"

using namespace Qt::StringLiterals;

namespace
{
const QString EXTENSION = u".svg"_s;
}

cPlot::cPlot()
    : cCommand(u"plot"_s, u"[options] ARCHIVE..."_s, u"Draw GPS tracks as SVG pictures."_s)
{
}

void cPlot::addOptions(QCommandLineParser &parser)
{
    cTargets::addOptions(parser);
}

QString cPlot::readOptions(const QCommandLineParser &parser)
{
    QString wrong = m_targets.read(parser, archives());
    const QString extension = m_targets.extension();
    if (wrong.isEmpty() && !extension.isEmpty() && extension != EXTENSION)
        wrong = u"-o needs a name that ends in .svg"_s;
    return wrong;
}

RESULT_T cPlot::process(const ARCHIVE_T &archive, cProgress &progress) const
{
    RESULT_T result;
    const auto output = m_targets.open(archive, EXTENSION, inputs());
    result.files = {output};
    if (!output->isOpen())
        return result;

    cTrackSource source;
    result.failure = source.read(archive, progress);
    if (result.failure.isEmpty())
        result.failure = source.finish();
    if (!result.failure.isEmpty())
        return result;
    const cTrackPicture picture(source.track(), source.summary(), source.title());
    // The picture also walks through the track, which may fail.
    if (!source.track().error().isEmpty())
        return {source.track().error()};
    const QByteArray svg = picture.svg();
    if (svg.isEmpty())
        return {u"the picture cannot be written as XML"_s};
    output->slot_Data(svg);
    output->finish();
    result.summary = trackSummary(source.summary(), output->name());
    return result;
}
