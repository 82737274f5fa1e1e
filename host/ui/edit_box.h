// The "Edit" class: a single-line text box. Every change of its text, typed
// (WM_CHAR) or set (WM_SETTEXT, SetDlgItemText), sends EN_CHANGE to the
// parent. ES_READONLY boxes ignore typing; ES_CENTER / ES_RIGHT align the text.
// Typing appends at the end; backspace removes the last character; WM_CLEAR
// empties the box.
#pragma once

#include "host/ui/control_classes.h"

namespace kobal_layer {

constexpr UINT WM_CLEAR = 0x0303;
constexpr char kBackspace = '\b';

extern const ControlClass kEditClass;

}  // namespace kobal_layer
