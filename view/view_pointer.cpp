#include "view/view_pointer.h"

#include "plugin/ui_layer.h"

POINT pointerInView(HWND view) {
    POINT pointer{};
    kobal::GetCursorPos(&pointer);
    kobal::ScreenToClient(view, &pointer);
    return pointer;
}
