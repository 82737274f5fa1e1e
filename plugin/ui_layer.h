// The host windowing layer as the plug-in calls it: one process-wide function
// pointer per function, bound by name at load time. A function the host lacks
// is bound to a stub that answers 0, so UI calls never fail hard.
#pragma once

#include "contracts/kobal.h"
#include "contracts/kobal_function_names.h"

// The functions the plug-in calls: X(name) for each, typed as name##Proc.
#define OMBRO_CALLED_UI_FUNCTIONS(X)                                                         \
    X(lstrcpyn) X(GetTickCount) X(GetDlgItem) X(SetDlgItemText) X(GetDlgItemText)            \
    X(CheckDlgButton) X(IsDlgButtonChecked) X(ShowWindow) X(DestroyWindow) X(GetParent)      \
    X(SetWindowPos) X(GetWindowRect) X(GetClientRect) X(ClientToScreen) X(ScreenToClient)    \
    X(WindowFromPoint) X(InvalidateRect) X(GetWindowLong) X(SetWindowLong) X(GetFocus)       \
    X(SetCapture) X(GetCapture) X(ReleaseCapture) X(GetCursorPos) X(GetAsyncKeyState)        \
    X(KOBAL_LoadCursor) X(KOBAL_SetCursor) X(SetTimer) X(TabCtrl_GetItemCount)               \
    X(TabCtrl_DeleteItem) X(TabCtrl_InsertItem) X(TabCtrl_SetCurSel) X(TabCtrl_GetCurSel)    \
    X(KOBAL_LoadMenu) X(GetSubMenu) X(EnableMenuItem) X(CheckMenuItem) X(TrackPopupMenu)     \
    X(DestroyMenu) X(KOBAL_CreateDialog) X(KOBAL_RegisterCustomControlCreator)               \
    X(KOBAL_UnregisterCustomControlCreator) X(DefWindowProc) X(SendMessage) X(PostMessage)   \
    X(BeginPaint) X(EndPaint) X(BitBlt) X(GetSysColor) X(CreateFontIndirect)                 \
    X(KOBAL_MakeSetCurParms) X(KOBAL_GenerateDialogFromList) X(KOBAL_GenerateMenuFromList)

namespace kobal {
#define OMBRO_DECLARE_UI_SLOT(name) extern name##Proc name;
OMBRO_CALLED_UI_FUNCTIONS(OMBRO_DECLARE_UI_SLOT)
#undef OMBRO_DECLARE_UI_SLOT
}  // namespace kobal

struct UiLayerEntry {
    const char* name;
    void** slot;
};

// The 315 entries in binding order; slots of functions the plug-in never calls
// are bound all the same.
const UiLayerEntry* uiLayerTable();

// Binds every slot through the host's KOBALAPI_GetFunc, printing
// "KOBAL API not found: NAME" for each function the host lacks.
void bindUiLayer();
