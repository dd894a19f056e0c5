#include "driver/dlgprogress.h"
#include "gps/filesaver.h"
#include "gps/gpschain.h"
#include "settings/inifile.h"
#include "ui/globals.h"
#include "ui/winmain.h"
#include "zel/zelstyle.h"
#include "zel/zelwindow.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLocale>
#include <QRegularExpression>
#include <QTranslator>

#include <clocale>
#include <string>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 BLOCK_SIZE = 0x10000;

// Installs whatever lies beside the program for the language of the system: the program's own texts
// as well as those of Qt's dialogs.
void _loadTranslations()
{
    // Not deleted: they serve for as long as the application object is there.
    static QList<QTranslator *> translators;
    const QString folder = QCoreApplication::applicationDirPath();
    const QString filter = "*_" + QLocale::system().name().left(2) + ".qm";
    const QDir::Filters files = QDir::Files | QDir::Readable | QDir::Hidden | QDir::System;
    for (const QString &name : QDir(folder).entryList({filter}, files, QDir::NoSort)) {
        translators.append(new QTranslator);
        // A file that cannot be loaded gives an empty translator, which does no harm. Empty
        // texts, since null ones would let Qt try other names, too.
        (void)translators.constLast()->load(folder + '/' + name, "", "", "");
        QCoreApplication::installTranslator(translators.constLast());
    }
}

void _classifyArguments(int argc, char **argv)
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

void _askInput()
{
    const QString name = QFileDialog::getOpenFileName(nullptr, QObject::tr("Open"), {},
                                                      QObject::tr("VRK3 files (*.vrk3)"));
    if (!name.isEmpty())
        gParams->inputs.append(name);
}

std::string _sessionSection()
{
    return (QCoreApplication::applicationName() + "session").toLocal8Bit().toStdString();
}

void _createMainframe()
{
    gZelWindow = new ZelWindow;
    gMainWindow = new CWinMain;
    const QString title = gMainWindow->windowTitle();
    const std::string version = gSettings->GetString("common", "options_version", "");
    gZelWindow->setWindowTitle(R"(<i><FONT size="-1">)" + title +
                               R"(</FONT><FONT size="1" align=right>&nbsp;<br>)" +
                               QString::fromLatin1(version.c_str()) + "</FONT></i>");
    gZelWindow->QWidget::setWindowTitle(title);
    gZelWindow->setCentralWidget(gMainWindow);
    gZelWindow->zelWindowTitle()->setHiddenDevice(true);

    const std::string section = _sessionSection();
    const int height = gSettings->GetInt(section, "winHeight", 220);
    const int width = gSettings->GetInt(section, "winWidth", 480);
    const int top = gSettings->GetInt(section, "winTop", 100);
    const int left = gSettings->GetInt(section, "winLeft", 100);
    // Also for a frame shown maximised: this is what it returns to.
    gZelWindow->setGeometry(left, top, width, height);
    if (gSettings->GetString(section, "fullscreen", "false") == "true")
        gZelWindow->showMaximized();
    else
        gZelWindow->setVisible(true);
}

// The frame is closed by now, but still knows where it was.
void _destroyMainframe()
{
    const std::string section = _sessionSection();
    const bool maximised = gZelWindow->isMaximized();
    gSettings->WriteString(section, "fullscreen", maximised ? "true" : "false");
    if (maximised)
        return;
    const QRect frame = gZelWindow->geometry();
    gSettings->WriteInt(section, "winLeft", frame.left());
    gSettings->WriteInt(section, "winTop", frame.top());
    gSettings->WriteInt(section, "winWidth", frame.width());
    gSettings->WriteInt(section, "winHeight", frame.height());
}

