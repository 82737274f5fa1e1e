#include "editor/editor_timer.h"

#include <algorithm>

#include "editor/editor_controls.h"
#include "editor/editor_messages.h"
#include "editor/window_geometry.h"
#include "plugin/eq_instance.h"
#include "plugin/host_notices.h"
#include "plugin/ui_layer.h"

namespace {

// A spectrum that stopped updating is drawn once more after this long.
constexpr uint32_t kSpectrumSilenceMilliseconds = 1000;

void fitToParent(EqInstance* instance, HWND editor, bool always, const RECT& minimumSize) {
    HWND parent = kobal::GetParent(editor);
    if (!parent) return;
    const RECT own = rectInParent(editor, parent);
    RECT parentClient{};
    kobal::GetClientRect(parent, &parentClient);
    const LONG width = std::max(parentClient.right - own.left, minimumSize.right);
    const LONG height = std::max(parentClient.bottom - own.top, minimumSize.bottom);
    if (!always && own.right - own.left == width && own.bottom - own.top == height) return;
    instance->editorWidth = width;
    instance->editorHeight = height;
    kobal::SetWindowPos(editor, nullptr, 0, 0, width, height,
                        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The graph's hover readout ends once the pointer has left it.
void endHoverOutsideGraph(EqInstance* instance, HWND graph) {
    if (instance->hoverBand < 0 || kobal::GetCapture() == graph) return;
    POINT cursor{};
    kobal::GetCursorPos(&cursor);
    if (kobal::WindowFromPoint(cursor) == graph) return;
    instance->dirtyFlags |= kDirtyResponseView;
    instance->hoverBand = -1;
    instance->hoverFlags = 0;
}

bool showDirtyParts(EqInstance* instance, HWND graph) {
    if (instance->dirtyFlags == 0) return false;
    if ((instance->dirtyFlags & kDirtyBandPanel) && instance->bandPanelWindow)
        kobal::SendMessage(instance->bandPanelWindow, WM_REFRESH_BANDPANEL, 0, 0);
    if (instance->editorWindow.load()) kobal::InvalidateRect(graph, nullptr, 0);
    instance->dirtyFlags = 0;
    return true;
}

void followSpectrum(EqInstance* instance, HWND graph) {
    const uint32_t newest = instance->spectrumTick.load();
    if (instance->spectrumDrawnTick != newest) {
        kobal::InvalidateRect(graph, nullptr, 0);
    } else if (newest != 0 && instance->spectrumDrawnTick != 0 &&
               kobal::GetTickCount() > newest + kSpectrumSilenceMilliseconds) {
        instance->spectrumTick = 0;
    }
}

}  // namespace

void runEditorTimer(EqInstance* instance, HWND editor, WPARAM timerId, const RECT& minimumSize) {
    endEditGesture(instance, true);
    fitToParent(instance, editor, timerId == kFirstSizingPass, minimumSize);
    if (timerId != kPollTimer) return;
    HWND graph = kobal::GetDlgItem(editor, kResponseViewControl);
    endHoverOutsideGraph(instance, graph);
    if (instance->refreshRequested) {
        instance->refreshRequested = 0;
        kobal::SendMessage(editor, WM_REFRESH_EDITOR, 0, 0);
        instance->dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
    }
    if (!showDirtyParts(instance, graph)) followSpectrum(instance, graph);
}
