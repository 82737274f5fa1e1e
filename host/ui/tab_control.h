// The "SysTabControl32" class: a strip of tab headers along the top of the
// control. TabCtrl_SetCurSel selects silently; a user's click on another
// tab's header sends WM_NOTIFY TCN_SELCHANGING, then (unless the parent
// answers nonzero) selects it and sends TCN_SELCHANGE. A click takes the
// keyboard focus.
//
// When the headers do not fit in the control's width, two arrow buttons at
// the right end of the header row scroll them one tab at a time, and the
// current tab (set by a click or by TabCtrl_SetCurSel) is kept in view.
#pragma once

#include "host/ui/control_classes.h"

namespace kobal_layer {

constexpr const char* kTabControlClassName = "SysTabControl32";
constexpr UINT TCN_SELCHANGING = static_cast<UINT>(-552);
constexpr int kTabHeaderHeight = 20;

extern const ControlClass kTabControlClass;

int TabCtrl_GetItemCount(HWND tabs);
BOOL TabCtrl_DeleteItem(HWND tabs, int index);
// Inserts before `index` (appends past the end); returns the new index or −1.
int TabCtrl_InsertItem(HWND tabs, int index, const TCITEM* item);
// Returns the previous selection, or −1 when `index` is not a tab.
int TabCtrl_SetCurSel(HWND tabs, int index);
int TabCtrl_GetCurSel(HWND tabs);

// The header of tab `index` in the control's client coordinates (empty when
// there is no such tab or it is scrolled out of view), and the text of a tab.
RECT tabHeaderRect(HWND tabs, int index);
// The arrow button that scrolls the headers left (direction < 0) or right;
// empty while every header fits.
RECT tabScrollButtonRect(HWND tabs, int direction);
const char* tabText(HWND tabs, int index);

}  // namespace kobal_layer
