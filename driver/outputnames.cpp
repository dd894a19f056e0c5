#include "driver/outputnames.h"

#include <QFile>
#include <QFileDialog>
#include <QRegularExpression>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{
// Compares the open file itself, because its name may belong to another file by now.
bool _isSameFile(const QFile &input, const QString &name)
{
    struct stat in = {}, out = {};
    return fstat(input.handle(), &in) == 0 && stat(QFile::encodeName(name), &out) == 0 &&
           in.st_dev == out.st_dev && in.st_ino == out.st_ino;
}
} // namespace

QStringList proposedOutputs(const QStringList &inputs, const QString &filter)
{
    static const QRegularExpression filterExtension(uR"(^.*\(*(\..+)\)\z)"_s,
                                                    QRegularExpression::DotMatchesEverythingOption);
    // Letters of all scripts, including those written as a letter and a combining mark.
    static const QRegularExpression nameExtension(uR"(\.[\w\p{M}]+\z)"_s,
                                                  QRegularExpression::UseUnicodePropertiesOption);
    const QString extension = filterExtension.match(filter).captured(1);
    QStringList outputs;
    for (QString name : inputs)
        outputs.append(name.replace(nameExtension, extension));
    return outputs;
}

QString askOutput(const QFile &input, const QString &proposal, const QString &filter)
{
    QString name;
    // Opening the output truncates it, so the input must not be the output.
    do {
        name = QFileDialog::getSaveFileName(nullptr, QObject::tr("Save"), proposal, filter);
    } while (!name.isEmpty() && _isSameFile(input, name));
    return name;
}
