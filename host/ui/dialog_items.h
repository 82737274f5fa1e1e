// Dialog item access by control id: the Win32 shortcuts over GetDlgItem and
// the controls' own messages.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

constexpr UINT BM_GETCHECK = 0x00F0;
constexpr UINT BM_SETCHECK = 0x00F1;
constexpr UINT BM_CLICK = 0x00F5;

// The first direct child with the id.
HWND GetDlgItem(HWND dialog, int id);
BOOL SetDlgItemText(HWND dialog, int id, const char* text);
UINT GetDlgItemText(HWND dialog, int id, char* text, int limit);
BOOL CheckDlgButton(HWND dialog, int id, UINT check);
UINT IsDlgButtonChecked(HWND dialog, int id);

}  // namespace kobal_layer
