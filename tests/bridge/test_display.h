// An Xvfb server of the test process's own, a window on it standing for a
// host's editor frame, and the pixels and pointer actions tests use.
#pragma once

#include <X11/Xlib.h>

#include <cstdint>
#include <string>
#include <vector>

// The display's name, or empty when no server could be started.
const std::string& testDisplayName();

std::vector<Window> childWindows(Display* display, Window window);
// The pixels of an area of the window as 0xRRGGBB, row by row.
std::vector<uint32_t> windowPixels(Display* display, Window window, int x, int y, int width,
                                   int height);
// XTest's pointer moved to a point of the window, button 1 pressed or released.
void movePointer(Display* display, Window window, int x, int y);
void pressButton(Display* display, bool down);
void savePicture(const std::vector<uint32_t>& pixels, int width, int height,
                 const std::string& name);

// A connection of its own and a mapped top-level window `left` pixels from the screen's left edge.
struct HostFrame {
    HostFrame(int width, int height, int left = 0);
    ~HostFrame();
    std::vector<uint32_t> pixels() const { return windowPixels(display, window, 0, 0, width, height); }

    const int width, height;
    Display* display = nullptr;
    Window window = 0;
};
