// Injected pointer and keyboard input, routed the Win32 way.
#include "host/ui/input_injection.h"

#include "host/ui/focus_and_capture.h"
#include "host/ui/pointer_and_keys.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

class InputInjection : public UiLayerTest {
protected:
    void SetUp() override {
        UiLayerTest::SetUp();
        HWND host = hostWindow();
        left = createRecordingWindow(host, RECT{10, 10, 110, 110});
        right = createRecordingWindow(host, RECT{200, 10, 300, 110});
    }
    static int xOf(LPARAM lParam) { return static_cast<int16_t>(lParam & 0xFFFF); }
    static int yOf(LPARAM lParam) { return static_cast<int16_t>((lParam >> 16) & 0xFFFF); }
    HWND left = nullptr;
    HWND right = nullptr;
};

TEST_F(InputInjection, MouseMessagesGoToTheWindowUnderThePointerInClientCoordinates) {
    POINT screen{kHostLeft + 15, kHostTop + 17};
    EXPECT_EQ(pressMouse(MouseButton::left, screen), left);
    auto downs = recordedOf(WM_LBUTTONDOWN);
    ASSERT_EQ(downs.size(), 1u);
    EXPECT_EQ(xOf(downs[0].lParam), 5);
    EXPECT_EQ(yOf(downs[0].lParam), 7);
    EXPECT_EQ(downs[0].wParam & MK_LBUTTON, MK_LBUTTON);
    POINT cursor{};
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.x, screen.x);
    EXPECT_NE(GetAsyncKeyState(VK_LBUTTON), 0);
    releaseMouse(MouseButton::left, screen);
    EXPECT_EQ(GetAsyncKeyState(VK_LBUTTON), 0);
    EXPECT_EQ(pressMouse(MouseButton::right, POINT{kHostLeft + 250, kHostTop + 60}), right);
    EXPECT_EQ(recordedOf(WM_RBUTTONDOWN)[0].wParam & MK_RBUTTON, MK_RBUTTON);
    releaseMouse(MouseButton::right, POINT{kHostLeft + 250, kHostTop + 60});
    EXPECT_EQ(recordedOf(WM_RBUTTONUP).size(), 1u);
    EXPECT_EQ(pressMouse(MouseButton::left, POINT{-500, -500}), nullptr);
}

TEST_F(InputInjection, TheCaptureHolderGetsMovesOutsideItWithNegativeCoordinates) {
    SetCapture(left);
    EXPECT_EQ(moveMouse(POINT{kHostLeft + 250, kHostTop + 5}), left);
    auto moves = recordedOf(WM_MOUSEMOVE);
    ASSERT_EQ(moves.size(), 1u);
    EXPECT_EQ(xOf(moves[0].lParam), 240);
    EXPECT_EQ(yOf(moves[0].lParam), -5);
    ReleaseCapture();
    EXPECT_EQ(moveMouse(POINT{kHostLeft + 250, kHostTop + 50}), right);
}

TEST_F(InputInjection, SetCursorPrecedesMouseMessagesWithoutCapture) {
    moveMouse(POINT{kHostLeft + 20, kHostTop + 20});
    ASSERT_EQ(recordedMessages().size(), 2u);
    EXPECT_EQ(recordedMessages()[0].message, WM_SETCURSOR);
    EXPECT_EQ(recordedMessages()[0].wParam, reinterpret_cast<WPARAM>(left));
    EXPECT_EQ(recordedMessages()[0].lParam >> 16, static_cast<LPARAM>(WM_MOUSEMOVE));
    EXPECT_EQ(recordedMessages()[1].message, WM_MOUSEMOVE);
    // Nobody chose a cursor: the default handling set the arrow.
    EXPECT_EQ(cursorIdOf(currentCursor()), IDC_ARROW);
    SetCapture(left);
    recordedMessages().clear();
    moveMouse(POINT{kHostLeft + 21, kHostTop + 20});
    EXPECT_TRUE(recordedOf(WM_SETCURSOR).empty());
}

TEST_F(InputInjection, ModifierKeysShowInGetAsyncKeyStateAndMkFlags) {
    holdKey(VK_SHIFT, true);
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT) & 0x8000, 0x8000);
    EXPECT_EQ(GetAsyncKeyState(VK_CONTROL), 0);
    moveMouse(POINT{kHostLeft + 20, kHostTop + 20});
    EXPECT_EQ(recordedOf(WM_MOUSEMOVE)[0].wParam, MK_SHIFT);
    holdKey(VK_SHIFT, false);
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT), 0);
}

TEST_F(InputInjection, DoubleClickIsDownUpDoubleClickUp) {
    doubleClickMouse(POINT{kHostLeft + 20, kHostTop + 20});
    std::vector<UINT> buttons;
    for (const RecordedMessage& message : recordedMessages())
        if (message.message != WM_SETCURSOR) buttons.push_back(message.message);
    EXPECT_EQ(buttons,
              (std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}));
}

TEST_F(InputInjection, WheelCarriesTheDeltaAndTheScreenPoint) {
    POINT screen{kHostLeft + 250, kHostTop + 60};
    EXPECT_EQ(turnWheel(screen, -kWheelNotch), right);
    auto wheels = recordedOf(WM_MOUSEWHEEL);
    ASSERT_GE(wheels.size(), 1u);
    EXPECT_EQ(static_cast<int16_t>(wheels[0].wParam >> 16), -120);
    EXPECT_EQ(xOf(wheels[0].lParam), screen.x);
    POINT cursor{};
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.y, screen.y);
}

TEST_F(InputInjection, CursorHandlesAreSharedPerShape) {
    HCURSOR hand = KOBAL_LoadCursor(IDC_HAND);
    EXPECT_EQ(KOBAL_LoadCursor(IDC_HAND), hand);
    EXPECT_NE(KOBAL_LoadCursor(IDC_ARROW), hand);
    KOBAL_SetCursor(hand);
    EXPECT_EQ(KOBAL_SetCursor(nullptr), hand);
    EXPECT_EQ(cursorIdOf(hand), IDC_HAND);
}

}  // namespace
