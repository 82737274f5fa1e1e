#include "tests/x11/x_user.h"

#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <cstring>

XUser::XUser() : display_(XOpenDisplay(nullptr)) {}

XUser::~XUser() {
    if (display_) XCloseDisplay(display_);
}

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
    XSync(display_, False);
}

void XUser::button(unsigned int button, bool down) {
    XTestFakeButtonEvent(display_, button, down, CurrentTime);
    XSync(display_, False);
}

void XUser::click(unsigned int which, XPoint2 screenPoint) {
    moveTo(screenPoint);
    button(which, true);
    button(which, false);
}

void XUser::drag(XPoint2 from, XPoint2 to) {
    constexpr int kSteps = 8;
    moveTo(from);
    button(Button1, true);
    for (int step = 1; step <= kSteps; ++step)
        moveTo({from.x + (to.x - from.x) * step / kSteps, from.y + (to.y - from.y) * step / kSteps});
    button(Button1, false);
}

void XUser::pressKey(KeySym key, bool down) {
    XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, key), down, CurrentTime);
    XSync(display_, False);
}

void XUser::tapKey(KeySym key) {
    pressKey(key, true);
    pressKey(key, false);
}

XPicture XUser::picture(Window window) const {
    XWindowAttributes attributes{};
    XPicture result;
    if (!XGetWindowAttributes(display_, window, &attributes)) return result;
    XImage* image = XGetImage(display_, window, 0, 0, static_cast<unsigned>(attributes.width),
                              static_cast<unsigned>(attributes.height), AllPlanes, ZPixmap);
    if (!image) return result;
    result.width = attributes.width;
    result.height = attributes.height;
    for (int y = 0; y < result.height; ++y)
        for (int x = 0; x < result.width; ++x)
            result.pixels.push_back(static_cast<uint32_t>(XGetPixel(image, x, y)) & 0xFFFFFF);
    XDestroyImage(image);
    return result;
}

Window XUser::findTopLevel(const std::string& prefix) const {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned int count = 0;
    if (!XQueryTree(display_, DefaultRootWindow(display_), &root, &parent, &children, &count))
        return 0;
    Window found = 0;
    for (unsigned int i = 0; i < count && !found; ++i) {
        char* name = nullptr;
        XWindowAttributes attributes{};
        if (XFetchName(display_, children[i], &name) && name) {
            if (std::strncmp(name, prefix.c_str(), prefix.size()) == 0 &&
                XGetWindowAttributes(display_, children[i], &attributes) &&
                attributes.map_state == IsViewable)
                found = children[i];
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
    XSync(display_, False);
}
