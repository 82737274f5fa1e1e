#include "view/response_view.h"

#include "plugin/eq_instance.h"
#include "plugin/ui_layer.h"

EqInstance* instanceOfView(HWND view) {
    return reinterpret_cast<EqInstance*>(
        kobal::GetWindowLong(kobal::GetParent(view), GWL_USERDATA));
}

LRESULT responseViewProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return kobal::DefWindowProc(window, message, wParam, lParam);
}
