#include "host/ui/tab_control.h"

#include <algorithm>
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
constexpr int kFirstHeaderLeft = 2;
constexpr int kArrowButtonWidth = 17;
constexpr int kArrowHalfHeight = 4;

struct TabState : ControlState {
    std::vector<std::string> texts;
    int selection = -1;
    int firstShown = 0;  // the leftmost header shown while the tabs scroll
};

int tabCount(const TabState& state) { return static_cast<int>(state.texts.size()); }

int headerWidth(const std::string& text) {
    int width = kHeaderPadding + kCharacterWidth * static_cast<int>(text.size());
    return width > kNarrowestHeader ? width : kNarrowestHeader;
}

int headersWidth(const TabState& state, int first, int end) {
    int width = 0;
    for (int index = first; index < end; ++index) width += headerWidth(state.texts[index]);
    return width;
}

bool scrolls(HWND tabs, const TabState& state) {
    return kFirstHeaderLeft + headersWidth(state, 0, tabCount(state)) > windowWidth(*tabs);
}

// Headers end here; the two arrow buttons take the rest of the row.
int headerRowEnd(HWND tabs, const TabState& state) {
    const int width = windowWidth(*tabs);
    return scrolls(tabs, state) ? width - 2 * kArrowButtonWidth : width;
}

// The smallest first header from which every later one fits.
int lastFirstShown(HWND tabs, const TabState& state) {
    const int room = headerRowEnd(tabs, state) - kFirstHeaderLeft;
    int first = tabCount(state);
    while (first > 0 && headersWidth(state, first - 1, tabCount(state)) <= room) --first;
    return first < tabCount(state) ? first : std::max(0, tabCount(state) - 1);
}

int shownFrom(HWND tabs, const TabState& state) {
    if (!scrolls(tabs, state)) return 0;
    return std::clamp(state.firstShown, 0, lastFirstShown(tabs, state));
}

bool headerFits(HWND tabs, const TabState& state, int index) {
    const int first = shownFrom(tabs, state);
    return index >= first &&
           kFirstHeaderLeft + headersWidth(state, first, index + 1) <= headerRowEnd(tabs, state);
}

// The current tab's header is kept in view.
void showSelection(HWND tabs, TabState& state) {
    if (state.selection < 0 || !scrolls(tabs, state)) return;
    if (state.selection < shownFrom(tabs, state)) state.firstShown = state.selection;
    while (!headerFits(tabs, state, state.selection) && state.firstShown < state.selection)
        state.firstShown = shownFrom(tabs, state) + 1;
}

int tabUnder(HWND tabs, const TabState& state, int x, int y) {
    for (int index = 0; index < tabCount(state); ++index) {
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
    showSelection(tabs, state);
    tabs->needsPaint = true;
    notifyParent(tabs, TCN_SELCHANGE);
}

bool inside(const RECT& rect, int x, int y) {
    return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}

// An arrow button moves the headers by one tab; the selection stays.
bool clickArrow(HWND tabs, TabState& state, int x, int y) {
    const int step = inside(tabScrollButtonRect(tabs, -1), x, y)  ? -1
                     : inside(tabScrollButtonRect(tabs, 1), x, y) ? 1
                                                                  : 0;
    if (step == 0) return false;
    state.firstShown = std::clamp(shownFrom(tabs, state) + step, 0, lastFirstShown(tabs, state));
    tabs->needsPaint = true;
    return true;
}

LRESULT tabProcedure(HWND tabs, UINT message, WPARAM wParam, LPARAM lParam) {
    TabState* state = controlState<TabState>(tabs);
    if (state && message == WM_LBUTTONDOWN) {
        int x = lowWord(static_cast<uintptr_t>(lParam));
        int y = highWord(static_cast<uintptr_t>(lParam));
        SetFocus(tabs);
        if (liveWindow(tabs) && !clickArrow(tabs, *state, x, y))
            clickTab(tabs, *state, tabUnder(tabs, *state, x, y));
        return 0;
    }
    return DefWindowProc(tabs, message, wParam, lParam);
}

// A button with a small solid triangle pointing left or right.
void drawArrowButton(Canvas& canvas, const RECT& button, int direction) {
    drawFramedBox(canvas, button, facePixel(), shadowPixel());
    const int middleX = (button.left + button.right) / 2;
    const int middleY = (button.top + button.bottom) / 2;
    for (int step = 0; step <= kArrowHalfHeight; ++step) {
        const int x = middleX + direction * (step - kArrowHalfHeight / 2);
        canvas.fillRect(x, middleY - (kArrowHalfHeight - step), 1,
                        2 * (kArrowHalfHeight - step) + 1, textPixel());
    }
}

void drawTabFace(HWND tabs, Canvas& canvas, int x, int y) {
    TabState* state = controlState<TabState>(tabs);
    int width = windowWidth(*tabs);
    int height = windowHeight(*tabs);
    RECT body = rectAt(x, y + kTabHeaderHeight - 1, width, height - kTabHeaderHeight + 1);
    drawFramedBox(canvas, body, facePixel(), shadowPixel());
    if (!state) return;
    for (int direction : {-1, 1}) {
        const RECT button = tabScrollButtonRect(tabs, direction);
        if (button.right > button.left)
            drawArrowButton(canvas, RECT{button.left + x, button.top + y, button.right + x,
                                         button.bottom + y},
                            direction);
    }
    for (int index = 0; index < tabCount(*state); ++index) {
        RECT header = tabHeaderRect(tabs, index);
        if (header.right <= header.left) continue;  // scrolled out of view
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
    showSelection(tabs, *state);
    tabs->needsPaint = true;
    return previous;
}

int TabCtrl_GetCurSel(HWND tabs) {
    TabState* state = controlState<TabState>(tabs);
    return state ? state->selection : -1;
}

RECT tabHeaderRect(HWND tabs, int index) {
    TabState* state = controlState<TabState>(tabs);
    if (!state || index < 0 || index >= tabCount(*state) || !headerFits(tabs, *state, index))
        return RECT{};
    int left = kFirstHeaderLeft + headersWidth(*state, shownFrom(tabs, *state), index);
    return RECT{left, 0, left + headerWidth(state->texts[index]), kTabHeaderHeight};
}

RECT tabScrollButtonRect(HWND tabs, int direction) {
    TabState* state = controlState<TabState>(tabs);
    if (!state || !scrolls(tabs, *state)) return RECT{};
    const int left = headerRowEnd(tabs, *state) + (direction < 0 ? 0 : kArrowButtonWidth);
    return RECT{left, 0, left + kArrowButtonWidth, kTabHeaderHeight};
}

const char* tabText(HWND tabs, int index) {
    TabState* state = controlState<TabState>(tabs);
    if (!state || index < 0 || index >= static_cast<int>(state->texts.size())) return nullptr;
    return state->texts[index].c_str();
}

}  // namespace kobal_layer
