#include "cli/plot.h"

#include "cli/messages.h"
#include "cli/summary.h"
#include "cli/trackpicture.h"
#include "cli/trackreader.h"

#include <QFileInfo>

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

    cTrackReader reader;
    reader.skipOtherStreams();
    cTrackPicture picture(displayName(QFileInfo(archive.name).fileName(), u"standard input"_s));
    QObject::connect(&reader.parser(), SIGNAL(signal_Data(HDR_T)), &picture,
                     SLOT(slot_Data(HDR_T)));
    QObject::connect(&reader.nmea(), SIGNAL(signal_Data(nmea_data)), &picture,
                     SLOT(slot_Data(nmea_data)));
    const cTrackStats &stats = reader.stats();
    result.failure = reader.read(archive, progress);
    const ACCOUNT_T &account = reader.account();
    if (result.failure.isEmpty())
        result.failure = whyNoTrack(account, stats);
    if (result.failure.isEmpty() && stats.located() == 0)
        result.failure = u"no point has a position"_s;
    if (!result.failure.isEmpty())
        return result;
    const QByteArray svg = picture.svg(stats);
    if (svg.isEmpty())
        return {u"the picture cannot be written as XML"_s};
    output->slot_Data(svg);
    output->finish();
    result.summary = trackSummary(counted(stats.points(), "point"), stats, account, output->name());
    return result;
}
