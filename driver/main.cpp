#include "driver/run.h"
#include "driver/session.h"
#include "driver/startup.h"
#include "settings/inifile.h"
#include "ui/globals.h"
#include "ui/winmain.h"
#include "zel/zelwindow.h"

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QTranslator>

namespace
{
// Installs the translation files beside the program for the language of the system: those of the
// program's own texts and those of Qt's dialogs.
void _loadTranslations()
{
    // Never deleted: they are in use as long as the application object exists.
    static QList<QTranslator *> translators;
    const QString folder = QCoreApplication::applicationDirPath();
    const QString filter = "*_" + QLocale::system().name().left(2) + ".qm";
    const QDir::Filters files = QDir::Files | QDir::Readable | QDir::Hidden | QDir::System;
    for (const QString &name : QDir(folder).entryList({filter}, files, QDir::NoSort)) {
        translators.append(new QTranslator);
        // A file that cannot be loaded leaves an empty translator, which does no harm. The texts
        // are empty and not null: with null ones Qt would try other file names, too.
        (void)translators.constLast()->load(folder + '/' + name, "", "", "");
        QCoreApplication::installTranslator(translators.constLast());
    }
}

// Creates the frame with the format choice in it and shows it.
void _createMainframe()
{
    gZelWindow = new ZelWindow;
    gMainWindow = new CWinMain;
    const QString title = gMainWindow->windowTitle();
    gZelWindow->setWindowTitle(R"(<i><FONT size="-1">)" + title +
                               R"(</FONT><FONT size="1" align=right>&nbsp;<br>)" + versionLine() +
                               "</FONT></i>");
    gZelWindow->QWidget::setWindowTitle(title);
    gZelWindow->setCentralWidget(gMainWindow);
    gZelWindow->zelWindowTitle()->setHiddenDevice(true);
    restoreSession(gZelWindow);
}

// Stores the state of the frame, which is closed but still exists.
void _destroyMainframe()
{
    storeSession(*gZelWindow);
}
} // namespace

int main(int argc, char **argv)
{
    gParams = new PARAMS_T;
    const QApplication app(argc, argv);
    setUpApplication();
    _loadTranslations();
    classifyArguments(argc, argv);
    if (gParams->inputs.isEmpty())
        askInput();
    if (gParams->inputs.isEmpty())
        return 0;
    gSettings = new CIniFile;
    gSettings->EnableDefValsCreation(true);
    _createMainframe();
    QApplication::exec();
    if (gParams->action == 1)
        runExtraction();
    _destroyMainframe();
    delete gSettings;
    return 0;
}
