#ifndef SESSION_H
#define SESSION_H

#include <QString>

class ZelWindow;

// The state of the window between sessions, which is kept in gSettings.

// Returns the text for the second line of the title bar; empty if none is stored.
QString versionLine();

// Restores the geometry of the window (by default 480 by 220 pixels at 100, 100) and shows it,
// maximised if it was stored as maximised. Stores the default of each missing key. The stored
// numbers are passed on unchanged; ZelWindow::setGeometry keeps the window usable.
void restoreSession(ZelWindow *window);

// Stores whether the window is maximised and, if it is not, its geometry in pixels. The window may
// already be closed.
void storeSession(const ZelWindow &window);

#endif
