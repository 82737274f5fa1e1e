// The band panel: the child dialog of the editor that edits the selected
// band with faders, edit boxes, the type list and two switches.
#pragma once

#include "contracts/kobal.h"

LRESULT bandPanelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
