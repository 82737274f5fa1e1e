#include "tests/bridge/test_display.h"

#include "tests/x11/xvfb_server.h"

#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <cairo.h>
#include <unistd.h>

#include <filesystem>

const std::string& testDisplayName() {
    static XvfbServer server("1280x800x24");
    return server.display();
}

HostFrame::HostFrame(int width, int height) {
    display_ = XOpenDisplay(testDisplayName().c_str());
    if (!display_) return;
    int screen = DefaultScreen(display_);
    window_ = XCreateSimpleWindow(display_, RootWindow(display_, screen), 0, 0,
                                  static_cast<unsigned>(width), static_cast<unsigned>(height), 0,
                                  BlackPixel(display_, screen), WhitePixel(display_, screen));
    XSelectInput(display_, window_, StructureNotifyMask);
    XMapWindow(display_, window_);
    for (XEvent event; XNextEvent(display_, &event), event.type != MapNotify;) {
    }
}

HostFrame::~HostFrame() {
    if (!display_) return;
    XDestroyWindow(display_, window_);
    XCloseDisplay(display_);
}

Window HostFrame::pluginWindow() const {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display_, window_, &root, &parent, &children, &count)) return 0;
    Window child = count == 1 ? children[0] : 0;
    if (children) XFree(children);
    return child;
}

std::vector<uint32_t> HostFrame::pixels(int& width, int& height) const {
    XWindowAttributes attributes{};
    XGetWindowAttributes(display_, window_, &attributes);
    width = attributes.width;
    height = attributes.height;
    XImage* image = XGetImage(display_, window_, 0, 0, static_cast<unsigned>(width),
                              static_cast<unsigned>(height), AllPlanes, ZPixmap);
    std::vector<uint32_t> result(static_cast<size_t>(width) * static_cast<size_t>(height));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            result[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)] =
                static_cast<uint32_t>(XGetPixel(image, x, y)) & 0xFFFFFFu;
    XDestroyImage(image);
    return result;
}

void HostFrame::movePointer(int x, int y) const {
    int rootX = 0, rootY = 0;
    Window child = 0;
    XTranslateCoordinates(display_, window_, DefaultRootWindow(display_), x, y, &rootX, &rootY,
                          &child);
    XTestFakeMotionEvent(display_, DefaultScreen(display_), rootX, rootY, CurrentTime);
    XSync(display_, False);
}

void HostFrame::pressButton(int button, bool down) const {
    XTestFakeButtonEvent(display_, static_cast<unsigned>(button), down ? True : False, CurrentTime);
    XSync(display_, False);
}

void savePicture(const std::vector<uint32_t>& pixels, int width, int height,
                 const std::string& path) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::vector<uint32_t> opaque(pixels);
    for (uint32_t& pixel : opaque) pixel |= 0xFF000000u;
    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(opaque.data()), CAIRO_FORMAT_ARGB32, width, height,
        width * 4);
    cairo_surface_write_to_png(surface, path.c_str());
    cairo_surface_destroy(surface);
}
