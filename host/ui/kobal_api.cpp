// The entry point through which a plug-in binds this windowing layer:
// KOBALAPI_GetFunc(name) answers the address of the named function.
//
// - A null name answers the interface version (kobalLayerOptions()).
// - A name withheld by kobalLayerOptions().missingFunctions answers null.
// - A name this layer implements answers its function (the table below).
// - Every other interface name answers unsupportedCall, which returns 0.
// - A name outside the interface answers null.
#include <cstring>

#include "contracts/kobal_function_names.h"
#include "host/ui/custom_controls.h"
#include "host/ui/dialog_items.h"
#include "host/ui/dialogs.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/kobal_layer_options.h"
#include "host/ui/menus.h"
#include "host/ui/messages.h"
#include "host/ui/painting.h"
#include "host/ui/pointer_and_keys.h"
#include "host/ui/system_colors.h"
#include "host/ui/tab_control.h"
#include "host/ui/text_and_time.h"
#include "host/ui/timers.h"
#include "host/ui/ui_font.h"
#include "host/ui/unsupported_call.h"
#include "host/ui/window_functions.h"

namespace {

struct ImplementedFunction {
    const char* name;
    void* address;
};

// Takes the address only when it has exactly the type the plug-in calls.
template <typename Expected>
void* addressOf(Expected function) {
    return reinterpret_cast<void*>(function);
}

// The functions the plug-in calls, checked against the signatures it calls them with.
#define CALLED_FUNCTION(name) \
    { #name, addressOf < name##Proc>(&kobal_layer::name) }
// Further functions of the interface that this layer implements as well.
#define OTHER_FUNCTION(name) \
    { #name, reinterpret_cast < void*>(&kobal_layer::name) }

const ImplementedFunction kImplementedFunctions[] = {
    CALLED_FUNCTION(lstrcpyn),
    CALLED_FUNCTION(GetTickCount),
    CALLED_FUNCTION(GetDlgItem),
    CALLED_FUNCTION(SetDlgItemText),
    CALLED_FUNCTION(GetDlgItemText),
    CALLED_FUNCTION(CheckDlgButton),
    CALLED_FUNCTION(IsDlgButtonChecked),
    CALLED_FUNCTION(ShowWindow),
    CALLED_FUNCTION(DestroyWindow),
    CALLED_FUNCTION(GetParent),
    CALLED_FUNCTION(SetWindowPos),
    CALLED_FUNCTION(GetWindowRect),
    CALLED_FUNCTION(GetClientRect),
    CALLED_FUNCTION(ClientToScreen),
    CALLED_FUNCTION(ScreenToClient),
    CALLED_FUNCTION(WindowFromPoint),
    CALLED_FUNCTION(InvalidateRect),
    CALLED_FUNCTION(GetWindowLong),
    CALLED_FUNCTION(SetWindowLong),
    CALLED_FUNCTION(GetFocus),
    CALLED_FUNCTION(SetCapture),
    CALLED_FUNCTION(GetCapture),
    CALLED_FUNCTION(ReleaseCapture),
    CALLED_FUNCTION(GetCursorPos),
    CALLED_FUNCTION(GetAsyncKeyState),
    CALLED_FUNCTION(KOBAL_LoadCursor),
    CALLED_FUNCTION(KOBAL_SetCursor),
    CALLED_FUNCTION(SetTimer),
    CALLED_FUNCTION(TabCtrl_GetItemCount),
    CALLED_FUNCTION(TabCtrl_DeleteItem),
    CALLED_FUNCTION(TabCtrl_InsertItem),
    CALLED_FUNCTION(TabCtrl_SetCurSel),
    CALLED_FUNCTION(TabCtrl_GetCurSel),
    CALLED_FUNCTION(KOBAL_LoadMenu),
    CALLED_FUNCTION(GetSubMenu),
    CALLED_FUNCTION(EnableMenuItem),
    CALLED_FUNCTION(CheckMenuItem),
    CALLED_FUNCTION(TrackPopupMenu),
    CALLED_FUNCTION(DestroyMenu),
    CALLED_FUNCTION(KOBAL_CreateDialog),
    CALLED_FUNCTION(KOBAL_RegisterCustomControlCreator),
    CALLED_FUNCTION(KOBAL_UnregisterCustomControlCreator),
    CALLED_FUNCTION(DefWindowProc),
    CALLED_FUNCTION(SendMessage),
    CALLED_FUNCTION(PostMessage),
    CALLED_FUNCTION(BeginPaint),
    CALLED_FUNCTION(EndPaint),
    CALLED_FUNCTION(BitBlt),
    CALLED_FUNCTION(GetSysColor),
    CALLED_FUNCTION(CreateFontIndirect),
    CALLED_FUNCTION(KOBAL_MakeSetCurParms),
    CALLED_FUNCTION(KOBAL_GenerateDialogFromList),
    CALLED_FUNCTION(KOBAL_GenerateMenuFromList),
    OTHER_FUNCTION(IsWindow),
    OTHER_FUNCTION(IsWindowVisible),
    OTHER_FUNCTION(EnableWindow),
    OTHER_FUNCTION(IsChild),
    OTHER_FUNCTION(SetFocus),
    OTHER_FUNCTION(UpdateWindow),
    OTHER_FUNCTION(KillTimer),
    OTHER_FUNCTION(CreatePopupMenu),
    OTHER_FUNCTION(GetMenuItemCount),
    OTHER_FUNCTION(GetMenuItemID),
};

#undef CALLED_FUNCTION
#undef OTHER_FUNCTION

bool isInterfaceName(const char* name) {
    for (const char* known : kKobalFunctionNames)
        if (std::strcmp(known, name) == 0) return true;
    return false;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) void* KOBALAPI_GetFunc(const char* name) {
    const KobalLayerOptions& options = kobalLayerOptions();
    if (!name) return reinterpret_cast<void*>(options.interfaceVersion);
    if (options.missingFunctions.count(name)) return nullptr;
    for (const ImplementedFunction& function : kImplementedFunctions)
        if (std::strcmp(function.name, name) == 0) return function.address;
    return isInterfaceName(name) ? reinterpret_cast<void*>(&kobal_layer::unsupportedCall) : nullptr;
}
