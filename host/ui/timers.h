// Timers on the host clock (host_clock.h). A timer is due when its interval
// has passed since it was set or last fired; the pump fires it once however
// many intervals went by (Win32 timers do not pile up), as WM_TIMER with the
// timer id in wParam, or by calling its callback.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback);
BOOL KillTimer(HWND window, UINT_PTR id);

// Fires every due timer; returns how many fired.
int fireDueTimers();
int activeTimerCount();

}  // namespace kobal_layer
