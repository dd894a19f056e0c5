#include "cli/contentstsv.h"

#include "cli/contents.h"
#include "cli/messages.h"
#include "cli/summary.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace
{
QString _line(const QStringList &cells)
{
    return cells.join(u'\t') + u'\n';
}
} // namespace

QString contentsTsvHeader()
{
    return _line({u"file"_s, u"title"_s, u"first"_s, u"last"_s, u"seconds"_s, u"fixes"_s,
                  u"kilometres"_s, u"bytes"_s, u"bytes_lost"_s});
}

QString contentsTsv(const cContents &contents)
{
    const TRACK_SUMMARY_T &track = contents.track();
    const auto time = [](const std::optional<qint64> &value) {
        return value ? QString::fromLatin1(timeText(*value)) : QString();
    };
    const QString seconds =
        track.first && track.last
            ? QString::number(double(*track.last - *track.first) / MS_PER_SECOND, 'f',
                              QLocale::FloatingPointShortest)
            : QString();
    const cHeaderText title = contents.titles().value(0);
    const ACCOUNT_T &account = contents.account();
    return _line({printable(contents.archive()), printable(title.shown()), time(track.first),
                  time(track.last), seconds, QString::number(track.fixes),
                  QString::number(track.metres / METRES_PER_KILOMETRE, 'f', 3),
                  QString::number(account.received), QString::number(uselessBytes(account))});
}
