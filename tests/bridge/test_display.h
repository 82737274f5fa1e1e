// An X server of the test's own: Xvfb started on a free display number for
// the life of the test process, DISPLAY pointing at it. Tests that need a
// display skip when Xvfb is not installed.
#pragma once

#include <X11/Xlib.h>

#include <string>
#include <vector>

// The display's name (":N"), or empty when no server could be started.
const std::string& testDisplayName();

// A connection of the test's own and a top-level window on it, standing for
// the host's editor frame.
class HostFrame {
public:
    HostFrame(int width, int height);  // maps the window and waits until it shows
    ~HostFrame();
    HostFrame(const HostFrame&) = delete;
    HostFrame& operator=(const HostFrame&) = delete;

    Display* display() const { return display_; }
    Window window() const { return window_; }
    // The one child window the plug-in put into the frame, or 0.
    Window pluginWindow() const;
    // The frame's pixels as 0xRRGGBB, row by row.
    std::vector<uint32_t> pixels(int& width, int& height) const;

    // Pointer actions through XTest, at points of the frame.
    void movePointer(int x, int y) const;
    void pressButton(int button, bool down) const;

private:
    Display* display_ = nullptr;
    Window window_ = 0;
};

// Writes 0xRRGGBB pixels as a PNG file (for looking at a failure).
void savePicture(const std::vector<uint32_t>& pixels, int width, int height,
                 const std::string& path);
