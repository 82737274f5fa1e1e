#include "host/ui/dialog_items.h"

#include "host/ui/messages.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {

HWND GetDlgItem(HWND dialog, int id) {
    KobalWindow* window = liveWindow(dialog);
    if (!window) return nullptr;
    for (KobalWindow* child : window->children)
        if (child->id == id) return child;
    return nullptr;
}

BOOL SetDlgItemText(HWND dialog, int id, const char* text) {
    HWND item = GetDlgItem(dialog, id);
    if (!item) return 0;
    SendMessage(item, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text ? text : ""));
    return 1;
}

UINT GetDlgItemText(HWND dialog, int id, char* text, int limit) {
    HWND item = GetDlgItem(dialog, id);
    if (!item) {
        if (text && limit > 0) text[0] = '\0';
        return 0;
    }
    if (!text || limit <= 0) return 0;
    return static_cast<UINT>(
        SendMessage(item, WM_GETTEXT, static_cast<WPARAM>(limit), reinterpret_cast<LPARAM>(text)));
}

BOOL CheckDlgButton(HWND dialog, int id, UINT check) {
    HWND item = GetDlgItem(dialog, id);
    if (!item) return 0;
    SendMessage(item, BM_SETCHECK, check, 0);
    return 1;
}

UINT IsDlgButtonChecked(HWND dialog, int id) {
    HWND item = GetDlgItem(dialog, id);
    return item ? static_cast<UINT>(SendMessage(item, BM_GETCHECK, 0, 0)) : 0;
}

}  // namespace kobal_layer
