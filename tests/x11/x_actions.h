// What a user does at an X server, through XTest, and what it shows: shared by
// the tests that drive an editor in a real X window.
#pragma once

#include <X11/Xlib.h>

#include <cstdint>
#include <vector>

std::vector<Window> childWindows(Display* display, Window window);
// The pixels of an area of the window as 0xRRGGBB, row by row.
std::vector<uint32_t> windowPixels(Display* display, Window window, int x, int y, int width,
                                   int height);
// The pointer moved to a point of the window; a button pressed or released there.
void movePointer(Display* display, Window window, int x, int y);
void pressButton(Display* display, unsigned button, bool down);
