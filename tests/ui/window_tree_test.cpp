// Windows: geometry, hit testing, window words, destruction, focus and capture.
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
    HWND child(HWND parent, RECT rect, bool visible = true) {
        return createRecordingWindow(parent, rect, visible);
    }
    static RECT screenRect(HWND window) {
        RECT rect{};
        GetWindowRect(window, &rect);
        return rect;
    }
    static RECT onHost(RECT rect) {
        return RECT{kHostLeft + rect.left, kHostTop + rect.top, kHostLeft + rect.right,
                    kHostTop + rect.bottom};
    }
    HWND host = nullptr;
};

TEST_F(WindowTree, RectanglesAndPointsConvertBetweenClientAndScreenAlongTheParents) {
    HWND outer = child(host, RECT{10, 20, 210, 120});
    HWND inner = child(outer, RECT{5, 6, 55, 36});
    EXPECT_EQ(screenRect(inner), onHost(RECT{15, 26, 65, 56}));
    RECT rect{};
    ASSERT_TRUE(GetClientRect(inner, &rect));
    EXPECT_EQ(rect, (RECT{0, 0, 50, 30}));
    POINT point{3, 4};
    ClientToScreen(inner, &point);
    EXPECT_EQ(point.x, kHostLeft + 18);
    EXPECT_EQ(point.y, kHostTop + 30);
    ScreenToClient(outer, &point);
    EXPECT_EQ(point.x, 8);
    EXPECT_EQ(point.y, 10);
    EXPECT_FALSE(GetWindowRect(nullptr, &rect));
    EXPECT_EQ(GetParent(inner), outer);
    EXPECT_TRUE(IsChild(host, inner));
    EXPECT_FALSE(IsChild(inner, host));
}

TEST_F(WindowTree, WindowFromPointFindsTheDeepestShownEnabledWindowThroughGroupBoxes) {
    HWND panel = child(host, RECT{0, 0, 200, 200});
    HWND lower = child(panel, RECT{10, 10, 60, 60});
    HWND upper = child(panel, RECT{40, 40, 90, 90});  // created later: on top
    createDialogControl(panel,
                        ControlPlacement{kButtonClassName, "Group", 7, BS_GROUPBOX, 0, 0, 0, 0},
                        RECT{0, 0, 200, 200});
    const POINT overlap{kHostLeft + 50, kHostTop + 50};
    EXPECT_EQ(WindowFromPoint(overlap), upper);
    EXPECT_EQ(WindowFromPoint(POINT{kHostLeft + 20, kHostTop + 20}), lower);
    EXPECT_EQ(WindowFromPoint(POINT{kHostLeft + 150, kHostTop + 150}), panel);
    EXPECT_EQ(WindowFromPoint(POINT{kHostLeft + 399, kHostTop + 299}), host);
    EXPECT_EQ(WindowFromPoint(POINT{kHostLeft + 400, kHostTop}), nullptr);
    ShowWindow(upper, SW_HIDE);
    EXPECT_EQ(WindowFromPoint(overlap), lower);
    EnableWindow(lower, 0);
    EXPECT_EQ(WindowFromPoint(overlap), panel);
}

TEST_F(WindowTree, WindowWordsKeepIdUserDataAndExtraWordsAndAnswerThePreviousValue) {
    HWND window = child(host, RECT{0, 0, 10, 10});
    EXPECT_EQ(SetWindowLong(window, GWL_ID, 1023), 0);
    EXPECT_EQ(GetWindowLong(window, GWL_ID), 1023);
    SetWindowLong(window, GWL_USERDATA, 77);
    EXPECT_EQ(GetWindowLong(window, GWL_USERDATA), 77);
    EXPECT_EQ(SetWindowLong(window, 0, 3), 0);
    EXPECT_EQ(SetWindowLong(window, 0, 4), 3);
    EXPECT_EQ(GetWindowLong(window, 0), 4);
    EXPECT_EQ(GetWindowLong(window, 8), 0);
    EXPECT_EQ(GetWindowLong(nullptr, GWL_ID), 0);
}

