// Notices to the host about changes made inside the plug-in.
#pragma once

#include <cstdint>

struct EqInstance;

// Something that is no single parameter changed (type, enable, output gain...).
void notifyHostChanged(EqInstance* instance);
// `delta` parameters were inserted (or removed, when negative) at index `first`.
void notifyParamListChanged(EqInstance* instance, int32_t first, int32_t delta);
// Closes the open edit gesture; with onlyIfFocusMoved, only once the focus
// has left the window that opened it.
void endEditGesture(EqInstance* instance, bool onlyIfFocusMoved);
