#ifndef STARTUP_H
#define STARTUP_H

// The steps of main before the first window. All of them need the application object.

// Sets the application's name, icon, locale, style and palette.
void setUpApplication();

// Sorts the command line into args, switches and inputs of gParams. The application object has
// already removed Qt's own options from it.
void classifyArguments(int argc, char **argv);

// Asks for an archive in an Open dialog and adds it to the inputs of gParams. Adds nothing if the
// user cancels.
void askInput();

#endif
