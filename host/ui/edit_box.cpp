#include "host/ui/edit_box.h"

#include "host/raster/canvas.h"
#include "host/ui/control_notifications.h"
#include "host/ui/dialog_controls.h"
#include "host/ui/face_drawing.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/messages.h"

namespace kobal_layer {
namespace {

constexpr int kTextInset = 3;

bool isReadOnly(HWND edit) { return edit->style & ES_READONLY; }

void changeText(HWND edit, std::string text) {
    edit->text = std::move(text);
    edit->needsPaint = true;
    notifyCommand(edit, EN_CHANGE);
}

void typeCharacter(HWND edit, char typed) {
    if (isReadOnly(edit)) return;
    std::string text = edit->text;
    if (typed == kBackspace) {
        if (text.empty()) return;
        text.pop_back();
    } else if (static_cast<unsigned char>(typed) >= ' ') {
        text.push_back(typed);
    } else {
        return;  // other control characters (return, tab) do not edit
    }
    changeText(edit, std::move(text));
}

LRESULT editProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETTEXT:
            changeText(edit, lParam ? reinterpret_cast<const char*>(lParam) : "");
            return 1;
        case WM_CHAR: typeCharacter(edit, static_cast<char>(wParam)); return 0;
        case WM_CLEAR:
            if (!isReadOnly(edit)) changeText(edit, "");
            return 0;
        case WM_LBUTTONDOWN: SetFocus(edit); return 0;
        default: return DefWindowProc(edit, message, wParam, lParam);
    }
}

UINT textAlignment(uint32_t style) {
    if (style & ES_CENTER) return DT_CENTER;
    return (style & ES_RIGHT) ? DT_RIGHT : DT_LEFT;
}

void drawEditFace(HWND edit, Canvas& canvas, int x, int y) {
    RECT area = rectAt(x, y, windowWidth(*edit), windowHeight(*edit));
    drawFramedBox(canvas, area, isReadOnly(edit) ? facePixel() : fieldPixel(), shadowPixel());
    RECT inside{area.left + kTextInset, area.top, area.right - kTextInset, area.bottom};
    drawControlText(canvas, edit->text, inside, textAlignment(edit->style) | DT_VCENTER,
                    textPixel());
}

}  // namespace

const ControlClass kEditClass = {kEditClassName, editProcedure, nullptr,
                                 drawEditFace,   nullptr,       nullptr};

}  // namespace kobal_layer
