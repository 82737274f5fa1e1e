// The thin dialog procedure shared by the editor and its band panel: the
// instance given at creation is kept in the window's user data and handed,
// with every message, to the dialog's handler.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

using InstanceMessageHandler = void (*)(EqInstance* instance, HWND window, UINT message,
                                        WPARAM wParam, LPARAM lParam);

// Stores lParam at WM_INITDIALOG, then calls `handler` whenever the window
// has an instance. Always answers 0.
LRESULT dispatchToInstance(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                           InstanceMessageHandler handler);
