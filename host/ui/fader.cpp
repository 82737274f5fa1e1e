#include "host/ui/fader.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "host/extensions/fader_curve.h"
#include "host/raster/canvas.h"
#include "host/ui/control_notifications.h"
#include "host/ui/face_drawing.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/messages.h"

namespace kobal_layer {
namespace {

constexpr int kTrackThickness = 4;
constexpr int kTicLength = 4;

struct FaderState : ControlState {
    bool vertical = false;
    int minimum = static_cast<int>(kFaderBottom);
    int maximum = static_cast<int>(kFaderTop);
    int position = 0;
    std::vector<int> tics;
    std::string name;
    std::string value;
    bool dragging = false;
};

int travelLength(HWND fader, const FaderState& state) {
    int length = state.vertical ? windowHeight(*fader) : windowWidth(*fader);
    return std::max(1, length - kFaderKnobLength);
}

int clampPosition(const FaderState& state, long position) {
    return static_cast<int>(std::clamp<long>(position, state.minimum, state.maximum));
}

double fractionOf(const FaderState& state, int position) {
    int span = state.maximum - state.minimum;
    return span > 0 ? static_cast<double>(position - state.minimum) / span : 0.0;
}

// Offset of the knob centre along the travel, from the left or from the bottom.
int knobOffset(HWND fader, const FaderState& state, int position) {
    return kFaderKnobLength / 2 +
           static_cast<int>(std::lround(fractionOf(state, position) * travelLength(fader, state)));
}

int positionAtPoint(HWND fader, const FaderState& state, int x, int y) {
    int along = state.vertical ? windowHeight(*fader) - 1 - y : x;
    double fraction =
        static_cast<double>(along - kFaderKnobLength / 2) / travelLength(fader, state);
    long position = std::lround(state.minimum + fraction * (state.maximum - state.minimum));
    return clampPosition(state, position);
}

void notifyScroll(HWND fader, const FaderState& state, int code) {
    KobalWindow* window = liveWindow(fader);
    if (!window || !window->parent) return;
    SendMessage(window->parent, state.vertical ? WM_VSCROLL : WM_HSCROLL,
                makeWParam(code, state.position), reinterpret_cast<LPARAM>(fader));
}

void moveByUser(HWND fader, FaderState& state, int position, int code) {
    state.position = clampPosition(state, position);
    fader->needsPaint = true;
    notifyScroll(fader, state, code);
}

int pointerPosition(HWND fader, const FaderState& state, LPARAM lParam) {
    return positionAtPoint(fader, state, lowWord(static_cast<uintptr_t>(lParam)),
                           highWord(static_cast<uintptr_t>(lParam)));
}

LRESULT handleMouse(HWND fader, FaderState& state, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
            state.dragging = true;
            SetFocus(fader);
            SetCapture(fader);
            moveByUser(fader, state, pointerPosition(fader, state, lParam), SB_THUMBTRACK);
            return 0;
        case WM_MOUSEMOVE:
            if (state.dragging)
                moveByUser(fader, state, pointerPosition(fader, state, lParam), SB_THUMBTRACK);
            return 0;
        case WM_LBUTTONUP:
            if (!state.dragging) return 0;
            state.dragging = false;
            if (GetCapture() == fader) ReleaseCapture();
            notifyScroll(fader, state, SB_ENDSCROLL);
            return 0;
        default: {  // WM_MOUSEWHEEL
            int notches = highWord(wParam) / 120;
            int step = std::max(1, (state.maximum - state.minimum) / 100);
            moveByUser(fader, state, state.position + notches * step, SB_THUMBTRACK);
            if (liveWindow(fader)) notifyScroll(fader, state, SB_ENDSCROLL);
            return 0;
        }
    }
}

void setRange(HWND fader, FaderState& state, int minimum, int maximum) {
    state.minimum = minimum;
    state.maximum = std::max(minimum, maximum);
    state.position = clampPosition(state, state.position);
    fader->needsPaint = true;
}

LRESULT setText(HWND fader, FaderState& state, WPARAM which, LPARAM text) {
    std::string* target = which == kFaderNameText    ? &state.name
                          : which == kFaderValueText ? &state.value
                                                     : nullptr;
    if (!target) return 0;
    *target = text ? reinterpret_cast<const char*>(text) : "";
    fader->needsPaint = true;
    return 1;
}

LRESULT faderProcedure(HWND fader, UINT message, WPARAM wParam, LPARAM lParam) {
    FaderState* state = controlState<FaderState>(fader);
    if (!state) return DefWindowProc(fader, message, wParam, lParam);
    switch (message) {
        case TBM_GETPOS: return state->position;
        case TBM_GETRANGEMIN: return state->minimum;
        case TBM_GETRANGEMAX: return state->maximum;
        case TBM_SETPOS:
            state->position = clampPosition(*state, lParam);
            fader->needsPaint = true;
            return 0;
        case TBM_SETRANGE:
            // LOWORD / HIWORD: unsigned, as Win32 reads them.
            setRange(fader, *state, static_cast<int>(lParam & 0xFFFF),
                     static_cast<int>((lParam >> 16) & 0xFFFF));
            return 0;
        case TBM_SETRANGEMIN:
            setRange(fader, *state, static_cast<int>(lParam), state->maximum);
            return 0;
        case TBM_SETRANGEMAX:
            setRange(fader, *state, state->minimum, static_cast<int>(lParam));
            return 0;
        case TBM_SETTIC:
            state->tics.push_back(lParam == -1 ? static_cast<int>(faderPositionOfDb(0.0))
                                               : static_cast<int>(lParam));
            fader->needsPaint = true;
            return 1;
        case FADER_SETTEXT: return setText(fader, *state, wParam, lParam);
        case WM_LBUTTONDOWN:
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP:
        case WM_MOUSEWHEEL: return handleMouse(fader, *state, message, wParam, lParam);
        default: return DefWindowProc(fader, message, wParam, lParam);
    }
}

// Texts in the upper half, track and knob in the lower half.
void drawHorizontal(HWND fader, const FaderState& state, Canvas& canvas, int x, int y) {
    int width = windowWidth(*fader);
    int height = windowHeight(*fader);
    int lower = y + height / 2;
    int track = lower + height / 4;
    canvas.fillRect(x + kFaderKnobLength / 2, track - kTrackThickness / 2, width - kFaderKnobLength,
                    kTrackThickness, shadowPixel());
    for (int tic : state.tics)
        if (tic >= state.minimum && tic <= state.maximum)
            canvas.fillRect(x + knobOffset(fader, state, tic), y + height - kTicLength, 1,
                            kTicLength, textPixel());
    RECT texts = rectAt(x + 2, y, width - 4, height / 2);
    drawControlText(canvas, state.name, texts, DT_LEFT | DT_VCENTER, textPixel());
    drawControlText(canvas, state.value, texts, DT_RIGHT | DT_VCENTER, textPixel());
    int knob = x + knobOffset(fader, state, state.position) - kFaderKnobLength / 2;
    drawFramedBox(canvas, rectAt(knob, lower, kFaderKnobLength, height - height / 2), fieldPixel(),
                  textPixel());
}

// The name runs down from the top one character a line, as a narrow
// vertical fader has no room for it across; the value sits at the foot.
void drawVertical(HWND fader, const FaderState& state, Canvas& canvas, int x, int y) {
    int width = windowWidth(*fader);
    int height = windowHeight(*fader);
    int bottom = y + height - 1;
    canvas.fillRect(x + width / 2 - kTrackThickness / 2, y + kFaderKnobLength / 2, kTrackThickness,
                    height - kFaderKnobLength, shadowPixel());
    for (int tic : state.tics)
        if (tic >= state.minimum && tic <= state.maximum)
            canvas.fillRect(x, bottom - knobOffset(fader, state, tic), kTicLength, 1, textPixel());
    for (size_t i = 0; i < state.name.size(); ++i) {
        RECT cell =
            rectAt(x, y + static_cast<int>(i) * kControlTextHeight, width, kControlTextHeight);
        canvas.fillRect(x + width / 2 - kFaderKnobLength / 2, cell.top, kFaderKnobLength,
                        kControlTextHeight, facePixel());
        drawControlText(canvas, state.name.substr(i, 1), cell, DT_CENTER | DT_VCENTER, textPixel());
    }
    RECT foot = rectAt(x, y + height - kControlTextHeight - 2, width, kControlTextHeight + 2);
    drawControlText(canvas, state.value, foot, DT_CENTER | DT_VCENTER, textPixel());
    int knob = bottom - knobOffset(fader, state, state.position) - kFaderKnobLength / 2;
    drawFramedBox(canvas, rectAt(x + 1, knob, width - 2, kFaderKnobLength), fieldPixel(),
                  textPixel());
}

void drawFaderFace(HWND fader, Canvas& canvas, int x, int y) {
    FaderState* state = controlState<FaderState>(fader);
    canvas.fillRect(x, y, windowWidth(*fader), windowHeight(*fader), facePixel());
    if (!state) return;
    if (state->vertical)
        drawVertical(fader, *state, canvas, x, y);
    else
        drawHorizontal(fader, *state, canvas, x, y);
}

std::unique_ptr<ControlState> makeHorizontalState(uint32_t) {
    return std::make_unique<FaderState>();
}

std::unique_ptr<ControlState> makeVerticalState(uint32_t) {
    auto state = std::make_unique<FaderState>();
    state->vertical = true;
    return state;
}

}  // namespace

const ControlClass kHorizontalFaderClass = {kHorizontalFaderClassName,
                                            faderProcedure,
                                            makeHorizontalState,
                                            drawFaderFace,
                                            nullptr,
                                            nullptr};
const ControlClass kVerticalFaderClass = {
    kVerticalFaderClassName, faderProcedure, makeVerticalState, drawFaderFace, nullptr, nullptr};

POINT faderPointOfPosition(HWND fader, int position) {
    FaderState* state = controlState<FaderState>(fader);
    if (!state) return POINT{0, 0};
    int offset = knobOffset(fader, *state, clampPosition(*state, position));
    if (state->vertical) return POINT{windowWidth(*fader) / 2, windowHeight(*fader) - 1 - offset};
    int height = windowHeight(*fader);
    return POINT{offset, height / 2 + height / 4};  // the knob fills the lower half
}

const char* faderText(HWND fader, WPARAM which) {
    FaderState* state = controlState<FaderState>(fader);
    if (!state) return nullptr;
    return which == kFaderNameText ? state->name.c_str() : state->value.c_str();
}

}  // namespace kobal_layer
