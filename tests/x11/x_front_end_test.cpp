// What the X front end makes of X keys, and the colours it puts into a
// window whose visual orders the channels otherwise than the canvas.
#include <gtest/gtest.h>
// after the test framework, whose names the X headers would shadow
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <utility>

#include "host/raster/canvas.h"
#include "host/x11/key_mapping.h"
#include "host/x11/window_picture.h"
#include "tests/x11/xvfb_server.h"

namespace {

TEST(KeyMapping, ReturnConfirmsAndAltIsTheMenuKeyAsOnWin32) {
    EXPECT_EQ(x11_front::modifierKeyOf(XK_Shift_L), 0x10);
    EXPECT_EQ(x11_front::modifierKeyOf(XK_Control_R), 0x11);
    EXPECT_EQ(x11_front::modifierKeyOf(XK_Alt_L), 0x12);
    x11_front::LayerKey key = x11_front::layerKeyOf(XK_Return, "\r", 1);
    EXPECT_EQ(key.virtualKey, 0x0D);
    EXPECT_EQ(key.typed, '\r');
    key = x11_front::layerKeyOf(XK_a, "a", 1);
    EXPECT_EQ(key.virtualKey, 'A');
    EXPECT_EQ(key.typed, 'a');
}

TEST(WindowPicture, ColoursReachAVisualWithRedAndBlueSwapped) {
    SKIP_WITHOUT_XVFB();
    Display* display = XOpenDisplay(nullptr);
    ASSERT_NE(display, nullptr);
    Visual swapped = *DefaultVisual(display, DefaultScreen(display));
    std::swap(swapped.red_mask, swapped.blue_mask);
    auto picture = x11_front::WindowPicture::create(display, &swapped, 24);
    ASSERT_TRUE(picture);
    Pixmap target = XCreatePixmap(display, DefaultRootWindow(display), 4, 2, 24);
    Canvas canvas(4, 2);
    canvas.fillRect(0, 0, 4, 2, 0xFF123456);
    EXPECT_TRUE(picture->show(canvas, target));
    XImage* image = XGetImage(display, target, 0, 0, 4, 2, AllPlanes, ZPixmap);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(XGetPixel(image, 3, 1) & 0xFFFFFF, 0x563412u);
    XDestroyImage(image);
    picture.reset();
    XFreePixmap(display, target);
    XCloseDisplay(display);
}

}  // namespace
