#ifndef DLGPROGRESS_H
#define DLGPROGRESS_H

#include "ui_dlgprogress.h"

#include <QDialog>

// Shows how much of the input has been read. It does nothing by itself: the run sets ui.progressBar
// (0 to 100) and stops when it finds the dialog hidden, which is what Cancel, Escape and closing
// do.
class cDlgProgress : public QDialog
{
    Q_OBJECT
public:
    explicit cDlgProgress(QWidget *parent = nullptr);
    ~cDlgProgress() override;

    Ui_Dialog ui;
};

#endif
