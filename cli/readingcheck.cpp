#include "cli/readingcheck.h"

#include "archive/hdrtxts.h"
#include "cli/messages.h"
#include "cli/summary.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <cstring>
#include <numeric>

using namespace Qt::StringLiterals;

namespace
{
constexpr size_t EXPECTED_DECIMALS = 4;
constexpr qsizetype NAME_LENGTH = 6; // of a sentence, with the dollar sign
// If there are points, missing fixes are reported only if there are at least two, and more than one
// in this many points. The window waits for a GPRMC, so the first fix is often missing, which is
// not worth a warning.
constexpr qint64 MIN_PART = 100;

// Returns true if the block contains a sentence that may have a position but that the window skips:
// one of another talker than GP, or one after a zero byte.
bool _isSkippedInPart(QByteArrayView block)
{
    const char *const zero = block.data() + qstrnlen(block.data(), size_t(block.size()));
    const char *p = block.begin();
    while ((p = static_cast<const char *>(std::memchr(p, '$', size_t(block.end() - p))))) {
        if (block.end() - p < NAME_LENGTH)
            return false;
        if (!(p[1] == 'G' && p[2] == 'P' && p < zero)) {
            const QByteArrayView kind(p + 3, 3);
            if (kind == "RMC" || kind == "GGA" || kind == "GNS")
                return true;
        }
        ++p;
    }
    return false;
}

// Returns true if the title, written between open and close, makes the XML invalid or contains
// mark, which begins markup. The mark is searched for first, because Qt's time to read an element
// grows with the square of the number of its attributes.
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
    if (m_stats.located() == m_located || _isSkippedInPart(a))
        Q_EMIT signal_Data(a);
    m_located = m_stats.located();
}

void cReadingCheck::slot_Data(const FIX_T &fix)
{
    const qint64 second = fix.time / MS_PER_SECOND % cTrackStats::SECONDS_PER_DAY;
    if (second < 0 || !m_stats.hasPoint(int(second)))
        ++m_unseen;
}

QStringList cReadingCheck::warnings(const NMEA_ACCOUNT_T &account, const QString &reader,
                                    const QString &format) const
{
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
    if (m_unseen > (located == 0 ? 0 : qMax(qint64(1), located / MIN_PART)))
        return u"%1 %2 in sentences that %3 does not read"_s.arg(
            countedFixes(m_unseen), m_unseen == 1 ? u"is"_s : u"are"_s, reader);
    const qint64 lost = m_stats.points() - located;
    if (lost > 0 && located == 0)
        return u"no point has a position"_s;
    if (lost > 0)
        return u"%1 of %2 %3 no position"_s.arg(QString::number(lost),
                                                counted(m_stats.points(), "point"),
                                                lost == 1 ? u"has"_s : u"have"_s);
    if (account.invalidPoints > 0)
        return u"%1 of %2 %3 a position that the receiver marks as invalid"_s.arg(
            QString::number(account.invalidPoints), counted(m_stats.points(), "point"),
            account.invalidPoints == 1 ? u"has"_s : u"have"_s);
    return {};
}
