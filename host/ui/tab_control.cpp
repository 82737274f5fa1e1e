#include "host/ui/tab_control.h"

#include <string>
#include <vector>

#include "host/raster/canvas.h"
#include "host/ui/control_notifications.h"
#include "host/ui/face_drawing.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/messages.h"

namespace kobal_layer {
namespace {

// Headers are laid out at a fixed width per character, so hit tests do not
// depend on font metrics.
constexpr int kHeaderPadding = 12;
constexpr int kCharacterWidth = 7;
constexpr int kNarrowestHeader = 24;

struct TabState : ControlState {
    std::vector<std::string> texts;
    int selection = -1;
};

int headerWidth(const std::string& text) {
    int width = kHeaderPadding + kCharacterWidth * static_cast<int>(text.size());
    return width > kNarrowestHeader ? width : kNarrowestHeader;
}

int tabUnder(HWND tabs, const TabState& state, int x, int y) {
    for (int index = 0; index < static_cast<int>(state.texts.size()); ++index) {
        RECT header = tabHeaderRect(tabs, index);
        if (x >= header.left && x < header.right && y >= header.top && y < header.bottom)
            return index;
    }
    return -1;
}

void clickTab(HWND tabs, TabState& state, int index) {
    if (index < 0 || index == state.selection) return;
    if (notifyParent(tabs, TCN_SELCHANGING) != 0 || !liveWindow(tabs)) return;
    state.selection = index;
    tabs->needsPaint = true;
    notifyParent(tabs, TCN_SELCHANGE);
}

LRESULT tabProcedure(HWND tabs, UINT message, WPARAM wParam, LPARAM lParam) {
    TabState* state = controlState<TabState>(tabs);
    if (state && message == WM_LBUTTONDOWN) {
        int x = lowWord(static_cast<uintptr_t>(lParam));
        int y = highWord(static_cast<uintptr_t>(lParam));
        SetFocus(tabs);
        if (liveWindow(tabs)) clickTab(tabs, *state, tabUnder(tabs, *state, x, y));
        return 0;
    }
    return DefWindowProc(tabs, message, wParam, lParam);
}

void drawTabFace(HWND tabs, Canvas& canvas, int x, int y) {
    TabState* state = controlState<TabState>(tabs);
    int width = windowWidth(*tabs);
    int height = windowHeight(*tabs);
    RECT body = rectAt(x, y + kTabHeaderHeight - 1, width, height - kTabHeaderHeight + 1);
    drawFramedBox(canvas, body, facePixel(), shadowPixel());
    if (!state) return;
    for (int index = 0; index < static_cast<int>(state->texts.size()); ++index) {
        RECT header = tabHeaderRect(tabs, index);
        RECT placed{header.left + x, header.top + y, header.right + x, header.bottom + y};
        bool current = index == state->selection;
        drawFramedBox(canvas, placed, current ? fieldPixel() : facePixel(), shadowPixel());
        drawControlText(canvas, state->texts[index], placed, DT_CENTER | DT_VCENTER, textPixel());
    }
}

std::unique_ptr<ControlState> makeTabState(uint32_t) { return std::make_unique<TabState>(); }

}  // namespace

const ControlClass kTabControlClass = {kTabControlClassName, tabProcedure, makeTabState,
                                       drawTabFace,          nullptr,      nullptr};

int TabCtrl_GetItemCount(HWND tabs) {
    TabState* state = controlState<TabState>(tabs);
    return state ? static_cast<int>(state->texts.size()) : 0;
}

BOOL TabCtrl_DeleteItem(HWND tabs, int index) {
    TabState* state = controlState<TabState>(tabs);
    if (!state || index < 0 || index >= static_cast<int>(state->texts.size())) return 0;
    state->texts.erase(state->texts.begin() + index);
    if (state->selection == index)
        state->selection = -1;
    else if (state->selection > index)
        --state->selection;
    tabs->needsPaint = true;
    return 1;
}

int TabCtrl_InsertItem(HWND tabs, int index, const TCITEM* item) {
    TabState* state = controlState<TabState>(tabs);
    if (!state || index < 0 || !item) return -1;
    int count = static_cast<int>(state->texts.size());
    int at = index < count ? index : count;
    std::string text = (item->mask & TCIF_TEXT) && item->pszText ? item->pszText : "";
    state->texts.insert(state->texts.begin() + at, std::move(text));
    if (count == 0)
        state->selection = 0;  // the first tab becomes the current one
    else if (state->selection >= at)
        ++state->selection;
    tabs->needsPaint = true;
    return at;
}

int TabCtrl_SetCurSel(HWND tabs, int index) {
    TabState* state = controlState<TabState>(tabs);
    if (!state || index < 0 || index >= static_cast<int>(state->texts.size())) return -1;
    int previous = state->selection;
    state->selection = index;
    tabs->needsPaint = true;
    return previous;
}

int TabCtrl_GetCurSel(HWND tabs) {
    TabState* state = controlState<TabState>(tabs);
    return state ? state->selection : -1;
}

RECT tabHeaderRect(HWND tabs, int index) {
    TabState* state = controlState<TabState>(tabs);
    if (!state || index < 0 || index >= static_cast<int>(state->texts.size())) return RECT{};
    int left = 2;
    for (int before = 0; before < index; ++before) left += headerWidth(state->texts[before]);
    return RECT{left, 0, left + headerWidth(state->texts[index]), kTabHeaderHeight};
}

const char* tabText(HWND tabs, int index) {
    TabState* state = controlState<TabState>(tabs);
    if (!state || index < 0 || index >= static_cast<int>(state->texts.size())) return nullptr;
    return state->texts[index].c_str();
}

}  // namespace kobal_layer
