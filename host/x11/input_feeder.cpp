#include "host/x11/input_feeder.h"

#include <X11/Xutil.h>

#include "host/ui/input_injection.h"
#include "host/ui/pointer_and_keys.h"
#include "host/ui/window_tree.h"
#include "host/x11/key_mapping.h"

namespace x11_front {
namespace {

constexpr unsigned int kLeftButton = Button1;
constexpr unsigned int kRightButton = Button3;
constexpr unsigned int kWheelUp = Button4;
constexpr unsigned int kWheelDown = Button5;

}  // namespace

void followModifierState(unsigned int state) {
    kobal_layer::holdKey(VK_SHIFT, state & ShiftMask);
    kobal_layer::holdKey(VK_CONTROL, state & ControlMask);
    kobal_layer::holdKey(VK_MENU, state & Mod1Mask);
}

void releaseModifiers() { followModifierState(0); }

POINT InputFeeder::screenPointOf(int x, int y) const {
    POINT origin = kobal_layer::screenOrigin(layerWindow_);
    return POINT{origin.x + x, origin.y + y};
}

void InputFeeder::feedPress(const XButtonEvent& press) {
    POINT point = screenPointOf(press.x, press.y);
    switch (press.button) {
        case kLeftButton:
            if (doubleClicks_.isDoubleClick(static_cast<uint32_t>(press.time), point))
                kobal_layer::pressLeftAgain(point);
            else
                kobal_layer::pressMouse(kobal_layer::MouseButton::left, point);
            break;
        case kRightButton:
            doubleClicks_.forget();
            kobal_layer::pressMouse(kobal_layer::MouseButton::right, point);
            break;
        case kWheelUp: kobal_layer::turnWheel(point, kobal_layer::kWheelNotch); break;
        case kWheelDown: kobal_layer::turnWheel(point, -kobal_layer::kWheelNotch); break;
        default: break;
    }
}

void InputFeeder::feedRelease(const XButtonEvent& release) {
    POINT point = screenPointOf(release.x, release.y);
    if (release.button == kLeftButton)
        kobal_layer::releaseMouse(kobal_layer::MouseButton::left, point);
    else if (release.button == kRightButton)
        kobal_layer::releaseMouse(kobal_layer::MouseButton::right, point);
}

void InputFeeder::feedKey(XKeyEvent& key, bool pressed) {
    char text[8] = {};
    KeySym keySym = NoSymbol;
    int length = XLookupString(&key, text, sizeof text, &keySym, nullptr);
    if (int modifier = modifierKeyOf(keySym)) {
        kobal_layer::holdKey(modifier, pressed);
        return;
    }
    followModifierState(key.state);
    LayerKey layerKey = layerKeyOf(keySym, text, length);
    if (pressed)
        kobal_layer::pressKey(layerKey.virtualKey, layerKey.typed);
    else
        kobal_layer::releaseKey(layerKey.virtualKey);
}

// The pointer is no longer over the layer window: the layer's cursor moves
// just outside it, so that hover feedback ends.
void InputFeeder::pointerLeft() { kobal_layer::setCursorPosition(screenPointOf(-1, -1)); }

bool InputFeeder::feed(XEvent& event) {
    if (!kobal_layer::liveWindow(layerWindow_)) return false;
    switch (event.type) {
        case MotionNotify:
            followModifierState(event.xmotion.state);
            kobal_layer::moveMouse(screenPointOf(event.xmotion.x, event.xmotion.y));
            return true;
        case ButtonPress:
            followModifierState(event.xbutton.state);
            feedPress(event.xbutton);
            return true;
        case ButtonRelease:
            followModifierState(event.xbutton.state);
            feedRelease(event.xbutton);
            return true;
        case KeyPress: feedKey(event.xkey, true); return true;
        case KeyRelease: feedKey(event.xkey, false); return true;
        case LeaveNotify:
            if (event.xcrossing.mode == NotifyNormal &&
                !(event.xcrossing.state & (Button1Mask | Button3Mask)))
                pointerLeft();
            return true;
        case FocusOut: releaseModifiers(); return true;
        default: return false;
    }
}

}  // namespace x11_front
