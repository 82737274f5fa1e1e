// The "ComboBox" class as a drop-down list: a list of texts and a current
// selection (−1 for none). CB_SETCURSEL selects silently; a user's choice
// (chooseListEntry in input_injection.h, or a click that cycles to the next
// entry and takes the keyboard focus) sends CBN_SELCHANGE to the parent. The
// window is as tall as its field; the height it was created with is the
// height of its open list.
#pragma once

#include "host/ui/control_classes.h"

namespace kobal_layer {

constexpr LRESULT CB_ERR = -1;
constexpr UINT CB_DELETESTRING = 0x0144;
constexpr UINT CB_GETCOUNT = 0x0146;
constexpr UINT CB_GETLBTEXT = 0x0148;
constexpr UINT CB_GETLBTEXTLEN = 0x0149;
constexpr UINT CB_INSERTSTRING = 0x014A;
constexpr int kComboFieldHeight = 22;

extern const ControlClass kComboClass;

// The user picks entry `index`: selects it and notifies the parent. False
// when the index is out of range or the window is not a combo box.
bool chooseComboEntryAsUser(HWND combo, int index);

}  // namespace kobal_layer
