#ifndef GLOBALS_H
#define GLOBALS_H

#include <QString>
#include <QStringList>

class CIniFile;
class CWinMain;
class ZelWindow;

// What the process is to do. Filled by main from the command line and the dialogs, and by the
// format choice.
struct PARAMS_T {
    // All strings of the command line that Qt left, the program's name first.
    QStringList args;
    // Those of them that begin with "/" or "-", the program's name apart. None has an effect.
    QStringList switches;
    // Names of existing files; only the first is read.
    QStringList inputs;
    // First a proposal for each input; after the Save dialog the one chosen name, or nothing.
    QStringList outputs;
    // The translated text of the chosen format, such as "GPS Exchange Format (*.gpx)": the filter
    // of the Save dialog, the selector of the writer and the source of the extension.
    QString filter;
    // What follows the format choice: 1 to extract, 0 for nothing. Set by CWinMain.
    qint32 action = 0;
};

// The parameters: made first of all in main, never freed.
extern PARAMS_T *gParams;
// The settings: made by main once an input is known, destroyed at its end, which writes them.
extern CIniFile *gSettings;
// The frame and the format choice inside it: made by main once an input is known, never freed.
extern ZelWindow *gZelWindow;
extern CWinMain *gMainWindow;

#endif
