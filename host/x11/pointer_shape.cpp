#include "host/x11/pointer_shape.h"

#include <X11/cursorfont.h>

#include "host/ui/pointer_and_keys.h"

namespace x11_front {
namespace {

struct ShapeRow {
    int cursorId;
    unsigned int xShape;
};

const ShapeRow kShapes[] = {
    {kobal_layer::IDC_IBEAM, XC_xterm},
    {kobal_layer::IDC_SIZENS, XC_sb_v_double_arrow},
    {kobal_layer::IDC_SIZEWE, XC_sb_h_double_arrow},
    {kobal_layer::IDC_SIZEALL, XC_fleur},
    {kobal_layer::IDC_HAND, XC_hand2},
};

unsigned int xShapeOf(int cursorId) {
    for (const ShapeRow& row : kShapes)
        if (row.cursorId == cursorId) return row.xShape;
    return XC_left_ptr;
}

}  // namespace

PointerShape::~PointerShape() {
    for (auto& [shape, cursor] : cursors_) XFreeCursor(display_, cursor);
}

void PointerShape::follow(Window window) {
    int cursorId = kobal_layer::cursorIdOf(kobal_layer::currentCursor());
    if (cursorId == shownId_) return;
    shownId_ = cursorId;
    unsigned int shape = xShapeOf(cursorId);
    Cursor& cursor = cursors_[shape];
    if (!cursor) cursor = XCreateFontCursor(display_, shape);
    XDefineCursor(display_, window, cursor);
}

}  // namespace x11_front
