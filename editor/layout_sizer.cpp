#include "editor/layout_sizer.h"

#include <algorithm>
#include <utility>

#include "editor/window_geometry.h"
#include "plugin/ui_layer.h"

namespace {

constexpr UINT kLayoutMoveFlags = SWP_NOZORDER | SWP_NOACTIVATE;

// The part of `delta` an edge with scale `scale` follows: all of it from 1
// up, a float32 share truncated toward zero between 0 and 1, none otherwise
// (NaN included).
LONG edgeShift(int32_t delta, float scale) {
    if (scale >= 1.0f) return delta;
    if (scale > 0.0f) return static_cast<LONG>(static_cast<float>(delta) * scale);
    return 0;
}

// The control's rectangle in the dialog's client coordinates.
RECT measureInDialog(HWND dialog, HWND control) {
    RECT rect = rectInParent(control, dialog);
    if (rect.bottom < rect.top) std::swap(rect.top, rect.bottom);
    return rect;
}

}  // namespace

void transformRect(RECT& r, const float scales[4], const RECT& client, int32_t refWidth,
                   int32_t refHeight) {
    const int32_t dx = std::max<int32_t>(client.right, 0) - refWidth;
    const int32_t dy = std::max<int32_t>(client.bottom, 0) - refHeight;
    r.left += edgeShift(dx, scales[0]);
    r.top += edgeShift(dy, scales[1]);
    r.right += edgeShift(dx, scales[2]);
    r.bottom += edgeShift(dy, scales[3]);
    r.right = std::max(r.right, r.left);
    r.bottom = std::max(r.bottom, r.top);
}

void LayoutSizer::init(HWND dialogWindow, const RECT* referenceRect) {
    dialog = dialogWindow;
    RECT reference{};
    if (referenceRect != nullptr)
        reference = *referenceRect;
    else if (dialogWindow != nullptr)
        kobal::GetClientRect(dialogWindow, &reference);
    refWidth = reference.right;
    refHeight = reference.bottom;
    if (items.size > 0) items.release();
}

void LayoutSizer::addItem(int controlId, float left, float top, float right, float bottom,
                          const RECT* initialRect) {
    if (dialog == nullptr) return;
    HWND control = kobal::GetDlgItem(dialog, controlId);
    if (control == nullptr) return;
    const RECT rect = initialRect != nullptr ? *initialRect : measureInDialog(dialog, control);

    const int32_t count = items.count<SizerItem>();
    const int32_t wanted = (count + 1) * static_cast<int32_t>(sizeof(SizerItem));
    items.resize(wanted, false);
    if (items.size != wanted) return;  // could not grow: the list stays as it was
    items.as<SizerItem>()[count] = SizerItem{control, rect, rect, rect, {left, top, right, bottom}};
}

SizerItem* LayoutSizer::findItem(int controlId) {
    for (int32_t i = 0; i < items.count<SizerItem>(); ++i) {
        SizerItem& item = items.as<SizerItem>()[i];
        if (item.window != nullptr && kobal::GetWindowLong(item.window, GWL_ID) == controlId)
            return &item;
    }
    return nullptr;
}

void LayoutSizer::applyLayout(HWND onlyWindow, bool noMove, int xOffset, int yOffset) {
    if (dialog == nullptr) return;
    RECT client{};
    kobal::GetClientRect(dialog, &client);
    // Moving a control can reach back into the sizer, so the count and the
    // storage are read afresh for every item.
    for (int32_t i = 0; i < items.count<SizerItem>(); ++i) {
        SizerItem& item = items.as<SizerItem>()[i];
        if (item.window == nullptr || (onlyWindow != nullptr && onlyWindow != item.window))
            continue;
        RECT r = item.origRect;
        transformRect(r, item.scales, client, refWidth, refHeight);
        item.lastRect = r;
        if (noMove) continue;
        kobal::SetWindowPos(item.window, nullptr, r.left + xOffset, r.top + yOffset,
                            r.right - r.left, r.bottom - r.top, kLayoutMoveFlags);
    }
}
