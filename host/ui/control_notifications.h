// How standard controls tell their parent about user actions, and the small
// helpers every control kind shares.
#pragma once

#include "contracts/kobal.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {

inline WPARAM makeWParam(int low, int high) {
    return static_cast<WPARAM>((static_cast<uint32_t>(high & 0xFFFF) << 16) |
                               static_cast<uint32_t>(low & 0xFFFF));
}
inline int lowWord(uintptr_t value) { return static_cast<int16_t>(value & 0xFFFF); }
inline int highWord(uintptr_t value) { return static_cast<int16_t>((value >> 16) & 0xFFFF); }

// WM_COMMAND to the parent: wParam = MAKEWPARAM(id, code), lParam = the control.
void notifyCommand(HWND control, UINT code);
// WM_NOTIFY to the parent with an NMHDR {control, id, code}; returns the answer.
LRESULT notifyParent(HWND control, UINT code);

// The control's state record of kind T (null when it has another kind).
template <typename T>
T* controlState(HWND window) {
    KobalWindow* live = liveWindow(window);
    return live ? dynamic_cast<T*>(live->control.get()) : nullptr;
}

}  // namespace kobal_layer
