#include "driver/startup.h"

#include "ui/globals.h"
#include "zel/zelstyle.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>

#include <clocale>

using namespace Qt::StringLiterals;

void setUpApplication()
{
    // The dot is part of the name, because the sections of the settings are named after it.
    QCoreApplication::setApplicationName(u"vrktrk."_s);
    QGuiApplication::setDesktopFileName(u"vrktrk"_s);
    QApplication::setWindowIcon(QIcon(u":/resources/halvorant_vrktrk.ico"_s));
    std::setlocale(LC_CTYPE, "");
    // The application takes ownership of the style.
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setStyle(new ZelStyle);
    QApplication::setPalette(QApplication::style()->standardPalette());
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
}

void classifyArguments(int argc, char **argv)
{
    for (int i = 0; i < argc; ++i) {
        gParams->args.append(QString::fromLocal8Bit(argv[i]));
        if (i == 0)
            continue;
        const QString &arg = gParams->args.constLast();
        if (arg.startsWith(u'/') || arg.startsWith(u'-'))
            gParams->switches.append(arg);
        else if (QFile(arg).exists())
            gParams->inputs.append(arg);
    }
}

void askInput()
{
    const QString name = QFileDialog::getOpenFileName(nullptr, QObject::tr("Open"), {},
                                                      QObject::tr("VRK3 files (*.vrk3)"));
    if (!name.isEmpty())
        gParams->inputs.append(name);
}
