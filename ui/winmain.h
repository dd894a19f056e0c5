#ifndef WINMAIN_H
#define WINMAIN_H

#include "ui_winmain.h"

#include <QMainWindow>

// The choice of the output format, the content of the frame. OK writes the format's filter text and
// an action of 1 into gParams; OK and Cancel both close the frame. Return or Enter acts as OK,
// Escape as Cancel.
class CWinMain : public QMainWindow
{
    Q_OBJECT
public:
    // gParams and gZelWindow have to exist. Sets the action in gParams to 0.
    explicit CWinMain(QWidget *parent = nullptr);
    ~CWinMain() override;

protected Q_SLOTS:
    void onOK();

private:
    void _addShortcuts();

    Ui_MainWindow ui;
};

#endif
