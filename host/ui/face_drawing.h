// The plain look shared by the standard controls' faces in screenshots.
#pragma once

#include <string>

#include "contracts/kobal.h"

class Canvas;

namespace kobal_layer {

constexpr int kControlTextHeight = 13;  // cell height in pixels, as LOGFONT's lfHeight

uint32_t facePixel();    // dialog and button face
uint32_t textPixel();    // control text
uint32_t shadowPixel();  // frames
uint32_t fieldPixel();   // edit and list fields

// Text in the control font inside `rect` (DT_ flags; single line).
void drawControlText(Canvas& canvas, const std::string& text, const RECT& rect, UINT dtFlags,
                     uint32_t color);
// Text in the control font turned a quarter left, so that it reads upward,
// centred in `rect` and clipped to it: labels of narrow vertical controls.
void drawControlTextUpward(Canvas& canvas, const std::string& text, const RECT& rect,
                           uint32_t color);
// A filled rectangle with a one-pixel frame.
void drawFramedBox(Canvas& canvas, const RECT& rect, uint32_t fill, uint32_t frame);
RECT rectAt(int x, int y, int width, int height);

}  // namespace kobal_layer
