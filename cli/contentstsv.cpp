#include "cli/contentstsv.h"

#include "cli/contents.h"
#include "cli/messages.h"
#include "cli/summary.h"
#include "gps/tracktext.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr double METRES_PER_KILOMETRE = 1000;

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
    const cTrackStats &stats = contents.stats();
    QString first;
    QString last;
    QString seconds;
    if (stats.located() > 0) {
        first = pointTime(stats.first());
        last = pointTime(stats.last());
    }
    if (!first.isEmpty() && !last.isEmpty())
        seconds = QString::number(nearestSecond(stats.last()) - nearestSecond(stats.first()));
    const cHeaderText title = contents.titles().value(0);
    const ACCOUNT_T account = contents.account();
    return _line({printable(contents.archive()), printable(title.shown()), first, last, seconds,
                  QString::number(stats.located()),
                  QString::number(stats.metres() / METRES_PER_KILOMETRE, 'f', 3),
                  QString::number(account.received), QString::number(uselessBytes(account))});
}
