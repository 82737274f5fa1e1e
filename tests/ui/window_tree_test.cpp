// Windows: geometry, hit testing, window words, destruction, focus and capture.
#include "host/ui/window_tree.h"

#include <algorithm>

#include "host/ui/dialog_controls.h"
#include "host/ui/focus_and_capture.h"
#include "host/ui/messages.h"
#include "host/ui/window_functions.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

class WindowTree : public UiLayerTest {
protected:
    HWND child(HWND parent, RECT rect, bool visible = true) {
        return createRecordingWindow(parent, rect, visible);
    }
};

TEST_F(WindowTree, RectanglesAndPointsConvertBetweenClientAndScreenAlongTheParents) {
    HWND host = hostWindow();
    HWND outer = child(host, RECT{10, 20, 210, 120});
    HWND inner = child(outer, RECT{5, 6, 55, 36});
    RECT rect{};
    ASSERT_TRUE(GetWindowRect(inner, &rect));
    EXPECT_EQ(rect, (RECT{kHostLeft + 15, kHostTop + 26, kHostLeft + 65, kHostTop + 56}));
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
    EXPECT_EQ(GetParent(host), nullptr);
    EXPECT_TRUE(IsChild(host, inner));
    EXPECT_FALSE(IsChild(inner, host));
}

