#include "editor/editor_dialog.h"

#include "contracts/mura.h"
#include "editor/resources.h"
#include "plugin/eq_instance.h"
#include "plugin/ui_layer.h"

namespace {

void initialize(EqInstance* instance, HWND window) {
    instance->refreshRequested = 0;
    instance->editorWindow = window;
    instance->dirtyFlags = 0;
}

void teardown(EqInstance* instance) {
    instance->editorWindow = nullptr;
    delete instance->drawingBitmap;
    instance->drawingBitmap = nullptr;
    instance->editorSizer.init(nullptr, nullptr);
    instance->panelSizer.init(nullptr, nullptr);
}

void handleMessage(EqInstance* instance, HWND window, UINT message) {
    switch (message) {
        case WM_INITDIALOG: initialize(instance, window); break;
        case WM_DESTROY: teardown(instance); break;
        default: break;
    }
}

}  // namespace

LRESULT editorDialogProcedure(HWND window, UINT message, WPARAM /*wParam*/, LPARAM lParam) {
    if (message == WM_INITDIALOG) kobal::SetWindowLong(window, GWL_USERDATA, lParam);
    auto* instance = reinterpret_cast<EqInstance*>(kobal::GetWindowLong(window, GWL_USERDATA));
    if (instance) handleMessage(instance, window, message);
    return 0;
}

bool openEditor(EqInstance* instance, HWND parent) {
    closeEditor(instance);
    HWND dialog = kobal::KOBAL_CreateDialog(dialogResourceList, kEditorDialogResource, parent,
                                            editorDialogProcedure,
                                            reinterpret_cast<LPARAM>(instance));
    return dialog != nullptr;
}

void closeEditor(EqInstance* instance) {
    if (HWND editor = instance->editorWindow.load()) kobal::DestroyWindow(editor);
}
