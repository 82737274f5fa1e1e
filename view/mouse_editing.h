// The view's mouse: selecting and dragging band handles (frequency and gain,
// or bandwidth with Shift; Ctrl and Alt lock one axis and make the other
// fine), toggling a band with a double click, widening it with the wheel,
// the cursor over handles, and the automation notices of a drag.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// Band drag fields recorded in hoverFlags until their edit is ended.
constexpr int32_t kDraggedFrequency = 1;
constexpr int32_t kDraggedGain = 2;
constexpr int32_t kDraggedBandwidth = 4;

LRESULT handleMouseMessage(EqInstance& instance, HWND view, UINT message, WPARAM wParam,
                           LPARAM lParam);

// Sends the end-edit notices for the fields the drag of hoverBand changed.
void endHoverEdit(EqInstance& instance);
