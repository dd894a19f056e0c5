#include "cli/formats.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
const QString TO = u"to"_s;
constexpr QLatin1String USUAL("gpx");

// "raw, gpx, plt or kml"
QString _names(std::span<const FORMAT_T> formats)
{
    QStringList names;
    for (const FORMAT_T &format : formats)
        names.append(QLatin1String(format.name));
    const QString last = names.takeLast();
    return names.join(u", "_s) + u" or "_s + last;
}
} // namespace

void addFormatOption(QCommandLineParser &parser, std::span<const FORMAT_T> formats)
{
    parser.addOption(
        {{u"t"_s, TO},
         u"Format: %1. By default, the extension of -o's FILE decides; if there is none, it is "
         "%2."_s.arg(_names(formats), USUAL),
         u"FORMAT"_s});
}

QString readFormat(const QCommandLineParser &parser, const cTargets &targets,
                   std::span<const FORMAT_T> formats, const FORMAT_T *&chosen)
{
    const bool isNamed = parser.isSet(TO);
    const QString name = isNamed ? parser.value(TO) : USUAL;
    const QString extension = targets.extension();
    const auto isChosen = [&](const FORMAT_T &format) {
        if (isNamed || extension.isEmpty())
            return name.compare(QLatin1String(format.name), Qt::CaseInsensitive) == 0;
        return extension == QLatin1String(format.extension) ||
               QString::fromLatin1(format.otherExtensions).split(u' ').contains(extension);
    };
    const auto it = std::find_if(formats.begin(), formats.end(), isChosen);
    if (it != formats.end())
        chosen = &*it;
    else if (isNamed)
        return u"unknown format '%1' (use %2)"_s.arg(name, _names(formats));
    else
        return targets.unknownFormat();
    return {};
}
