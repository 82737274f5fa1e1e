// Injected pointer and keyboard input, routed the Win32 way.
#include "host/ui/input_injection.h"

#include "host/ui/focus_and_capture.h"
#include "host/ui/pointer_and_keys.h"
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
    static POINT onHost(int x, int y) { return POINT{kHostLeft + x, kHostTop + y}; }
    static POINT pointOf(LPARAM lParam) {
        return POINT{static_cast<int16_t>(lParam & 0xFFFF), static_cast<int16_t>(lParam >> 16)};
    }
    static std::vector<UINT> numbersOf(const std::vector<RecordedMessage>& messages) {
        std::vector<UINT> numbers;
        for (const RecordedMessage& message : messages) numbers.push_back(message.message);
        return numbers;
    }
    HWND left = nullptr;
    HWND right = nullptr;
};

TEST_F(InputInjection, ButtonsGoToTheWindowUnderThePointerInClientCoordinatesAfterWmSetCursor) {
    EXPECT_EQ(pressMouse(MouseButton::left, onHost(15, 17)), left);
    EXPECT_NE(GetAsyncKeyState(VK_LBUTTON), 0);
    releaseMouse(MouseButton::left, onHost(15, 17));
    EXPECT_EQ(GetAsyncKeyState(VK_LBUTTON), 0);
    auto messages = recordedMessages();
    EXPECT_EQ(numbersOf(messages),
              (std::vector<UINT>{WM_SETCURSOR, WM_LBUTTONDOWN, WM_SETCURSOR, WM_LBUTTONUP}));
    ASSERT_EQ(messages.size(), 4u);
    EXPECT_EQ(messages[0].wParam, reinterpret_cast<WPARAM>(left));
    EXPECT_EQ(messages[0].lParam >> 16, static_cast<LPARAM>(WM_LBUTTONDOWN));
    EXPECT_EQ(pointOf(messages[1].lParam).x, 5);
    EXPECT_EQ(pointOf(messages[1].lParam).y, 7);
    EXPECT_EQ(messages[1].wParam & MK_LBUTTON, MK_LBUTTON);
    EXPECT_EQ(cursorIdOf(currentCursor()), IDC_ARROW);  // the default handling's choice
    POINT cursor{};
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.x, kHostLeft + 15);
    EXPECT_EQ(pressMouse(MouseButton::right, onHost(250, 60)), right);
    EXPECT_EQ(recordedOf(WM_RBUTTONDOWN)[0].wParam & MK_RBUTTON, MK_RBUTTON);
    EXPECT_EQ(pressMouse(MouseButton::left, POINT{-500, -500}), nullptr);
    recordedMessages().clear();
    doubleClickMouse(onHost(20, 20));
    std::vector<UINT> buttons;
    for (UINT number : numbersOf(recordedMessages()))
        if (number != WM_SETCURSOR) buttons.push_back(number);
    EXPECT_EQ(buttons,
              (std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}));
}

TEST_F(InputInjection, TheCaptureHolderGetsMovesOutsideItWithNegativeCoordinatesAndNoSetCursor) {
    SetCapture(left);
    EXPECT_EQ(moveMouse(onHost(250, 5)), left);
    EXPECT_EQ(numbersOf(recordedMessages()), (std::vector<UINT>{WM_MOUSEMOVE}));
    EXPECT_EQ(pointOf(recordedMessages()[0].lParam).x, 240);
    EXPECT_EQ(pointOf(recordedMessages()[0].lParam).y, -5);
    ReleaseCapture();
    EXPECT_EQ(moveMouse(onHost(250, 50)), right);
}

TEST_F(InputInjection, ModifierKeysShowInGetAsyncKeyStateAndMkFlags) {
    holdKey(VK_SHIFT, true);
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT) & 0x8000, 0x8000);
    EXPECT_EQ(GetAsyncKeyState(VK_CONTROL), 0);
    moveMouse(onHost(20, 20));
    EXPECT_EQ(recordedOf(WM_MOUSEMOVE)[0].wParam, MK_SHIFT);
    holdKey(VK_SHIFT, false);
    EXPECT_EQ(GetAsyncKeyState(VK_SHIFT), 0);
}

TEST_F(InputInjection, WheelCarriesTheDeltaAndTheScreenPoint) {
    EXPECT_EQ(turnWheel(onHost(250, 60), -kWheelNotch), right);
    auto wheels = recordedOf(WM_MOUSEWHEEL);
    ASSERT_EQ(wheels.size(), 1u);
    EXPECT_EQ(static_cast<int16_t>(wheels[0].wParam >> 16), -120);
    EXPECT_EQ(pointOf(wheels[0].lParam).x, kHostLeft + 250);
    EXPECT_EQ(pointOf(wheels[0].lParam).y, kHostTop + 60);
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
