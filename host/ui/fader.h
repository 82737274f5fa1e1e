// The host's fader classes "HARVINhfader" (horizontal) and "HARVINvfader"
// (vertical, the top being the range's maximum, its name written upward
// above the knob's travel and its value below it): trackbar messages
// TBM_SETRANGE / TBM_SETPOS / TBM_GETPOS / TBM_SETTIC, a default range of
// 0..1000 (the positions of the host's fader curve), and FADER_SETTEXT for
// the name (wParam 1) and value (wParam 2) texts drawn on the fader.
//
// Dragging the knob (button down on the fader, moves while it holds the
// capture, button up) sends WM_HSCROLL / WM_VSCROLL to the parent with
// MAKEWPARAM(SB_THUMBTRACK, position) on every move and SB_ENDSCROLL at the
// release; lParam is the fader. Pressing on the fader moves the knob under
// the pointer and gives the fader the keyboard focus. The wheel moves it by 1% of the range per
// notch. TBM_SETTIC with lParam −1 marks the unity-gain (0 dB) position of
// the fader curve.
#pragma once

#include "host/ui/control_classes.h"

namespace kobal_layer {

constexpr const char* kHorizontalFaderClassName = "HARVINhfader";
constexpr const char* kVerticalFaderClassName = "HARVINvfader";
constexpr UINT TBM_GETRANGEMIN = WM_USER + 1;
constexpr UINT TBM_GETRANGEMAX = WM_USER + 2;
constexpr UINT TBM_SETRANGEMIN = WM_USER + 7;
constexpr UINT TBM_SETRANGEMAX = WM_USER + 8;
constexpr WPARAM kFaderNameText = 1;
constexpr WPARAM kFaderValueText = 2;
constexpr int kFaderKnobLength = 10;

extern const ControlClass kHorizontalFaderClass;
extern const ControlClass kVerticalFaderClass;

// Where the centre of the knob is for `position`, in the fader's client
// coordinates (along its travel), and the texts it shows.
POINT faderPointOfPosition(HWND fader, int position);
// Where a vertical fader writes its name (above the travel) or its value
// (below it), in client coordinates; empty for a horizontal fader, which
// writes both above its track.
RECT faderTextRect(HWND fader, WPARAM which);
const char* faderText(HWND fader, WPARAM which);

}  // namespace kobal_layer
