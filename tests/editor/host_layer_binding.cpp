#include "tests/editor/host_layer_binding.h"

#include <mutex>

#include "host/ui/window_tree.h"
#include "plugin/ui_layer.h"

void bindHostLayerOnce() {
    static std::once_flag bound;
    std::call_once(bound, bindUiLayer);
}

LRESULT ignoringDialogProcedure(HWND, UINT, WPARAM, LPARAM) { return 0; }

RECT rectInParent(HWND window) {
    RECT screen{};
    kobal::GetWindowRect(window, &screen);
    POINT topLeft{screen.left, screen.top};
    POINT bottomRight{screen.right, screen.bottom};
    kobal::ScreenToClient(kobal::GetParent(window), &topLeft);
    kobal::ScreenToClient(kobal::GetParent(window), &bottomRight);
    return RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

int childCount(HWND window) {
    KobalWindow* record = kobal_layer::liveWindow(window);
    return record != nullptr ? static_cast<int>(record->children.size()) : 0;
}

HWND childAt(HWND window, int index) {
    return kobal_layer::liveWindow(window)->children.at(index);
}
