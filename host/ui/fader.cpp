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

// A vertical fader keeps its name above the travel and its value below it,
// both written upward, so the knob never covers them. Their room is counted
// at a fixed width per character so that hit tests do not depend on fonts.
constexpr int kUpwardCharacterLength = 7;
constexpr int kTextPadding = 4;
constexpr int kLongestValue = 6;  // characters, as in "-150.0"

int nameLength(HWND fader, const FaderState& state) {
    if (!state.vertical || state.name.empty()) return 0;
    const int wanted = kTextPadding + kUpwardCharacterLength * static_cast<int>(state.name.size());
    return std::min(wanted, windowHeight(*fader) / 3);
}

int valueLength(HWND fader, const FaderState& state) {
    if (!state.vertical) return 0;
    return std::min(kTextPadding + kUpwardCharacterLength * kLongestValue,
                    windowHeight(*fader) / 4);
}

// The stretch the knob moves along: from the left or from the bottom.
struct Travel {
    int start;
    int end;
};

Travel travelOf(HWND fader, const FaderState& state) {
    if (!state.vertical) return Travel{0, windowWidth(*fader)};
    return Travel{valueLength(fader, state), windowHeight(*fader) - nameLength(fader, state)};
}

int travelLength(HWND fader, const FaderState& state) {
    const Travel travel = travelOf(fader, state);
    return std::max(1, travel.end - travel.start - kFaderKnobLength);
}

int clampPosition(const FaderState& state, long position) {
    return static_cast<int>(std::clamp<long>(position, state.minimum, state.maximum));
}

double fractionOf(const FaderState& state, int position) {
    int span = state.maximum - state.minimum;
    return span > 0 ? static_cast<double>(position - state.minimum) / span : 0.0;
}

// Offset of the knob centre along the fader, from the left or from the bottom.
int knobOffset(HWND fader, const FaderState& state, int position) {
    return travelOf(fader, state).start + kFaderKnobLength / 2 +
           static_cast<int>(std::lround(fractionOf(state, position) * travelLength(fader, state)));
}

int positionAtPoint(HWND fader, const FaderState& state, int x, int y) {
    int along = state.vertical ? windowHeight(*fader) - 1 - y : x;
    double fraction =
        static_cast<double>(along - travelOf(fader, state).start - kFaderKnobLength / 2) /
        travelLength(fader, state);
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

// The name above the travel and the value below it, each written upward.
void drawVertical(HWND fader, const FaderState& state, Canvas& canvas, int x, int y) {
    int width = windowWidth(*fader);
    int height = windowHeight(*fader);
    int bottom = y + height - 1;
    const Travel travel = travelOf(fader, state);
    canvas.fillRect(x + width / 2 - kTrackThickness / 2,
                    bottom + 1 - travel.end + kFaderKnobLength / 2, kTrackThickness,
                    travel.end - travel.start - kFaderKnobLength, shadowPixel());
    for (int tic : state.tics)
        if (tic >= state.minimum && tic <= state.maximum)
            canvas.fillRect(x, bottom - knobOffset(fader, state, tic), kTicLength, 1, textPixel());
    const auto placed = [&](const RECT& r) {
        return RECT{r.left + x, r.top + y, r.right + x, r.bottom + y};
    };
    drawControlTextUpward(canvas, state.name, placed(faderTextRect(fader, kFaderNameText)),
                          textPixel());
    drawControlTextUpward(canvas, state.value, placed(faderTextRect(fader, kFaderValueText)),
                          textPixel());
    int knob = y + height - knobOffset(fader, state, state.position) - kFaderKnobLength / 2;
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

RECT faderTextRect(HWND fader, WPARAM which) {
    FaderState* state = controlState<FaderState>(fader);
    if (!state || !state->vertical) return RECT{};
    const int width = windowWidth(*fader);
    const int height = windowHeight(*fader);
    if (which == kFaderNameText) return rectAt(0, 0, width, nameLength(fader, *state));
    const int value = valueLength(fader, *state);
    return rectAt(0, height - value, width, value);
}

const char* faderText(HWND fader, WPARAM which) {
    FaderState* state = controlState<FaderState>(fader);
    if (!state) return nullptr;
    return which == kFaderNameText ? state->name.c_str() : state->value.c_str();
}

}  // namespace kobal_layer
