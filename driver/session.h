#ifndef SESSION_H
#define SESSION_H

#include <QString>

class ZelWindow;

// What the settings in gSettings hold about the window: a version line, and where the window was at
// the end of the last session.

// Returns the text for the second line of the title bar; empty if none is stored.
QString versionLine();

// Gives the window the stored geometry (by default 480 by 220 pixels at 100, 100) and shows it,
// maximised if it was so. Stores the default of each key that is missing. The numbers are passed to
// the window as they are stored; the window itself keeps within the screens.
void restoreSession(ZelWindow *window);

// Stores whether the window is maximised and, if it is not, its geometry in pixels. The window may
// be closed already.
void storeSession(const ZelWindow &window);

#endif
