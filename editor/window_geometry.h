// Where a window lies inside another, through the windowing layer.
#pragma once

#include "contracts/kobal.h"

// `window`'s rectangle in `parent`'s client coordinates.
RECT rectInParent(HWND window, HWND parent);
