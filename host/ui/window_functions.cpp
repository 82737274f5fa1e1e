#include "host/ui/window_functions.h"

#include "host/ui/control_classes.h"
#include "host/ui/messages.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {
namespace {

LPARAM packPair(int low, int high) {
    return static_cast<LPARAM>((static_cast<uint32_t>(high) << 16) | (low & 0xFFFF));
}

bool containsPoint(const RECT& rect, POINT point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
           point.y < rect.bottom;
}

bool takesPointer(KobalWindow* window) {
    if (!window->visible || (window->style & WS_DISABLED_STYLE)) return false;
    return !isTransparentWindow(window);
}

// `point` is in the coordinates `windows` are placed in; the topmost first.
HWND deepestUnder(const std::vector<KobalWindow*>& windows, POINT point) {
    for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
        KobalWindow* window = *it;
        if (!takesPointer(window) || !containsPoint(window->rect, point)) continue;
        POINT inside{point.x - window->rect.left, point.y - window->rect.top};
        HWND child = deepestUnder(window->children, inside);
        return child ? child : window;
    }
    return nullptr;
}

}  // namespace

BOOL ShowWindow(HWND handle, int command) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    bool wasVisible = window->visible;
    bool show = command != SW_HIDE;
    if (show != wasVisible) {
        window->visible = show;
        SendMessage(handle, WM_SHOWWINDOW, show ? 1 : 0, 0);
        if (!liveWindow(handle)) return wasVisible ? 1 : 0;
        invalidateWithChildren(handle);
        if (window->parent) window->parent->needsPaint = true;
    }
    return wasVisible ? 1 : 0;
}

BOOL DestroyWindow(HWND handle) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    // What lay beneath a shown child shows again.
    HWND parent = window->visible ? window->parent : nullptr;
    destroyWindowTree(handle);
    if (KobalWindow* uncovered = liveWindow(parent)) uncovered->needsPaint = true;
    return 1;
}

BOOL IsWindow(HWND window) { return liveWindow(window) ? 1 : 0; }

BOOL IsWindowVisible(HWND window) { return isShownOnScreen(window) ? 1 : 0; }

HWND GetParent(HWND handle) {
    KobalWindow* window = liveWindow(handle);
    return window ? window->parent : nullptr;
}

// Flags in this layer's numbering (see kobal.h): SWP_NOMOVE 1, SWP_NOSIZE 2;
// z order and activation are not modelled.
BOOL SetWindowPos(HWND handle, HWND, int x, int y, int width, int height, UINT flags) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    RECT old = window->rect;
    RECT& rect = window->rect;
    if (!(flags & SWP_NOMOVE)) {
        rect = RECT{x, y, x + (old.right - old.left), y + (old.bottom - old.top)};
    }
    if (!(flags & SWP_NOSIZE)) {
        rect.right = rect.left + (width > 0 ? width : 0);
        rect.bottom = rect.top + (height > 0 ? height : 0);
    }
    bool moved = rect.left != old.left || rect.top != old.top;
    bool resized = rect.right - rect.left != old.right - old.left ||
                   rect.bottom - rect.top != old.bottom - old.top;
    if (moved) SendMessage(handle, WM_MOVE, 0, packPair(rect.left, rect.top));
    if (resized && liveWindow(handle))
        SendMessage(handle, WM_SIZE, 0, packPair(windowWidth(*window), windowHeight(*window)));
    if ((moved || resized) && liveWindow(handle)) {
        invalidateWithChildren(handle);
        if (window->parent) window->parent->needsPaint = true;
    }
    return 1;
}

BOOL GetWindowRect(HWND handle, RECT* rect) {
    KobalWindow* window = liveWindow(handle);
    if (!window || !rect) return 0;
    POINT origin = screenOrigin(handle);
    *rect =
        RECT{origin.x, origin.y, origin.x + windowWidth(*window), origin.y + windowHeight(*window)};
    return 1;
}

BOOL GetClientRect(HWND handle, RECT* rect) {
    KobalWindow* window = liveWindow(handle);
    if (!window || !rect) return 0;
    *rect = RECT{0, 0, windowWidth(*window), windowHeight(*window)};
    return 1;
}

BOOL ClientToScreen(HWND window, POINT* point) {
    if (!liveWindow(window) || !point) return 0;
    POINT origin = screenOrigin(window);
    point->x += origin.x;
    point->y += origin.y;
    return 1;
}

BOOL ScreenToClient(HWND window, POINT* point) {
    if (!liveWindow(window) || !point) return 0;
    POINT origin = screenOrigin(window);
    point->x -= origin.x;
    point->y -= origin.y;
    return 1;
}

HWND WindowFromPoint(POINT point) {
    std::vector<HWND> tops = topLevelWindows();
    return deepestUnder(std::vector<KobalWindow*>(tops.begin(), tops.end()), point);
}

LONG_PTR GetWindowLong(HWND handle, int index) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    switch (index) {
        case GWL_ID: return window->id;
        case GWL_USERDATA: return window->userData;
        case GWL_STYLE: return window->style;
        case GWL_WNDPROC: return reinterpret_cast<LONG_PTR>(window->procedure);
        default: break;
    }
    auto word = window->words.find(index);
    return index >= 0 && word != window->words.end() ? word->second : 0;
}

LONG_PTR SetWindowLong(HWND handle, int index, LONG_PTR value) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    LONG_PTR previous = GetWindowLong(handle, index);
    switch (index) {
        case GWL_ID: window->id = static_cast<int>(value); break;
        case GWL_USERDATA: window->userData = value; break;
        case GWL_STYLE: window->style = static_cast<uint32_t>(value); break;
        case GWL_WNDPROC: window->procedure = reinterpret_cast<WNDPROC>(value); break;
        default:
            if (index < 0) return 0;
            window->words[index] = value;
    }
    return previous;
}

BOOL IsChild(HWND parent, HWND handle) {
    KobalWindow* window = liveWindow(handle);
    if (!liveWindow(parent) || !window) return 0;
    for (KobalWindow* above = window->parent; above; above = above->parent)
        if (above == parent) return 1;
    return 0;
}

BOOL EnableWindow(HWND handle, BOOL enable) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    bool wasDisabled = window->style & WS_DISABLED_STYLE;
    if (enable)
        window->style &= ~WS_DISABLED_STYLE;
    else
        window->style |= WS_DISABLED_STYLE;
    window->needsPaint = true;
    return wasDisabled ? 1 : 0;
}

}  // namespace kobal_layer
