// The core's editor in a host's X window: a host window of the windowing
// layer holds the core's editor dialog, and the X11 front end shows that
// window as a child of the host's X window, with its own X connection.
// Everything here runs under the layer lock on the thread that opened the
// editor (effEditOpen, effEditIdle, effEditClose).
#pragma once

#include <memory>

#include "contracts/kobal.h"
#include "contracts/vst2.h"

namespace x11_front {
class LayerWindowView;
}

namespace bridge {

struct EditorSize {
    int width;
    int height;
};

// The size an editor opens with; the dialog fits itself to its parent.
constexpr EditorSize kDefaultEditorSize{1020, 640};

class BridgeEditor {
public:
    // Null when there is no display, the X window is unusable or the core
    // opens no editor; nothing is left behind then.
    static std::unique_ptr<BridgeEditor> open(AEffect* core, unsigned long parentXWindow,
                                              EditorSize size);
    // Closes the core's editor, the X window and the host window.
    ~BridgeEditor();
    BridgeEditor(const BridgeEditor&) = delete;
    BridgeEditor& operator=(const BridgeEditor&) = delete;

    // Feeds the X events in and runs the layer's queued messages and due
    // timers (on the real clock), then redraws.
    void idle();

private:
    BridgeEditor(AEffect* core, HWND hostWindow, int place);

    AEffect* core_;
    HWND hostWindow_;
    int place_;
    std::unique_ptr<x11_front::LayerWindowView> view_;
};

}  // namespace bridge
