#include "host/ui/static_control.h"

#include "host/raster/canvas.h"
#include "host/ui/dialog_controls.h"
#include "host/ui/face_drawing.h"
#include "host/ui/messages.h"

namespace kobal_layer {
namespace {

UINT textAlignment(uint32_t style) {
    switch (style & SS_TYPEMASK) {
        case SS_CENTER: return DT_CENTER;
        case SS_RIGHT: return DT_RIGHT;
        default: return DT_LEFT;
    }
}

void drawStaticFace(HWND label, Canvas& canvas, int x, int y) {
    RECT area = rectAt(x, y, windowWidth(*label), windowHeight(*label));
    if ((label->style & SS_TYPEMASK) == SS_BLACKRECT) {
        canvas.fillRect(x, y, windowWidth(*label), windowHeight(*label), 0xFF000000u);
        return;
    }
    canvas.fillRect(x, y, windowWidth(*label), windowHeight(*label), facePixel());
    drawControlText(canvas, label->text, area, textAlignment(label->style) | DT_VCENTER,
                    textPixel());
}

}  // namespace

const ControlClass kStaticClass = {kStaticClassName, DefWindowProc, nullptr,
                                   drawStaticFace,   nullptr,       nullptr};

}  // namespace kobal_layer
