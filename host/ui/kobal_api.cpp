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
#include "host/ui/kobal_layer_options.h"
#include "host/ui/messages.h"
#include "host/ui/text_and_time.h"
#include "host/ui/timers.h"
#include "host/ui/unsupported_call.h"
#include "host/ui/window_functions.h"

namespace {

struct ImplementedFunction {
    const char* name;
    void* address;
};

template <typename Function>
void* addressOf(Function* function) {
    return reinterpret_cast<void*>(function);
}

#define KOBAL_FUNCTION(name) {#name, addressOf(&kobal_layer::name)}

const ImplementedFunction kImplementedFunctions[] = {
    KOBAL_FUNCTION(lstrcpyn),
    KOBAL_FUNCTION(GetTickCount),
    KOBAL_FUNCTION(GetDlgItem),
    KOBAL_FUNCTION(SetDlgItemText),
    KOBAL_FUNCTION(GetDlgItemText),
    KOBAL_FUNCTION(CheckDlgButton),
    KOBAL_FUNCTION(IsDlgButtonChecked),
    KOBAL_FUNCTION(ShowWindow),
    KOBAL_FUNCTION(DestroyWindow),
    KOBAL_FUNCTION(IsWindow),
    KOBAL_FUNCTION(IsWindowVisible),
    KOBAL_FUNCTION(EnableWindow),
    KOBAL_FUNCTION(IsChild),
    KOBAL_FUNCTION(GetParent),
    KOBAL_FUNCTION(SetWindowPos),
    KOBAL_FUNCTION(GetWindowRect),
    KOBAL_FUNCTION(GetClientRect),
    KOBAL_FUNCTION(ClientToScreen),
    KOBAL_FUNCTION(ScreenToClient),
    KOBAL_FUNCTION(WindowFromPoint),
    KOBAL_FUNCTION(GetWindowLong),
    KOBAL_FUNCTION(SetWindowLong),
    KOBAL_FUNCTION(InvalidateRect),
    KOBAL_FUNCTION(UpdateWindow),
    KOBAL_FUNCTION(SetTimer),
    KOBAL_FUNCTION(KillTimer),
    KOBAL_FUNCTION(DefWindowProc),
    KOBAL_FUNCTION(SendMessage),
    KOBAL_FUNCTION(PostMessage),
    KOBAL_FUNCTION(KOBAL_CreateDialog),
    KOBAL_FUNCTION(KOBAL_MakeSetCurParms),
    KOBAL_FUNCTION(KOBAL_GenerateDialogFromList),
    KOBAL_FUNCTION(KOBAL_RegisterCustomControlCreator),
    KOBAL_FUNCTION(KOBAL_UnregisterCustomControlCreator),
};

#undef KOBAL_FUNCTION

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
    return isInterfaceName(name) ? addressOf(&kobal_layer::unsupportedCall) : nullptr;
}