// Each input's name with the extension that stands in the brackets of the filter text.
void _proposeOutputs()
{
    static const QRegularExpression filterExtension(uR"(^.*\(*(\..+)\)\z)"_s,
                                                    QRegularExpression::DotMatchesEverythingOption);
    // Letters of all scripts, also those that are written as a letter and a mark.
    static const QRegularExpression nameExtension(uR"(\.[\w\p{M}]+\z)"_s,
                                                  QRegularExpression::UseUnicodePropertiesOption);

    const QString extension = filterExtension.match(gParams->filter).captured(1);
    gParams->outputs.clear();
    for (QString name : std::as_const(gParams->inputs))
        gParams->outputs.append(name.replace(nameExtension, extension));
}

// Asks the open file and not its name, under which there may be another file by now.
bool _isSameFile(const QFile &input, const QString &name)
{
    struct stat in = {}, out = {};
    return fstat(input.handle(), &in) == 0 && stat(QFile::encodeName(name), &out) == 0 &&
           in.st_dev == out.st_dev && in.st_ino == out.st_ino;
}

// Leaves the one chosen name in the outputs, or nothing.
void _askOutput(const QFile &input)
{
    const QString proposal = gParams->outputs.constFirst();
    QString name;
    // Writing empties the file at once, so the input itself cannot be the output.
    do {
        name =
            QFileDialog::getSaveFileName(nullptr, QObject::tr("Save"), proposal, gParams->filter);
    } while (!name.isEmpty() && _isSameFile(input, name));
    gParams->outputs.clear();
    if (!name.isEmpty())
        gParams->outputs.append(name);
}

void _pump(QFile *input, cVrk3Parser *parser, cDlgProgress *progress)
{
    // One block for the whole run: a new one each time would be mapped and faulted in again.
    QByteArray block;
    // Asked once, since asking the system for each block shows in the cost of the whole run.
    const qint64 size = input->size();
    while (!input->atEnd() && progress->isVisible()) {
        block.resize(BLOCK_SIZE);
        block.resize(qMax<qint64>(0, input->read(block.data(), BLOCK_SIZE)));
        // A read that fails would fail for ever.
        if (block.isEmpty())
            return;
        parser->slot_Data(block);
        // Special files have bytes but no size: no division by 0.
        if (size > 0)
            progress->ui.progressBar->setValue(static_cast<int>(input->pos() * 100 / size));
        QCoreApplication::processEvents();
    }
}

void _extract()
{
    QFile input(gParams->inputs.constFirst());
    if (!input.open(QIODevice::ReadOnly))
        return;
    _proposeOutputs();
    _askOutput(input);
    if (gParams->outputs.isEmpty())
        return;

    // The order counts: the writers send their last data while they are destroyed.
    cFileSaver saver(gParams->outputs.constFirst(), nullptr);
    cGpsChain chain(gParams->filter, &saver);
    cDlgProgress progress;
    progress.setVisible(true);
    _pump(&input, &chain.parser(), &progress);
    progress.accept();
}
} // namespace

int main(int argc, char **argv)
{
    gParams = new PARAMS_T;
    QApplication app(argc, argv);
    // The dot is part of the name: the names of the settings' sections are built on it.
    QCoreApplication::setApplicationName(u"vrktrk."_s);
    QGuiApplication::setDesktopFileName(u"vrktrk"_s);
    QApplication::setWindowIcon(QIcon(u":/resources/halvorant_vrktrk.ico"_s));
    std::setlocale(LC_CTYPE, "");
    // The application takes the style over.
    // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks)
    QApplication::setStyle(new ZelStyle);
    QApplication::setPalette(QApplication::style()->standardPalette());
    // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)
    _loadTranslations();
    _classifyArguments(argc, argv);
    if (gParams->inputs.isEmpty())
        _askInput();
    if (gParams->inputs.isEmpty())
        return 0;
    gSettings = new CIniFile;
    gSettings->EnableDefValsCreation(true);
    _createMainframe();
    QApplication::exec();
    if (gParams->action == 1)
        _extract();
    _destroyMainframe();
    delete gSettings;
    return 0;
}
