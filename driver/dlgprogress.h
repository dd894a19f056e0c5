#ifndef DLGPROGRESS_H
#define DLGPROGRESS_H

#include "ui_dlgprogress.h"

#include <QDialog>

// Shows how much of the input has been read. The dialog itself is passive: the run sets
// ui.progressBar (0 to 100) and stops once the dialog is hidden. Cancel, Escape and closing the
// dialog all hide it.
class cDlgProgress : public QDialog
{
    Q_OBJECT
public:
    explicit cDlgProgress(QWidget *parent = nullptr);
    ~cDlgProgress() override;

    Ui_Dialog ui;
};

#endif
