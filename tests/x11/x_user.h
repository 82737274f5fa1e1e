// The user at the X server, as a test plays one: a connection of the test's
// own that moves the pointer, presses buttons and keys through XTest, and
// reads back what windows show.
#pragma once

#include <X11/Xlib.h>

#include <cstdint>
#include <string>
#include <vector>

struct XPoint2 {
    int x, y;
};

// A window's pixels as 0xRRGGBB, row by row.
struct XPicture {
    int width = 0, height = 0;
    std::vector<uint32_t> pixels;
    uint32_t at(int x, int y) const { return pixels[static_cast<size_t>(y) * width + x]; }
    bool operator==(const XPicture&) const = default;
};

class XUser {
public:
    XUser();  // connects to DISPLAY; check connected()
    ~XUser();
    XUser(const XUser&) = delete;
    XUser& operator=(const XUser&) = delete;

    bool connected() const { return display_ != nullptr; }
    Display* display() const { return display_; }

    // A point of `window` on the screen (root coordinates).
    XPoint2 onScreen(Window window, XPoint2 point) const;
    void click(unsigned int button, XPoint2 screenPoint);
    // Presses at `from`, moves there in steps, releases at `to`.
    void drag(XPoint2 from, XPoint2 to);
    void pressKey(KeySym key, bool down);
    void tapKey(KeySym key);

    XPicture picture(Window window) const;
    // The first shown top-level window whose name starts with `prefix`, or 0.
    Window findTopLevel(const std::string& prefix) const;
    // Asks a top-level window to close, as a window manager does.
    void closeWindow(Window window);

private:
    void moveTo(XPoint2 screenPoint);
    void button(unsigned int button, bool down);
    Display* display_;
};
