#include "dlgprogress.h"
#include "filesaver.h"
#include "globals.h"
#include "gpschain.h"
#include "winmain.h"
#include "zelstyle.h"
#include "zelwindow.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

#include <clocale>
#include <filesystem>

namespace
{
constexpr qint64 BLOCK_SIZE = 0x10000;

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

void _createMainframe()
{
    gZelWindow = new ZelWindow;
    gMainWindow = new CWinMain;
    const QString title = gMainWindow->windowTitle();
    gZelWindow->setWindowTitle(R"(<i><FONT size="-1">)" + title +
                               R"(</FONT><FONT size="1" align=right>&nbsp;<br>)" + "</FONT></i>");
    gZelWindow->QWidget::setWindowTitle(title);
    gZelWindow->setCentralWidget(gMainWindow);
    gZelWindow->zelWindowTitle()->setHiddenDevice(true);
    gZelWindow->setGeometry(100, 100, 480, 220);
    gZelWindow->setVisible(true);
}

// Each input's name with the extension that stands in the brackets of the filter text.
void _proposeOutputs()
{
    static const QRegularExpression filterExtension(QStringLiteral(R"(^.*\(*(\..+)\)\z)"),
                                                    QRegularExpression::DotMatchesEverythingOption);
    // Letters of all scripts, also those that are written as a letter and a mark.
    static const QRegularExpression nameExtension(QStringLiteral(R"(\.[\w\p{M}]+\z)"),
                                                  QRegularExpression::UseUnicodePropertiesOption);

    const QString extension = filterExtension.match(gParams->filter).captured(1);
    gParams->outputs.clear();
    for (QString name : std::as_const(gParams->inputs))
        gParams->outputs.append(name.replace(nameExtension, extension));
}

bool _isSameFile(const QFile &input, const QString &name)
{
    std::error_code notThere;
    return std::filesystem::equivalent(input.filesystemFileName(),
                                       QFileInfo(name).filesystemFilePath(), notThere);
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
    while (!input->atEnd() && progress->isVisible()) {
        const QByteArray block = input->read(BLOCK_SIZE);
        // A read that fails would fail for ever.
        if (block.isEmpty())
            return;
        parser->slot_Data(block);
        // Special files have bytes but no size.
        if (const qint64 size = input->size())
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
    QCoreApplication::setApplicationName(QStringLiteral("vrktrk."));
    QGuiApplication::setDesktopFileName(QStringLiteral("vrktrk"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/resources/halvorant_vrktrk.ico")));
    std::setlocale(LC_CTYPE, "");
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the application takes it over.
    QApplication::setStyle(new ZelStyle);
    QApplication::setPalette(QApplication::style()->standardPalette());
    _classifyArguments(argc, argv);
    if (gParams->inputs.isEmpty())
        _askInput();
    if (gParams->inputs.isEmpty())
        return 0;
    _createMainframe();
    QApplication::exec();
    if (gParams->action == 1)
        _extract();
    return 0;
}
