// The editor's private window messages.
#pragma once

#include "contracts/kobal.h"

constexpr UINT WM_APPLY_BANDPANEL = 2662;    // the band panel to itself
constexpr UINT WM_REFRESH_BANDPANEL = 2663;  // lParam: an edit box not to overwrite
constexpr UINT WM_REFRESH_EDITOR = 7690;
