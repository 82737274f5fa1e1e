#include "view/response_view.h"

#include "plugin/eq_instance.h"
#include "plugin/ui_layer.h"
#include "view/context_menu.h"
#include "view/graph_paint.h"
#include "view/mouse_editing.h"

EqInstance* instanceOfView(HWND view) {
    return reinterpret_cast<EqInstance*>(
        kobal::GetWindowLong(kobal::GetParent(view), GWL_USERDATA));
}

LRESULT responseViewProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    EqInstance* instance = instanceOfView(window);
    if (!instance) return kobal::DefWindowProc(window, message, wParam, lParam);
    switch (message) {
        case WM_PAINT: return paintResponseView(*instance, window);
        case WM_MOUSEMOVE:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_LBUTTONDBLCLK:
        case WM_MOUSEWHEEL:
        case WM_SETCURSOR: return handleMouseMessage(*instance, window, message, wParam, lParam);
        case WM_RBUTTONDOWN: return openContextMenu(*instance, window, wParam, lParam);
        default: return kobal::DefWindowProc(window, message, wParam, lParam);
    }
}
