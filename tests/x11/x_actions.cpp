#include "tests/x11/x_actions.h"

#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

std::vector<Window> childWindows(Display* display, Window window) {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    std::vector<Window> result;
    if (XQueryTree(display, window, &root, &parent, &children, &count) && children) {
        result.assign(children, children + count);
        XFree(children);
    }
    return result;
}

std::vector<uint32_t> windowPixels(Display* display, Window window, int x, int y, int width,
                                   int height) {
    std::vector<uint32_t> pixels;
    XImage* image = XGetImage(display, window, x, y, static_cast<unsigned>(width),
                              static_cast<unsigned>(height), AllPlanes, ZPixmap);
    if (!image) return pixels;
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column)
            pixels.push_back(static_cast<uint32_t>(XGetPixel(image, column, row)) & 0xFFFFFFu);
    XDestroyImage(image);
    return pixels;
}

void movePointer(Display* display, Window window, int x, int y) {
    Window child = 0;
    XTranslateCoordinates(display, window, DefaultRootWindow(display), x, y, &x, &y, &child);
    XTestFakeMotionEvent(display, DefaultScreen(display), x, y, CurrentTime);
    XSync(display, False);
}

void pressButton(Display* display, unsigned button, bool down) {
    XTestFakeButtonEvent(display, button, down ? True : False, CurrentTime);
    XSync(display, False);
}
