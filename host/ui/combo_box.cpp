#include "host/ui/combo_box.h"

#include <cstring>
#include <string>
#include <vector>

#include "host/raster/canvas.h"
#include "host/ui/control_notifications.h"
#include "host/ui/dialog_controls.h"
#include "host/ui/face_drawing.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/messages.h"
#include "host/ui/text_and_time.h"

namespace kobal_layer {
namespace {

constexpr int kArrowWidth = 16;

struct ComboState : ControlState {
    std::vector<std::string> entries;
    int selection = -1;
};

bool validIndex(const ComboState& state, WPARAM index) { return index < state.entries.size(); }

LRESULT insertEntry(HWND combo, ComboState& state, WPARAM index, LPARAM text) {
    std::string entry = text ? reinterpret_cast<const char*>(text) : "";
    // CB_INSERTSTRING with index −1 (or past the end) appends, like CB_ADDSTRING.
    size_t at = index < state.entries.size() ? index : state.entries.size();
    state.entries.insert(state.entries.begin() + static_cast<long>(at), std::move(entry));
    if (state.selection >= static_cast<int>(at)) ++state.selection;
    combo->needsPaint = true;
    return static_cast<LRESULT>(at);
}

LRESULT deleteEntry(HWND combo, ComboState& state, WPARAM index) {
    if (!validIndex(state, index)) return CB_ERR;
    state.entries.erase(state.entries.begin() + static_cast<long>(index));
    int removed = static_cast<int>(index);
    if (state.selection == removed)
        state.selection = -1;
    else if (state.selection > removed)
        --state.selection;
    combo->needsPaint = true;
    return static_cast<LRESULT>(state.entries.size());
}

LRESULT copyEntry(const ComboState& state, WPARAM index, LPARAM buffer) {
    if (!validIndex(state, index) || !buffer) return CB_ERR;
    const std::string& entry = state.entries[index];
    std::memcpy(reinterpret_cast<char*>(buffer), entry.c_str(), entry.size() + 1);
    return static_cast<LRESULT>(entry.size());
}

LRESULT selectEntry(HWND combo, ComboState& state, WPARAM index) {
    state.selection = validIndex(state, index) ? static_cast<int>(index) : -1;
    combo->needsPaint = true;
    return state.selection >= 0 ? state.selection : CB_ERR;
}

LRESULT selectedText(const ComboState& state, WPARAM limit, LPARAM buffer) {
    std::string text = state.selection >= 0 ? state.entries[state.selection] : "";
    lstrcpyn(reinterpret_cast<char*>(buffer), text.c_str(), static_cast<int>(limit));
    return buffer && limit ? static_cast<LRESULT>(std::strlen(reinterpret_cast<char*>(buffer))) : 0;
}

LRESULT comboProcedure(HWND combo, UINT message, WPARAM wParam, LPARAM lParam) {
    ComboState* state = controlState<ComboState>(combo);
    if (!state) return DefWindowProc(combo, message, wParam, lParam);
    switch (message) {
        case CB_ADDSTRING: return insertEntry(combo, *state, static_cast<WPARAM>(-1), lParam);
        case CB_INSERTSTRING: return insertEntry(combo, *state, wParam, lParam);
        case CB_DELETESTRING: return deleteEntry(combo, *state, wParam);
        case CB_GETCOUNT: return static_cast<LRESULT>(state->entries.size());
        case CB_GETLBTEXT: return copyEntry(*state, wParam, lParam);
        case CB_GETLBTEXTLEN:
            return validIndex(*state, wParam) ? static_cast<LRESULT>(state->entries[wParam].size())
                                              : CB_ERR;
        case CB_RESETCONTENT:
            state->entries.clear();
            state->selection = -1;
            combo->needsPaint = true;
            return 0;
        case CB_SETCURSEL: return selectEntry(combo, *state, wParam);
        case CB_GETCURSEL: return state->selection;
        case WM_GETTEXT: return selectedText(*state, wParam, lParam);
        case WM_LBUTTONDOWN:
            SetFocus(combo);
            if (liveWindow(combo) && !state->entries.empty())
                chooseComboEntryAsUser(
                    combo, (state->selection + 1) % static_cast<int>(state->entries.size()));
            return 0;
        default: return DefWindowProc(combo, message, wParam, lParam);
    }
}

void drawComboFace(HWND combo, Canvas& canvas, int x, int y) {
    ComboState* state = controlState<ComboState>(combo);
    RECT area = rectAt(x, y, windowWidth(*combo), windowHeight(*combo));
    drawFramedBox(canvas, area, fieldPixel(), shadowPixel());
    RECT arrow{area.right - kArrowWidth, area.top, area.right, area.bottom};
    drawFramedBox(canvas, arrow, facePixel(), shadowPixel());
    int middleX = (arrow.left + arrow.right) / 2;
    int middleY = (arrow.top + arrow.bottom) / 2;
    canvas.line(middleX - 4, middleY - 2, middleX, middleY + 2, textPixel(), 1.5);
    canvas.line(middleX, middleY + 2, middleX + 4, middleY - 2, textPixel(), 1.5);
    if (!state || state->selection < 0) return;
    RECT text{area.left + 4, area.top, arrow.left - 2, area.bottom};
    drawControlText(canvas, state->entries[state->selection], text, DT_LEFT | DT_VCENTER,
                    textPixel());
}

std::unique_ptr<ControlState> makeComboState(uint32_t) { return std::make_unique<ComboState>(); }

void fitToField(HWND combo) {
    if (windowHeight(*combo) > kComboFieldHeight)
        combo->rect.bottom = combo->rect.top + kComboFieldHeight;
}

}  // namespace

const ControlClass kComboClass = {kComboClassName, comboProcedure, makeComboState,
                                  drawComboFace,   nullptr,        fitToField};

bool chooseComboEntryAsUser(HWND combo, int index) {
    ComboState* state = controlState<ComboState>(combo);
    if (!state || index < 0 || index >= static_cast<int>(state->entries.size())) return false;
    state->selection = index;
    combo->needsPaint = true;
    notifyCommand(combo, CBN_SELCHANGE);
    return true;
}

}  // namespace kobal_layer