TEST_F(WindowTree, SetWindowPosMovesAndSizesByItsFlagsAndSizeChangesSendWmSize) {
    HWND window = child(host, RECT{10, 10, 110, 60});
    struct Case {
        int x, y, width, height;
        UINT flags;  // 12 = SWP_NOZORDER | SWP_NOACTIVATE, 13 adds SWP_NOMOVE
        RECT expected;
    };
    for (const Case& c : {Case{500, 500, 300, 200, 13, RECT{10, 10, 310, 210}},
                          Case{1, 2, 30, 40, 12, RECT{1, 2, 31, 42}},
                          Case{7, 8, 999, 999, SWP_NOSIZE, RECT{7, 8, 37, 48}}}) {
        SetWindowPos(window, nullptr, c.x, c.y, c.width, c.height, c.flags);
        EXPECT_EQ(screenRect(window), onHost(c.expected)) << c.flags;
    }
    recordedMessages().clear();
    SetWindowPos(window, nullptr, 0, 0, 320, 240, SWP_NOMOVE);
    SetWindowPos(window, nullptr, 0, 0, 320, 240, SWP_NOMOVE);  // same size: no message
    auto sizes = recordedOf(WM_SIZE);
    ASSERT_EQ(sizes.size(), 1u);
    EXPECT_EQ(sizes[0].lParam, (240 << 16) | 320);
    HWND hidden = child(host, RECT{0, 0, 10, 10}, false);
    EXPECT_FALSE(IsWindowVisible(hidden));
    EXPECT_EQ(ShowWindow(hidden, SW_SHOW), 0);  // the previous visibility
    EXPECT_EQ(ShowWindow(hidden, SW_SHOW), 1);
    ASSERT_EQ(recordedOf(WM_SHOWWINDOW).size(), 1u);
    EXPECT_EQ(recordedOf(WM_SHOWWINDOW)[0].wParam, 1u);
}

LRESULT destroyOwnChildOnDestroy(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT answer = recordingWindowProcedure(window, message, wParam, lParam);
    if (message == WM_DESTROY)
        DestroyWindow(reinterpret_cast<HWND>(GetWindowLong(window, GWL_USERDATA)));
    return answer;
}

TEST_F(WindowTree, DestroyWindowSendsWmDestroyParentFirstOnceEachAndFreesTheSubtree) {
    HWND parent = child(host, RECT{0, 0, 100, 100});
    HWND first = child(parent, RECT{0, 0, 10, 10});
    HWND grandchild = child(first, RECT{0, 0, 5, 5});
    HWND second = child(parent, RECT{20, 0, 30, 10});
    HWND sibling = child(host, RECT{200, 0, 210, 10});
    // The parent's procedure destroys a child itself during its WM_DESTROY.
    SetWindowLong(parent, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(destroyOwnChildOnDestroy));
    SetWindowLong(parent, GWL_USERDATA, reinterpret_cast<LONG_PTR>(second));
    recordedMessages().clear();
    EXPECT_TRUE(DestroyWindow(parent));
    std::vector<HWND> destroyed;
    for (const RecordedMessage& message : recordedOf(WM_DESTROY))
        destroyed.push_back(message.window);
    EXPECT_EQ(destroyed, (std::vector<HWND>{parent, second, first, grandchild}));
    for (HWND gone : {parent, first, grandchild, second}) EXPECT_FALSE(IsWindow(gone));
    EXPECT_TRUE(IsWindow(sibling));
    EXPECT_EQ(WindowFromPoint(POINT{kHostLeft + 5, kHostTop + 5}), host);
    EXPECT_FALSE(DestroyWindow(parent));  // a stale handle is refused
}

TEST_F(WindowTree, FocusAndCaptureChangeWithTheirNoticesAndEndWithTheirWindow) {
    HWND first = child(host, RECT{0, 0, 10, 10});
    HWND second = child(host, RECT{20, 0, 30, 10});
    SetFocus(first);
    recordedMessages().clear();
    EXPECT_EQ(SetFocus(second), first);
    EXPECT_EQ(GetFocus(), second);
    ASSERT_EQ(recordedMessages().size(), 2u);
    EXPECT_EQ(recordedMessages()[0].message, WM_KILLFOCUS);
    EXPECT_EQ(recordedMessages()[0].window, first);
    EXPECT_EQ(recordedMessages()[0].wParam, reinterpret_cast<WPARAM>(second));
    EXPECT_EQ(recordedMessages()[1].message, WM_SETFOCUS);
    EXPECT_EQ(recordedMessages()[1].window, second);
    DestroyWindow(second);
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(SetCapture(first), nullptr);
    EXPECT_EQ(GetCapture(), first);
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_EQ(GetCapture(), nullptr);
    SetCapture(first);
    DestroyWindow(first);
    EXPECT_EQ(GetCapture(), nullptr);
}

}  // namespace
