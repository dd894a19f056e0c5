#include "convert.h"

#include "gpschain.h"
#include "outputfile.h"
#include "progress.h"
#include "trackstats.h"

#include <algorithm>
#include <array>
#include <cstdio>

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

static const QString TO = QStringLiteral("to");

static const FORMAT_T *_find(const char *FORMAT_T::*key, const QString &value)
{
    const auto it = std::find_if(FORMATS.begin(), FORMATS.end(), [&](const FORMAT_T &format) {
        return value == QLatin1String(format.*key);
    });
    return it == FORMATS.end() ? nullptr : it;
}

// The line that a person reads: "1234 points, 12:01:07 to 13:20:44 UTC, 56 bytes skipped".
static QString _summary(const cTrackStats &stats, const ACCOUNT_T &account, bool raw,
                        qint64 written)
{
    QString line = raw ? QStringLiteral("%1 bytes").arg(written)
                       : QStringLiteral("%1 points").arg(stats.points());
    if (stats.located() > 0)
        line += QStringLiteral(", ") + timeSpan(stats);
    const qint64 used = account.hdr + account.idx + account.heads + account.delivered;
    return line + QStringLiteral(", %1 bytes skipped").arg(account.received - used);
}

cConvert::cConvert()
    : cCommand(QStringLiteral("convert"), QStringLiteral("[options] ARCHIVE..."),
               QStringLiteral("Writes the GPS tracks of archives."))
{
}

void cConvert::addOptions(QCommandLineParser &parser)
{
    parser.addOption({{QStringLiteral("t"), TO},
                      QStringLiteral("Format: raw, gpx, plt or kml. Without it the extension of "
                                     "-o's FILE decides, else it is gpx."),
                      QStringLiteral("FORMAT")});
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
        return QStringLiteral("there is no format '%1'").arg(parser.value(TO));
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
    const QString shownName = displayName(name, QStringLiteral("standard output"));
    const QString cannotWrite = QStringLiteral("cannot write %1: %2");
    cOutputFile output(name, m_targets.overwrite(), m_inputs);
    cTrackStats stats;
    ACCOUNT_T account;
    bool raw = false;
    {
        cGpsChain chain(QLatin1String(m_format->filter), &output);
        QObject::connect(&chain.raw(), SIGNAL(signal_Data(QByteArray)), &stats,
                         SLOT(slot_Data(QByteArray)));
        raw = !chain.decoder();
        if (!raw)
            QObject::connect(chain.decoder(), SIGNAL(signal_Data(nmea_data)), &stats,
                             SLOT(slot_Data(nmea_data)));
        cProgress progress(archive, input.size(), !m_targets.quiet());
        QByteArray block;
        while (output.error().isEmpty() && input.next(block)) {
            chain.parser().slot_Data(block);
            progress.setPosition(input.position());
        }
        account = chain.parser().account();
    } // the writer sends its last bytes

    if (!output.error().isEmpty())
        return cannotWrite.arg(shownName, output.error());
    if (!input.error().isEmpty())
        return input.error();
    const QString nothing = whyNoTrack(account, stats);
    if (!nothing.isEmpty())
        return nothing;
    if (!output.commit())
        return cannotWrite.arg(shownName, output.error());
    if (!m_targets.quiet()) {
        const QString line = displayName(archive, QStringLiteral("standard input")) +
                             QStringLiteral(": ") + _summary(stats, account, raw, output.size()) +
                             QStringLiteral(" -> ") + shownName;
        std::fprintf(stderr, "%s\n", qPrintable(printable(line)));
    }
    return {};
}
