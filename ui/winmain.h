#ifndef WINMAIN_H
#define WINMAIN_H

#include "ui_winmain.h"

#include <QMainWindow>

// The choice of the output format, shown inside the frame. OK stores the format's filter text and
// the action 1 in gParams. OK and Cancel both close the frame. Return and Enter act as OK, and
// Escape acts as Cancel.
class CWinMain : public QMainWindow
{
    Q_OBJECT
public:
    // gParams and gZelWindow must exist. Sets the action in gParams to 0.
    explicit CWinMain(QWidget *parent = nullptr);
    ~CWinMain() override;

protected Q_SLOTS:
    void onOK();

private:
    void _addShortcuts();

    Ui_MainWindow ui;
};

#endif
