#include "tests/bridge/test_display.h"

#include "tests/x11/xvfb_server.h"

#include <cairo.h>

#include <filesystem>

const std::string& testDisplayName() {
    static XvfbServer server("2100x800x24");
    return server.display();
}

void savePicture(const std::vector<uint32_t>& pixels, int width, int height,
                 const std::string& name) {
    std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(const_cast<uint32_t*>(pixels.data())), CAIRO_FORMAT_RGB24, width,
        height, width * 4);
    cairo_surface_write_to_png(surface, (std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + name).c_str());
    cairo_surface_destroy(surface);
}

HostFrame::HostFrame(int width, int height, int left)
    : width(width), height(height), display(XOpenDisplay(testDisplayName().c_str())) {
    if (!display) return;
    window = XCreateSimpleWindow(display, DefaultRootWindow(display), left, 0,
                                 static_cast<unsigned>(width), static_cast<unsigned>(height), 0, 0,
                                 WhitePixel(display, DefaultScreen(display)));
    XSelectInput(display, window, StructureNotifyMask);
    XMapWindow(display, window);
    for (XEvent event; XNextEvent(display, &event), event.type != MapNotify;) {
    }
}

HostFrame::~HostFrame() {
    if (!display) return;
    XDestroyWindow(display, window);
    XCloseDisplay(display);
}
