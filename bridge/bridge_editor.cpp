#include "bridge/bridge_editor.h"

#include "bridge/editor_places.h"
#include "host/ui/host_windows.h"
#include "host/ui/window_functions.h"
#include "host/x11/layer_window_view.h"

namespace bridge {

BridgeEditor::BridgeEditor(AEffect* core, HWND hostWindow, int place)
    : core_(core), hostWindow_(hostWindow), place_(place) {}

std::unique_ptr<BridgeEditor> BridgeEditor::open(AEffect* core, unsigned long parentXWindow,
                                                 EditorSize size) {
    int place = -1;
    RECT rect = claimEditorPlace(size.width, size.height, place);
    HWND hostWindow = kobal_layer::createHostWindow("Ombro", rect);
    std::unique_ptr<BridgeEditor> editor(new BridgeEditor(core, hostWindow, place));
    if (!hostWindow || !core->dispatcher(core, effEditOpen, 0, 0, hostWindow, 0.0f)) return nullptr;
    editor->view_ = x11_front::LayerWindowView::open(hostWindow, parentXWindow, "Ombro");
    if (!editor->view_) return nullptr;
    editor->idle();  // the first picture
    return editor;
}

BridgeEditor::~BridgeEditor() {
    view_.reset();
    core_->dispatcher(core_, effEditClose, 0, 0, nullptr, 0.0f);
    if (hostWindow_) kobal_layer::DestroyWindow(hostWindow_);
    releaseEditorPlace(place_);
}

void BridgeEditor::idle() { view_->idle(); }

}  // namespace bridge
