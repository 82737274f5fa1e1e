// "GetTooltipWindow": the window that shows tooltips for a plug-in's
// controls. The stand-in host shows none, so it answers no window.
#pragma once

#include "contracts/kobal.h"

HWND getTooltipWindow(HWND owner);
