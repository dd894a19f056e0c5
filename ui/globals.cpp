#include "globals.h"

PARAMS_T *gParams = nullptr;
ZelWindow *gZelWindow = nullptr;
CWinMain *gMainWindow = nullptr;
