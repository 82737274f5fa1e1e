// What an X key press means to the windowing layer: a Win32 virtual-key
// code for WM_KEYDOWN/WM_KEYUP and the character it types for WM_CHAR.
#pragma once

#include <X11/Xlib.h>

namespace x11_front {

struct LayerKey {
    int virtualKey = 0;  // 0: no key the layer knows
    char typed = 0;      // 0: types nothing
};

// The modifier keys the layer tracks (VK_SHIFT, VK_CONTROL, VK_MENU), or 0.
int modifierKeyOf(KeySym keySym);
// `text` is what XLookupString typed for the key (Latin-1, may be empty).
LayerKey layerKeyOf(KeySym keySym, const char* text, int textLength);

}  // namespace x11_front
