// An Xvfb server of the test process's own, a window on it standing for a
// host's editor frame, and the pixels and pointer actions tests use.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/x11/x_actions.h"

// The display's name, or empty when no server could be started.
const std::string& testDisplayName();

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
