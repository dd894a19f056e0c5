#include "cli/plot.h"

#include "archive/hdrtxts.h"
#include "cli/trackpicture.h"
#include "cli/trackreader.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

cPlot::cPlot()
    : cCommand(u"plot"_s, u"[options] ARCHIVE..."_s,
               u"Draws the GPS tracks of archives as SVG pictures."_s)
{
}

void cPlot::addOptions(QCommandLineParser &parser)
{
    cTargets::addOptions(parser);
}

QString cPlot::readOptions(const QCommandLineParser &parser)
{
    m_inputs = archiveIds();
    return m_targets.read(parser, archives());
}

QString cPlot::process(const QString &archive)
{
    const QString name = m_targets.nameFor(archive, u".svg"_s);
    cOutputFile output(name, m_targets.overwrite(), m_inputs);
    cTrackReader reader;
    cHdrTxts texts;
    cTrackPicture picture(displayName(QFileInfo(archive).fileName(), u"standard input"_s));
    QObject::connect(&reader.parser(), SIGNAL(signal_Data(HDR_T)), &texts, SLOT(slot_Data(HDR_T)));
    QObject::connect(&texts, SIGNAL(signal_Data(int, QString)), &picture,
                     SLOT(slot_Data(int, QString)));
    QObject::connect(&reader.nmea(), SIGNAL(signal_Data(nmea_data)), &picture,
                     SLOT(slot_Data(nmea_data)));
    if (output.error().isEmpty()) {
        QString failure = reader.read(archive, !m_targets.quiet());
        if (failure.isEmpty())
            failure = whyNoTrack(reader.parser().account(), reader.stats());
        if (failure.isEmpty() && reader.stats().located() == 0)
            failure = u"it has no point with a position"_s;
        if (!failure.isEmpty())
            return failure;
        output.slot_Data(picture.svg(reader.stats()));
    }
    const QString amount = u"%1 points"_s.arg(reader.stats().points());
    return m_targets.conclude(archive, name, output,
                              trackSummary(amount, reader.stats(), reader.parser().account()));
}
