#include "driver/dlgprogress.h"

cDlgProgress::cDlgProgress(QWidget *parent) : QDialog(parent)
{
    ui.setupUi(this);
    // Screen readers need a name for the bar, which has no label.
    ui.progressBar->setAccessibleName(windowTitle());
}

cDlgProgress::~cDlgProgress() = default;
