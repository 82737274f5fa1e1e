#include "editor/instance_dialog.h"

#include "plugin/ui_layer.h"

LRESULT dispatchToInstance(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                           InstanceMessageHandler handler) {
    if (message == WM_INITDIALOG) kobal::SetWindowLong(window, GWL_USERDATA, lParam);
    auto* instance = reinterpret_cast<EqInstance*>(kobal::GetWindowLong(window, GWL_USERDATA));
    if (instance) handler(instance, window, message, wParam, lParam);
    return 0;
}
