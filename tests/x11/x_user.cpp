#include "tests/x11/x_user.h"

#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <cstring>

namespace {

constexpr int kDragSteps = 8;

}  // namespace

XUser::XUser() : display_(XOpenDisplay(nullptr)) {}

XUser::~XUser() {
    if (display_) XCloseDisplay(display_);
}

void XUser::sync() const { XSync(display_, False); }

XPoint2 XUser::onScreen(Window window, XPoint2 point) const {
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(display_, window, DefaultRootWindow(display_), point.x, point.y, &x, &y,
                          &child);
    return {x, y};
}

void XUser::moveTo(XPoint2 screenPoint) {
    XTestFakeMotionEvent(display_, DefaultScreen(display_), screenPoint.x, screenPoint.y,
                         CurrentTime);
    sync();
}

void XUser::press(unsigned int button) {
    XTestFakeButtonEvent(display_, button, True, CurrentTime);
    sync();
}

void XUser::release(unsigned int button) {
    XTestFakeButtonEvent(display_, button, False, CurrentTime);
    sync();
}

void XUser::click(unsigned int button, XPoint2 screenPoint) {
    moveTo(screenPoint);
    press(button);
    release(button);
}

void XUser::drag(XPoint2 from, XPoint2 to) {
    moveTo(from);
    press(Button1);
    for (int step = 1; step <= kDragSteps; ++step)
        moveTo({from.x + (to.x - from.x) * step / kDragSteps,
                from.y + (to.y - from.y) * step / kDragSteps});
    release(Button1);
}

void XUser::pressKey(KeySym key) {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, key), True, CurrentTime);
    sync();
}

void XUser::releaseKey(KeySym key) {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, key), False, CurrentTime);
    sync();
}

void XUser::tapKey(KeySym key) {
    pressKey(key);
    releaseKey(key);
}

void XUser::typeText(const std::string& text) {
    for (char c : text) {
        char name[2] = {c, 0};
        KeySym key = c == '.' ? XK_period : c == '-' ? XK_minus : XStringToKeysym(name);
        tapKey(key);
    }
}

XPicture XUser::picture(Window window) const {
    XPoint2 extent = size(window);
    XPicture result;
    XImage* image = XGetImage(display_, window, 0, 0, static_cast<unsigned>(extent.x),
                              static_cast<unsigned>(extent.y), AllPlanes, ZPixmap);
    if (!image) return result;
    result.width = extent.x;
    result.height = extent.y;
    result.pixels.resize(static_cast<size_t>(extent.x) * extent.y);
    for (int y = 0; y < extent.y; ++y)
        for (int x = 0; x < extent.x; ++x)
            result.pixels[static_cast<size_t>(y) * extent.x + x] =
                static_cast<uint32_t>(XGetPixel(image, x, y)) & 0xFFFFFF;
    XDestroyImage(image);
    return result;
}

bool XUser::isShown(Window window) const {
    XWindowAttributes attributes{};
    return XGetWindowAttributes(display_, window, &attributes) &&
           attributes.map_state == IsViewable;
}

XPoint2 XUser::size(Window window) const {
    XWindowAttributes attributes{};
    XGetWindowAttributes(display_, window, &attributes);
    return {attributes.width, attributes.height};
}

Window XUser::findTopLevel(const std::string& prefix) const {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned int count = 0;
    if (!XQueryTree(display_, DefaultRootWindow(display_), &root, &parent, &children, &count))
        return 0;
    Window found = 0;
    for (unsigned int i = 0; i < count && !found; ++i) {
        char* name = nullptr;
        if (XFetchName(display_, children[i], &name) && name) {
            if (std::strncmp(name, prefix.c_str(), prefix.size()) == 0) found = children[i];
            XFree(name);
        }
    }
    if (children) XFree(children);
    return found;
}

void XUser::closeWindow(Window window) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display_, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display_, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display_, window, False, NoEventMask, &event);
    sync();
}

void XUser::resize(Window window, int width, int height) {
    XResizeWindow(display_, window, static_cast<unsigned>(width), static_cast<unsigned>(height));
    sync();
}

Window XUser::createFrame(int width, int height) {
    Window frame = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 50, 40,
                                       static_cast<unsigned>(width), static_cast<unsigned>(height),
                                       0, 0, 0x202020);
    XStoreName(display_, frame, "test frame");
    XMapWindow(display_, frame);
    sync();
    return frame;
}
