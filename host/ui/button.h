// The "Button" class: push buttons, check boxes (BS_AUTOCHECKBOX toggles
// itself when clicked) and group boxes. A click (button down and up inside
// the control) sends BN_CLICKED to the parent; BM_SETCHECK changes the check
// state silently. Pressing a button or check box gives it the keyboard focus.
#pragma once

#include "host/ui/control_classes.h"

namespace kobal_layer {

extern const ControlClass kButtonClass;

}  // namespace kobal_layer
