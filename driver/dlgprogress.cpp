#include "driver/dlgprogress.h"

cDlgProgress::cDlgProgress(QWidget *parent) : QDialog(parent)
{
    ui.setupUi(this);
    // The bar has no text of its own that could name it.
    ui.progressBar->setAccessibleName(windowTitle());
}

cDlgProgress::~cDlgProgress() = default;
