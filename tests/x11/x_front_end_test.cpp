// What the X front end makes of X keys, and the colours it puts into a
// window whose visual orders the channels otherwise than the canvas.
#include <gtest/gtest.h>
// after the test framework, whose names the X headers would shadow
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include <cstring>
#include <utility>

#include "host/raster/canvas.h"
#include "host/x11/key_mapping.h"
#include "host/x11/window_picture.h"
#include "tests/x11/x_user.h"
#include "tests/x11/xvfb_server.h"

namespace {

TEST(KeyMapping, KeysMeanTheVirtualKeysAndCharactersWin32Gives) {
    const std::pair<KeySym, int> modifiers[] = {
        {XK_Shift_L, 0x10}, {XK_Control_R, 0x11}, {XK_Alt_L, 0x12}, {XK_Alt_R, 0x12}, {XK_a, 0}};
    for (auto [key, virtualKey] : modifiers) EXPECT_EQ(x11_front::modifierKeyOf(key), virtualKey);
    struct Case {
        KeySym key;
        const char* text;  // as XLookupString gives it
        int virtualKey;
        char typed;
    };
    const Case cases[] = {{XK_Return, "\r", 0x0D, '\r'}, {XK_KP_Enter, "\r", 0x0D, '\r'},
                          {XK_BackSpace, "\b", 0x08, '\b'}, {XK_Delete, "", 0x2E, 0},
                          {XK_a, "a", 'A', 'a'}, {XK_7, "7", '7', '7'}, {XK_minus, "-", 0, '-'}};
    for (const Case& test : cases) {
        x11_front::LayerKey key =
            x11_front::layerKeyOf(test.key, test.text, static_cast<int>(std::strlen(test.text)));
        EXPECT_EQ(key.virtualKey, test.virtualKey) << test.key;
        EXPECT_EQ(key.typed, test.typed) << test.key;
    }
}

TEST(WindowPicture, ColoursReachAVisualWithRedAndBlueSwapped) {
    SKIP_WITHOUT_XVFB();
    XUser user;
    Display* display = user.display();
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
}

}  // namespace
