// The response view's window procedure and the instance lookup it shares
// with the mouse, menu and paint handlers.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// The instance of the editor that holds `view`, or null.
EqInstance* instanceOfView(HWND view);

LRESULT responseViewProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
