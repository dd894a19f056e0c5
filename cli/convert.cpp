#include "cli/convert.h"

#include "cli/feed.h"
#include "cli/formats.h"
#include "cli/messages.h"
#include "cli/readingcheck.h"
#include "cli/summary.h"
#include "cli/trackstats.h"
#include "gps/gpschain.h"
#include "track/fixreader.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::array<FORMAT_T, 4> FORMATS = {
    {{"raw", ".txt", ".nmea .log"}, {"gpx", ".gpx"}, {"plt", ".plt"}, {"kml", ".kml"}}};
} // namespace

cConvert::cConvert()
    : cCommand(u"convert"_s, u"[options] ARCHIVE..."_s, u"Write GPS tracks as the window does."_s)
{
}

void cConvert::addOptions(QCommandLineParser &parser)
{
    addFormatOption(parser, FORMATS);
    cTargets::addOptions(parser);
}

QString cConvert::readOptions(const QCommandLineParser &parser)
{
    const QString wrong = m_targets.read(parser, archives());
    return wrong.isEmpty() ? readFormat(parser, m_targets, FORMATS, m_format) : wrong;
}

RESULT_T cConvert::process(const ARCHIVE_T &archive, cProgress &progress) const
{
    cFeed feed(archive);
    if (!feed.error().isEmpty())
        return {feed.error()};
    const QString extension = QLatin1String(m_format->extension);
    RESULT_T result;
    const auto output = m_targets.open(archive, extension, inputs());
    result.files = {output};
    if (!output->isOpen())
        return result;
    cTrackStats stats;
    cReadingCheck check(stats);
    cFixReader fixReader;
    QObject::connect(&check, SIGNAL(signal_Data(QByteArray)), &fixReader,
                     SLOT(slot_Data(QByteArray)));
    QObject::connect(&fixReader, SIGNAL(signal_Data(FIX_T)), &check, SLOT(slot_Data(FIX_T)));
    bool hasPoints = false;
    {
        // The chain sends its last bytes when it is destroyed.
        cGpsChain chain(u'*' + extension, output.get());
        QObject::connect(&chain.raw(), SIGNAL(signal_Data(QByteArray)), &stats,
                         SLOT(slot_Data(QByteArray)));
        hasPoints = chain.decoder() != nullptr;
        if (hasPoints) {
            QObject::connect(chain.decoder(), SIGNAL(signal_Data(nmea_data)), &stats,
                             SLOT(slot_Data(nmea_data)));
            QObject::connect(&chain.parser(), SIGNAL(signal_Data(HDR_T)), &check,
                             SLOT(slot_Data(HDR_T)));
            QObject::connect(&chain.raw(), SIGNAL(signal_Data(QByteArray)), &check,
                             SLOT(slot_Data(QByteArray)));
        }
        feed.run(chain.parser(), progress, [&] { return !output->isOpen(); });
        fixReader.finish();
        if (hasPoints)
            result.warnings =
                check.warnings(chain.decoder()->account(), u"this format"_s, extension);
    }
    result.warnings += headerWarnings(archive, feed.account());
    if (output->error().isEmpty()) {
        result.failure = feed.error().isEmpty() ? whyNoTrack(feed.account(), stats) : feed.error();
        if (!result.failure.isEmpty())
            return result;
    }
    output->finish();
    const QString amount =
        hasPoints ? counted(stats.points(), "point") : counted(output->size(), "byte");
    result.summary = trackSummary(amount, stats, feed.account(), output->name());
    return result;
}
