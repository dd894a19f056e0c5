#include "cli/convert.h"

#include "cli/progress.h"
#include "cli/trackstats.h"
#include "gps/gpschain.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

// A format as the command line calls it, and as the chain knows it.
struct FORMAT_T {
    const char *name;
    const char *extension;
    const char *filter;
};

static constexpr std::array<FORMAT_T, 4> FORMATS = {{
    {"raw", ".txt", "Raw GPS output file (*.txt)"},
    {"gpx", ".gpx", "GPS Exchange Format (*.gpx)"},
    {"plt", ".plt", "OziExplorer track (*.plt)"},
    {"kml", ".kml", "GoogleEarth track (*.kml)"},
}};
static constexpr const FORMAT_T &USUAL_FORMAT = FORMATS[1];

static const QString TO = u"to"_s;

static const FORMAT_T *_find(const char *FORMAT_T::*key, const QString &value)
{
    const auto *const it =
        std::find_if(FORMATS.begin(), FORMATS.end(),
                     [&](const FORMAT_T &format) { return value == QLatin1String(format.*key); });
    return it == FORMATS.end() ? nullptr : it;
}

cConvert::cConvert()
    : cCommand(u"convert"_s, u"[options] ARCHIVE..."_s, u"Writes the GPS tracks of archives."_s)
{
}

void cConvert::addOptions(QCommandLineParser &parser)
{
    parser.addOption({{u"t"_s, TO},
                      u"Format: raw, gpx, plt or kml. Without it the extension of "
                      "-o's FILE decides, else it is gpx."_s,
                      u"FORMAT"_s});
    cTargets::addOptions(parser);
}

QString cConvert::readOptions(const QCommandLineParser &parser)
{
    QString wrong = m_targets.read(parser, archives());
    if (!wrong.isEmpty())
        return wrong;
    m_format = parser.isSet(TO) ? _find(&FORMAT_T::name, parser.value(TO))
                                : _find(&FORMAT_T::extension, m_targets.extension());
    if (!m_format && parser.isSet(TO))
        return u"there is no format '%1'"_s.arg(parser.value(TO));
    if (!m_format)
        m_format = &USUAL_FORMAT;
    m_inputs = archiveIds();
    return {};
}

QString cConvert::process(const QString &archive)
{
    cInputFile input(archive);
    if (!input.error().isEmpty())
        return input.error();
    const QString name = m_targets.nameFor(archive, QLatin1String(m_format->extension));
    cOutputFile output(name, m_targets.overwrite(), m_inputs);
    cTrackStats stats;
    ACCOUNT_T account;
    const bool raw = _pump(input, output, stats, account);
    // A failure of the output comes first: it may be what ended the reading.
    if (output.error().isEmpty()) {
        if (!input.error().isEmpty())
            return input.error();
        QString nothing = whyNoTrack(account, stats);
        if (!nothing.isEmpty())
            return nothing;
    }
    const QString amount =
        raw ? u"%1 bytes"_s.arg(output.size()) : u"%1 points"_s.arg(stats.points());
    return m_targets.conclude(archive, name, output, trackSummary(amount, stats, account));
}

// Sends the archive through the chain. The chain ends with the function, since it sends its last
// bytes when it is destroyed. True: the format has no points.
bool cConvert::_pump(cInputFile &input, cOutputFile &output, cTrackStats &stats,
                     ACCOUNT_T &account) const
{
    cGpsChain chain(QLatin1String(m_format->filter), &output);
    QObject::connect(&chain.raw(), SIGNAL(signal_Data(QByteArray)), &stats,
                     SLOT(slot_Data(QByteArray)));
    const bool raw = !chain.decoder();
    if (!raw)
        QObject::connect(chain.decoder(), SIGNAL(signal_Data(nmea_data)), &stats,
                         SLOT(slot_Data(nmea_data)));
    cProgress progress(input.name(), input.size(), !m_targets.quiet());
    QByteArray block;
    while (output.error().isEmpty() && input.next(block)) {
        chain.parser().slot_Data(block);
        progress.setPosition(input.position());
    }
    account = chain.parser().account();
    return raw;
}
