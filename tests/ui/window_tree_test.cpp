// Windows: geometry, hit testing, destruction, focus and capture.
#include "host/ui/dialog_controls.h"
#include "host/ui/focus_and_capture.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

class WindowTree : public UiLayerTest {
protected:
    void SetUp() override {
        UiLayerTest::SetUp();
        host = hostWindow();
    }
    HWND child(HWND parent, RECT rect) { return createRecordingWindow(parent, rect); }
    static POINT onHost(int x, int y) { return POINT{kHostLeft + x, kHostTop + y}; }
    HWND host = nullptr;
};

TEST_F(WindowTree, PointsAndRectanglesConvertBetweenClientAndScreenAlongTheParents) {
    HWND outer = child(host, RECT{10, 20, 210, 120});
    HWND inner = child(outer, RECT{5, 6, 55, 36});
    POINT point{3, 4};
    ClientToScreen(inner, &point);
    EXPECT_EQ(point.x, kHostLeft + 18);
    ScreenToClient(outer, &point);
    EXPECT_EQ(point.y, 10);
    // 12 = SWP_NOZORDER | SWP_NOACTIVATE; 13 adds SWP_NOMOVE.
    SetWindowPos(inner, nullptr, 1, 2, 30, 40, 12);
    SetWindowPos(inner, nullptr, 7, 8, 999, 999, SWP_NOSIZE);
    SetWindowPos(inner, nullptr, 500, 500, 32, 24, 13);
    SetWindowPos(inner, nullptr, 500, 500, 32, 24, 13);  // the same size: no WM_SIZE
    RECT rect{};
    ASSERT_TRUE(GetClientRect(inner, &rect));
    EXPECT_EQ(rect, (RECT{0, 0, 32, 24}));
    GetWindowRect(inner, &rect);
    EXPECT_EQ(rect, (RECT{kHostLeft + 17, kHostTop + 28, kHostLeft + 49, kHostTop + 52}));
    ASSERT_EQ(recordedOf(WM_SIZE).size(), 2u);
    EXPECT_EQ(recordedOf(WM_SIZE)[1].lParam, (24 << 16) | 32);
}

TEST_F(WindowTree, WindowFromPointFindsTheDeepestShownEnabledWindowThroughGroupBoxes) {
    HWND panel = child(host, RECT{0, 0, 200, 200});
    HWND lower = child(panel, RECT{10, 10, 60, 60});
    HWND upper = child(panel, RECT{40, 40, 90, 90});  // created later: on top
    createDialogControl(panel,
                        ControlPlacement{kButtonClassName, "Group", 7, BS_GROUPBOX, 0, 0, 0, 0},
                        RECT{0, 0, 200, 200});
    EXPECT_EQ(WindowFromPoint(onHost(50, 50)), upper);
    EXPECT_EQ(WindowFromPoint(onHost(20, 20)), lower);
    EXPECT_EQ(WindowFromPoint(onHost(150, 150)), panel);
    EXPECT_EQ(WindowFromPoint(onHost(400, 0)), nullptr);
    EXPECT_EQ(ShowWindow(upper, SW_HIDE), 1);  // the previous visibility
    EXPECT_EQ(WindowFromPoint(onHost(50, 50)), lower);
    EnableWindow(lower, 0);
    EXPECT_EQ(WindowFromPoint(onHost(50, 50)), panel);
}

TEST_F(WindowTree, DestroyWindowSendsWmDestroyParentFirstAndEndsFocusAndCapture) {
    HWND parent = child(host, RECT{0, 0, 100, 100});
    HWND first = child(parent, RECT{0, 0, 10, 10});
    HWND grandchild = child(first, RECT{0, 0, 5, 5});
    HWND second = child(parent, RECT{20, 0, 30, 10});
    SetFocus(first);
    recordedMessages().clear();
    EXPECT_EQ(SetFocus(second), first);
    ASSERT_EQ(recordedMessages().size(), 2u);
    EXPECT_EQ(recordedMessages()[0].message, WM_KILLFOCUS);
    EXPECT_EQ(recordedMessages()[0].wParam, reinterpret_cast<WPARAM>(second));
    EXPECT_EQ(recordedMessages()[1].message, WM_SETFOCUS);
    EXPECT_EQ(SetCapture(grandchild), nullptr);
    recordedMessages().clear();
    EXPECT_TRUE(DestroyWindow(parent));
    std::vector<HWND> destroyed;
    for (const RecordedMessage& message : recordedOf(WM_DESTROY))
        destroyed.push_back(message.window);
    EXPECT_EQ(destroyed, (std::vector<HWND>{parent, first, grandchild, second}));
    for (HWND gone : {parent, first, grandchild, second}) EXPECT_FALSE(IsWindow(gone));
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(DestroyWindow(parent));  // a stale handle is refused
}

}  // namespace
