#include "cli/convert.h"

#include "cli/feed.h"
#include "cli/messages.h"
#include "cli/readingcheck.h"
#include "cli/summary.h"
#include "cli/trackstats.h"
#include "gps/gpschain.h"
#include "track/fixreader.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

// A format on the command line.
struct FORMAT_T {
    const char *name;
    const char *extension;
};

namespace
{
constexpr std::array<FORMAT_T, 4> FORMATS = {
    {{"raw", ".txt"}, {"gpx", ".gpx"}, {"plt", ".plt"}, {"kml", ".kml"}}};
constexpr const FORMAT_T &RAW = FORMATS[0];
constexpr const FORMAT_T &GPX = FORMATS[1];

const QString TO = u"to"_s;

// Finds the format with this name or extension, in any case; null if there is none.
const FORMAT_T *_find(const char *FORMAT_T::*key, const QString &value)
{
    const auto *const it =
        std::find_if(FORMATS.begin(), FORMATS.end(), [&](const FORMAT_T &format) {
            return value.compare(QLatin1String(format.*key), Qt::CaseInsensitive) == 0;
        });
    return it == FORMATS.end() ? nullptr : it;
}

const FORMAT_T *_findByExtension(const QString &extension)
{
    if (extension.isEmpty())
        return &GPX;
    if (extension == ".nmea"_L1 || extension == ".log"_L1)
        return &RAW;
    return _find(&FORMAT_T::extension, extension);
}
} // namespace

cConvert::cConvert()
    : cCommand(u"convert"_s, u"[options] ARCHIVE..."_s, u"Write GPS tracks as the window does."_s)
{
}

void cConvert::addOptions(QCommandLineParser &parser)
{
    parser.addOption({{u"t"_s, TO},
                      u"Format: raw, gpx, plt or kml. The default follows the extension of "
                      "-o's FILE; otherwise it is gpx."_s,
                      u"FORMAT"_s});
    cTargets::addOptions(parser);
}

QString cConvert::readOptions(const QCommandLineParser &parser)
{
    QString wrong = m_targets.read(parser, archives());
    if (!wrong.isEmpty())
        return wrong;
    if (parser.isSet(TO)) {
        m_format = _find(&FORMAT_T::name, parser.value(TO));
        if (!m_format)
            return u"unknown format '%1' (use raw, gpx, plt or kml)"_s.arg(parser.value(TO));
    } else {
        m_format = _findByExtension(m_targets.extension());
        if (!m_format)
            return m_targets.unknownFormat();
    }
    return {};
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
