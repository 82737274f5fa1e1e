// Ardour's windows on the test's X server, seen from a connection of the
// test's own: the plug-in window found by its title, the editor inside it,
// and pictures of the screen.
#pragma once

#include <X11/Xlib.h>

#include <cstdint>
#include <string>
#include <vector>

struct ScreenArea {
    int x = 0, y = 0, width = 0, height = 0;
};

// Ardour creates and destroys windows while the test walks the window tree:
// a window gone between two requests is no failure of the test, so X errors
// are ignored (Xlib's default handler would end the process).
void ignoreXErrors();
// The first window in the tree under the root whose name contains every one
// of `parts`, or 0.
Window findWindowNamed(Display* display, const std::vector<std::string>& parts);
// The innermost mapped window below `window` that is at least `minimum`
// pixels wide and high (a plug-in's editor sits in a host's frames), or 0.
Window innermostViewable(Display* display, Window window, int minimum);
// The window's place on the screen.
ScreenArea screenArea(Display* display, Window window);
// The screen's pixels in `area` as 0xRRGGBB, row by row.
std::vector<uint32_t> screenPixels(Display* display, const ScreenArea& area);
// The share of pixels exactly of `color` (0xRRGGBB).
double colorShare(const std::vector<uint32_t>& pixels, uint32_t color);
