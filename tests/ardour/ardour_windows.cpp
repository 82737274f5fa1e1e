#include "tests/ardour/ardour_windows.h"

#include <X11/Xutil.h>

#include <algorithm>

namespace {

std::vector<Window> childrenOf(Display* display, Window window) {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    std::vector<Window> result;
    if (XQueryTree(display, window, &root, &parent, &children, &count) && children) {
        result.assign(children, children + count);
        XFree(children);
    }
    return result;
}

bool nameHasAll(Display* display, Window window, const std::vector<std::string>& parts) {
    char* name = nullptr;
    if (!XFetchName(display, window, &name) || !name) return false;
    std::string text(name);
    XFree(name);
    return std::all_of(parts.begin(), parts.end(), [&](const std::string& part) {
        return text.find(part) != std::string::npos;
    });
}

bool viewableAndAtLeast(Display* display, Window window, int minimum) {
    XWindowAttributes attributes{};
    return XGetWindowAttributes(display, window, &attributes) &&
           attributes.map_state == IsViewable && attributes.width >= minimum &&
           attributes.height >= minimum;
}

int ignoreError(Display*, XErrorEvent*) { return 0; }

}  // namespace

void ignoreXErrors() { XSetErrorHandler(ignoreError); }

Window findWindowNamed(Display* display, const std::vector<std::string>& parts) {
    std::vector<Window> pending = {DefaultRootWindow(display)};
    while (!pending.empty()) {
        Window window = pending.back();
        pending.pop_back();
        if (nameHasAll(display, window, parts)) return window;
        for (Window child : childrenOf(display, window)) pending.push_back(child);
    }
    return 0;
}

Window innermostViewable(Display* display, Window window, int minimum) {
    for (Window child : childrenOf(display, window))
        if (viewableAndAtLeast(display, child, minimum))
            return innermostViewable(display, child, minimum);
    return viewableAndAtLeast(display, window, minimum) ? window : 0;
}

ScreenArea screenArea(Display* display, Window window) {
    XWindowAttributes attributes{};
    XGetWindowAttributes(display, window, &attributes);
    ScreenArea area{0, 0, attributes.width, attributes.height};
    Window child = 0;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &area.x, &area.y,
                          &child);
    return area;
}

std::vector<uint32_t> screenPixels(Display* display, const ScreenArea& area) {
    std::vector<uint32_t> pixels;
    XImage* image = XGetImage(display, DefaultRootWindow(display), area.x, area.y,
                              static_cast<unsigned>(area.width),
                              static_cast<unsigned>(area.height), AllPlanes, ZPixmap);
    if (!image) return pixels;
    for (int y = 0; y < area.height; ++y)
        for (int x = 0; x < area.width; ++x)
            pixels.push_back(static_cast<uint32_t>(XGetPixel(image, x, y)) & 0xFFFFFFu);
    XDestroyImage(image);
    return pixels;
}

double colorShare(const std::vector<uint32_t>& pixels, uint32_t color) {
    if (pixels.empty()) return 0.0;
    return static_cast<double>(std::count(pixels.begin(), pixels.end(), color)) /
           static_cast<double>(pixels.size());
}
