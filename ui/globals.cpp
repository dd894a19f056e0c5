#include "ui/globals.h"

PARAMS_T *gParams = nullptr;
CIniFile *gSettings = nullptr;
ZelWindow *gZelWindow = nullptr;
CWinMain *gMainWindow = nullptr;
