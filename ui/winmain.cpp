#include "ui/winmain.h"

#include "ui/globals.h"
#include "zel/zelwindow.h"

#include <QPushButton>
#include <QShortcut>

CWinMain::CWinMain(QWidget *parent) : QMainWindow(parent)
{
    ui.setupUi(this);
    // Slots run in the order of connection: the choice must be stored before the frame closes.
    connect(ui.buttonBox, SIGNAL(accepted()), this, SLOT(onOK()));
    connect(ui.buttonBox, SIGNAL(accepted()), gZelWindow, SLOT(close()));
    connect(ui.buttonBox, SIGNAL(rejected()), gZelWindow, SLOT(close()));
    gParams->action = 0;
    _addShortcuts();
}

CWinMain::~CWinMain() = default;

void CWinMain::onOK()
{
    const struct {
        QRadioButton *button;
        QString filter;
    } formats[] = {
        {ui.rbFormatRaw, tr("Raw GPS output file (*.txt)")},
        {ui.rbFormatGpx, tr("GPS Exchange Format (*.gpx)")},
        {ui.rbFormatPlt, tr("OziExplorer track (*.plt)")},
        {ui.rbFormatKml, tr("GoogleEarth track (*.kml)")},
        {nullptr, {}},
    };
    for (const auto *format = formats; format->button; ++format) {
        if (format->button->isChecked()) {
            gParams->filter = format->filter;
            break;
        }
    }
    gParams->action = 1;
}

void CWinMain::_addShortcuts()
{
    // Return means OK wherever the focus is in this form, even on Cancel, which has Escape and the
    // space bar. It does not mean OK on a button of the title bar, which is outside this form.
    auto *accept = new QShortcut(this);
    accept->setKeys({Qt::Key_Return, Qt::Key_Enter});
    accept->setContext(Qt::WidgetWithChildrenShortcut);
    connect(accept, SIGNAL(activated()), ui.buttonBox->button(QDialogButtonBox::Ok), SLOT(click()));
    ui.buttonBox->button(QDialogButtonBox::Cancel)->setShortcut(Qt::Key_Escape);
}
