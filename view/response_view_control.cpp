#include "view/response_view_control.h"

#include <cstring>

#include "editor/resources.h"
#include "plugin/ui_layer.h"
#include "view/response_view.h"

HWND createResponseViewControl(HWND parent, const char* /*name*/, int id, const char* className,
                               int /*style*/, int x, int y, int width, int height) {
    if (!className || std::strcmp(className, "OmbroWindow") != 0) return nullptr;
    HWND window =
        kobal::KOBAL_CreateDialog(dialogResourceList, 0, parent, responseViewProcedure, 0);
    if (!window) return nullptr;
    kobal::SetWindowLong(window, GWL_ID, id);
    kobal::SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    kobal::ShowWindow(window, SW_SHOW);
    return window;
}
