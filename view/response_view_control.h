// The graph control of the editor (window class "OmbroWindow"), created for
// the windowing layer through a custom control creator.
#pragma once

#include "contracts/kobal.h"

HWND createResponseViewControl(HWND parent, const char* name, int id, const char* className,
                               int style, int x, int y, int width, int height);
