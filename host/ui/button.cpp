#include "host/ui/button.h"

#include "host/raster/canvas.h"
#include "host/ui/control_notifications.h"
#include "host/ui/dialog_controls.h"
#include "host/ui/dialog_items.h"
#include "host/ui/face_drawing.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/messages.h"

namespace kobal_layer {
namespace {

constexpr int kCheckBoxSize = 13;

struct ButtonState : ControlState {
    UINT check = BST_UNCHECKED;
    bool pressed = false;
};

uint32_t buttonType(HWND button) { return button->style & BS_TYPEMASK; }

bool isCheckBox(HWND button) {
    uint32_t type = buttonType(button);
    return type == BS_CHECKBOX || type == BS_AUTOCHECKBOX;
}

void click(HWND button, ButtonState& state) {
    if (buttonType(button) == BS_AUTOCHECKBOX)
        state.check = state.check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED;
    button->needsPaint = true;
    notifyCommand(button, BN_CLICKED);
}

bool pointInside(HWND button, LPARAM lParam) {
    int x = lowWord(static_cast<uintptr_t>(lParam));
    int y = highWord(static_cast<uintptr_t>(lParam));
    return x >= 0 && y >= 0 && x < windowWidth(*button) && y < windowHeight(*button);
}

LRESULT buttonProcedure(HWND button, UINT message, WPARAM wParam, LPARAM lParam) {
    ButtonState* state = controlState<ButtonState>(button);
    if (!state || buttonType(button) == BS_GROUPBOX)
        return DefWindowProc(button, message, wParam, lParam);
    switch (message) {
        case BM_GETCHECK: return state->check;
        case BM_SETCHECK:
            state->check = static_cast<UINT>(wParam);
            button->needsPaint = true;
            return 0;
        case BM_CLICK: click(button, *state); return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            state->pressed = true;
            SetFocus(button);
            SetCapture(button);
            button->needsPaint = true;
            return 0;
        case WM_LBUTTONUP: {
            bool wasPressed = state->pressed;
            state->pressed = false;
            if (GetCapture() == button) ReleaseCapture();
            if (wasPressed && pointInside(button, lParam)) click(button, *state);
            return 0;
        }
        default: return DefWindowProc(button, message, wParam, lParam);
    }
}

void drawPushButton(const KobalWindow& button, const ButtonState& state, Canvas& canvas,
                    RECT area) {
    uint32_t fill = state.pressed ? shadowPixel() : facePixel();
    drawFramedBox(canvas, area, fill, textPixel());
    drawControlText(canvas, button.text, area, DT_CENTER | DT_VCENTER, textPixel());
}

void drawCheckBox(const KobalWindow& button, const ButtonState& state, Canvas& canvas, RECT area) {
    int boxTop = area.top + (area.bottom - area.top - kCheckBoxSize) / 2;
    RECT box = rectAt(area.left, boxTop, kCheckBoxSize, kCheckBoxSize);
    drawFramedBox(canvas, box, fieldPixel(), textPixel());
    if (state.check == BST_CHECKED) {
        canvas.line(box.left + 3, box.top + 6, box.left + 5, box.top + 9, textPixel(), 2.0);
        canvas.line(box.left + 5, box.top + 9, box.left + 10, box.top + 3, textPixel(), 2.0);
    }
    RECT label{area.left + kCheckBoxSize + 4, area.top, area.right, area.bottom};
    drawControlText(canvas, button.text, label, DT_LEFT | DT_VCENTER, textPixel());
}

void drawGroupBox(const KobalWindow& box, Canvas& canvas, RECT area) {
    constexpr int kTitleMiddle = 7;
    canvas.frameRect(area.left, area.top + kTitleMiddle, area.right - area.left,
                     area.bottom - area.top - kTitleMiddle, shadowPixel());
    if (box.text.empty()) return;
    RECT title{area.left + 8, area.top, area.right - 8, area.top + 2 * kTitleMiddle};
    int titleWidth = static_cast<int>(box.text.size()) * 7 + 4;
    canvas.fillRect(title.left - 2, title.top, titleWidth, 2 * kTitleMiddle, facePixel());
    drawControlText(canvas, box.text, title, DT_LEFT | DT_VCENTER, textPixel());
}

void drawButtonFace(HWND button, Canvas& canvas, int x, int y) {
    RECT area = rectAt(x, y, windowWidth(*button), windowHeight(*button));
    ButtonState* state = controlState<ButtonState>(button);
    if (buttonType(button) == BS_GROUPBOX)
        drawGroupBox(*button, canvas, area);
    else if (!state)
        return;
    else if (isCheckBox(button))
        drawCheckBox(*button, *state, canvas, area);
    else
        drawPushButton(*button, *state, canvas, area);
}

std::unique_ptr<ControlState> makeButtonState(uint32_t) { return std::make_unique<ButtonState>(); }

bool isGroupBoxStyle(uint32_t style) { return (style & BS_TYPEMASK) == BS_GROUPBOX; }

}  // namespace

const ControlClass kButtonClass = {kButtonClassName, buttonProcedure, makeButtonState,
                                   drawButtonFace,   isGroupBoxStyle, nullptr};

}  // namespace kobal_layer
