#include "cli/readingcheck.h"

#include "archive/hdrtxts.h"
#include "cli/messages.h"
#include "cli/summary.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace
{
constexpr size_t EXPECTED_DECIMALS = 4;
// A longer pause between points is a gap that may contain fixes.
constexpr int MAX_PAUSE = 10; // seconds
// Missing fixes are reported only if there is more than one in this many points. The window waits
// for a GPRMC, so the first fixes are often missing, which is not worth a warning.
constexpr qint64 MIN_PART = 100;

// Returns true if an element with this title, between open and close, is not plain text. Markup
// in the title begins with mark. It is searched for because Qt's time to read an element grows with
// the square of the number of its attributes.
bool _breaksXml(const QByteArray &title, const QString &mark, const QString &open,
                const QString &close)
{
    const QString text = hdrText(title);
    if (text.contains(mark))
        return true;
    QXmlStreamReader xml(u"<name>"_s + open + text + close + u"</name>"_s);
    while (!xml.atEnd())
        xml.readNext();
    return xml.hasError();
}
} // namespace

cReadingCheck::cReadingCheck(const cTrackStats &stats, QObject *parent)
    : QObject(parent), m_stats(stats)
{
    connect(&m_reader, SIGNAL(signal_Data(FIX_T)), SLOT(slot_Data(FIX_T)));
}

// The window's GPX contains the title of the last header before the first text; its KML contains
// that of the last header.
void cReadingCheck::slot_Data(const HDR_T &hdr)
{
    m_kmlTitle = hdr.title;
    if (!m_hasText)
        m_gpxTitle = hdr.title;
}

void cReadingCheck::slot_Data(const QByteArray &a)
{
    m_hasText = true;
    if (m_stats.located() == m_located)
        m_reader.slot_Data(a);
    else
        _markSeen();
}

// Marks the seconds up to that of the last point as seen.
void cReadingCheck::_markSeen()
{
    m_located = m_stats.located();
    const double time = m_stats.last().time;
    if (!(time >= 0 && time < SECONDS_PER_DAY))
        return;
    const int second = int(time);
    const int elapsed = (second - m_second + SECONDS_PER_DAY) % SECONDS_PER_DAY;
    const int pause = m_second < 0 || elapsed > MAX_PAUSE ? 0 : elapsed;
    for (int i = 0; i <= pause; ++i)
        m_seen.set(size_t((second - i + SECONDS_PER_DAY) % SECONDS_PER_DAY));
    m_second = second;
}

void cReadingCheck::slot_Data(const FIX_T &fix)
{
    const qint64 second = fix.time / MS_PER_SECOND % SECONDS_PER_DAY;
    if (second < 0 || !m_seen.test(size_t(second)))
        ++m_unseen;
}

QStringList cReadingCheck::warnings(const NMEA_ACCOUNT_T &account, const QString &reader,
                                    const QString &format)
{
    m_reader.finish();
    QStringList warnings;
    const QString track = _trackWarning(account, reader);
    const bool hasFixes = m_stats.located() > 0 || m_unseen > 0;
    if (!track.isEmpty())
        warnings.append(hasFixes ? track + u"; use vrk3 track"_s : track);
    QStringList broken;
    if (format.contains("gpx"_L1) && _breaksXml(m_gpxTitle, u"]]>"_s, u"<![CDATA["_s, u"]]>"_s))
        broken.append(u"GPX"_s);
    if (format.contains("kml"_L1) && _breaksXml(m_kmlTitle, u"<"_s, {}, {}))
        broken.append(u"KML"_s);
    if (!broken.isEmpty())
        warnings.append(
            u"its title breaks the XML of %1 files; use vrk3 track"_s.arg(broken.join(u" and "_s)));
    return warnings;
}

// Returns the most serious fault of the track; empty if there is none.
QString cReadingCheck::_trackWarning(const NMEA_ACCOUNT_T &account, const QString &reader) const
{
    auto counts = account.decimals;
    counts.at(EXPECTED_DECIMALS) = 0;
    const qint64 misread = std::accumulate(counts.begin(), counts.end(), qint64(0));
    if (misread > 0) {
        auto *const most = std::max_element(counts.begin(), counts.end());
        QString decimals = u"other than 4 decimals"_s;
        if (*most == misread && most + 1 != counts.end())
            decimals = counted(most - counts.begin(), "decimal");
        return u"%1 %2 minutes with %3, which %4 misreads"_s.arg(
            counted(misread, "position"), misread == 1 ? u"has"_s : u"have"_s, decimals, reader);
    }
    const qint64 located = m_stats.located();
    if (m_unseen * MIN_PART > located)
        return u"%1 %2 in sentences that %3 does not read"_s.arg(
            countedFixes(m_unseen), m_unseen == 1 ? u"is"_s : u"are"_s, reader);
    const qint64 lost = m_stats.points() - located;
    if (lost > 0 && located == 0)
        return u"no point has a position"_s;
    if (lost > 0)
        return u"%1 of %2 %3 no position"_s.arg(QString::number(lost),
                                                counted(m_stats.points(), "point"),
                                                lost == 1 ? u"has"_s : u"have"_s);
    return {};
}