TEST_F(WindowTree, WindowFromPointFindsTheDeepestShownEnabledWindow) {
    HWND host = hostWindow();
    HWND panel = child(host, RECT{0, 0, 200, 200});
    HWND lower = child(panel, RECT{10, 10, 60, 60});
    HWND upper = child(panel, RECT{40, 40, 90, 90});  // created later: on top
    POINT overlap{kHostLeft + 50, kHostTop + 50};
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

TEST_F(WindowTree, GroupBoxesAreTransparentToTheMouse) {
    HWND host = hostWindow();
    HWND group = createDialogControl(
        host, ControlPlacement{kButtonClassName, "Group", 7, BS_GROUPBOX, 0, 0, 0, 0},
        RECT{0, 0, 300, 200});
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(WindowFromPoint(POINT{kHostLeft + 50, kHostTop + 50}), host);
}

TEST_F(WindowTree, WindowWordsKeepIdUserDataAndExtraWords) {
    HWND window = child(hostWindow(), RECT{0, 0, 10, 10});
    EXPECT_EQ(SetWindowLong(window, GWL_ID, 1023), 0);
    EXPECT_EQ(GetWindowLong(window, GWL_ID), 1023);
    int instance = 0;
    SetWindowLong(window, GWL_USERDATA, reinterpret_cast<LONG_PTR>(&instance));
    EXPECT_EQ(GetWindowLong(window, GWL_USERDATA), reinterpret_cast<LONG_PTR>(&instance));
    EXPECT_EQ(SetWindowLong(window, 0, 3), 0);
    EXPECT_EQ(SetWindowLong(window, 0, 4), 3);
    EXPECT_EQ(GetWindowLong(window, 0), 4);
    EXPECT_EQ(GetWindowLong(window, 8), 0);
    EXPECT_EQ(GetWindowLong(nullptr, GWL_ID), 0);
}

TEST_F(WindowTree, SetWindowPosFlagsFollowTheLayersNumbering) {
    HWND window = child(hostWindow(), RECT{10, 10, 110, 60});
    // 13 = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE: resize only.
    SetWindowPos(window, nullptr, 500, 500, 300, 200, 13);
    RECT rect{};
    GetWindowRect(window, &rect);
    EXPECT_EQ(rect, (RECT{kHostLeft + 10, kHostTop + 10, kHostLeft + 310, kHostTop + 210}));
    // 12 = SWP_NOZORDER | SWP_NOACTIVATE: move and resize.
    SetWindowPos(window, nullptr, 1, 2, 30, 40, 12);
    GetWindowRect(window, &rect);
    EXPECT_EQ(rect, (RECT{kHostLeft + 1, kHostTop + 2, kHostLeft + 31, kHostTop + 42}));
    // SWP_NOSIZE: move only.
    SetWindowPos(window, nullptr, 7, 8, 999, 999, SWP_NOSIZE);
    GetWindowRect(window, &rect);
    EXPECT_EQ(rect, (RECT{kHostLeft + 7, kHostTop + 8, kHostLeft + 37, kHostTop + 48}));
}

TEST_F(WindowTree, ShowWindowAndResizingReportTheirChanges) {
    HWND window = child(hostWindow(), RECT{0, 0, 10, 10}, false);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(ShowWindow(window, SW_SHOW), 0);
    EXPECT_EQ(ShowWindow(window, SW_SHOW), 1);
    EXPECT_TRUE(IsWindowVisible(window));
    auto shows = recordedOf(WM_SHOWWINDOW);
    ASSERT_EQ(shows.size(), 1u);
    EXPECT_EQ(shows[0].wParam, 1u);
    HWND sized = child(GetParent(window), RECT{0, 0, 100, 50});
    recordedMessages().clear();
    SetWindowPos(sized, nullptr, 0, 0, 320, 240, SWP_NOMOVE);
    auto sizes = recordedOf(WM_SIZE);
    ASSERT_EQ(sizes.size(), 1u);
    EXPECT_EQ(sizes[0].lParam & 0xFFFF, 320);
    EXPECT_EQ((sizes[0].lParam >> 16) & 0xFFFF, 240);
    recordedMessages().clear();
    SetWindowPos(sized, nullptr, 0, 0, 320, 240, SWP_NOMOVE);
    EXPECT_TRUE(recordedOf(WM_SIZE).empty());  // same size: no message
}

TEST_F(WindowTree, DestroyWindowSendsWmDestroyParentFirstAndFreesTheSubtree) {
    HWND host = hostWindow();
    HWND parent = child(host, RECT{0, 0, 100, 100});
    HWND first = child(parent, RECT{0, 0, 10, 10});
    HWND grandchild = child(first, RECT{0, 0, 5, 5});
    HWND second = child(parent, RECT{20, 0, 30, 10});
    HWND sibling = child(host, RECT{200, 0, 210, 10});
    recordedMessages().clear();
    EXPECT_TRUE(DestroyWindow(parent));
    auto destroys = recordedOf(WM_DESTROY);
    ASSERT_EQ(destroys.size(), 4u);
    EXPECT_EQ(destroys[0].window, parent);
    EXPECT_EQ(destroys[1].window, first);
    EXPECT_EQ(destroys[2].window, grandchild);
    EXPECT_EQ(destroys[3].window, second);
    for (HWND gone : {parent, first, grandchild, second}) EXPECT_FALSE(IsWindow(gone));
    EXPECT_TRUE(IsWindow(sibling));
    EXPECT_EQ(WindowFromPoint(POINT{kHostLeft + 5, kHostTop + 5}), host);
    EXPECT_FALSE(DestroyWindow(parent));  // a stale handle is refused
}

LRESULT destroyOwnChildOnDestroy(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    recordedMessages().push_back(RecordedMessage{window, message, wParam, lParam});
    if (message == WM_DESTROY) {
        HWND child = reinterpret_cast<HWND>(GetWindowLong(window, GWL_USERDATA));
        DestroyWindow(child);
    }
    return DefWindowProc(window, message, wParam, lParam);
}

TEST_F(WindowTree, AProcedureMayDestroyItsChildrenDuringWmDestroy) {
    HWND parent = child(hostWindow(), RECT{0, 0, 100, 100});
    HWND inner = child(parent, RECT{0, 0, 10, 10});
    SetWindowLong(parent, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(destroyOwnChildOnDestroy));
    SetWindowLong(parent, GWL_USERDATA, reinterpret_cast<LONG_PTR>(inner));
    recordedMessages().clear();
    DestroyWindow(parent);
    EXPECT_EQ(recordedOf(WM_DESTROY).size(), 2u);  // each window once
    EXPECT_FALSE(IsWindow(inner));
    EXPECT_FALSE(IsWindow(parent));
}

TEST_F(WindowTree, FocusAndCaptureChangeWithTheirNoticesAndEndWithTheirWindow) {
    HWND host = hostWindow();
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
    HWND window = child(host, RECT{0, 0, 10, 10});
    EXPECT_EQ(SetCapture(window), nullptr);
    EXPECT_EQ(GetCapture(), window);
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_EQ(GetCapture(), nullptr);
    SetCapture(window);
    DestroyWindow(window);
    EXPECT_EQ(GetCapture(), nullptr);
}

}  // namespace
