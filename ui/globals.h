#ifndef GLOBALS_H
#define GLOBALS_H

#include <QString>
#include <QStringList>

class CIniFile;
class CWinMain;
class ZelWindow;

// The parameters of the process. main fills them from the command line and the dialogs, CWinMain
// from the format choice.
struct PARAMS_T {
    // The command line without Qt's own options. The first entry is the program's name.
    QStringList args;
    // The arguments that begin with "/" or "-". None of them has an effect.
    QStringList switches;
    // The names of existing files. Only the first one is read.
    QStringList inputs;
    // Before the Save dialog, one proposal for each input; after it, the chosen name or nothing.
    QStringList outputs;
    // The translated text of the chosen format, such as "GPS Exchange Format (*.gpx)". It is the
    // filter of the Save dialog, and it determines the writer and the extension of the output.
    QString filter;
    // What to do after the format choice: 1 to extract the track, 0 to exit. Set by CWinMain.
    qint32 action = 0;
};

// The parameters. main creates them before anything else; they are never freed.
extern PARAMS_T *gParams;
// The settings. main creates them once an input is known and destroys them at its end, which writes
// them to disk.
extern CIniFile *gSettings;
// The frame and the format choice inside it. main creates them once an input is known; they are
// never freed.
extern ZelWindow *gZelWindow;
extern CWinMain *gMainWindow;

#endif
