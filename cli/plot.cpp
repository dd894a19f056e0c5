#include "cli/plot.h"

#include "cli/trackpicture.h"
#include "cli/tracksource.h"

#include <utility>

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
    const auto output = m_targets.open(archive, EXTENSION, inputs());
    if (!output->isOpen())
        return {.files = {output}};
    cTrackSource source;
    RESULT_T part = source.read(archive, progress);
    if (!part.failure.isEmpty())
        return part;
    RESULT_T result = source.write(output, [&] {
        const cTrackPicture picture(source.track(), source.summary(), source.title());
        const QByteArray svg = picture.svg();
        output->slot_Data(svg);
        return !svg.isEmpty();
    });
    result.warnings = std::move(part.warnings);
    return result;
}
