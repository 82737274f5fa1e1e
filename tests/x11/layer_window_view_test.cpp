// A layer window in a real X window: the picture, the size in both
// directions, the child placement inside a host's frame, and closing.
#include "host/ui/dialog_items.h"
#include "host/ui/tab_control.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"
#include "tests/x11/x11_editor_fixture.h"

namespace {

constexpr int kTabs = 1026;

int layerWidth(HWND window) { return kobal_layer::windowWidth(*kobal_layer::liveWindow(window)); }
int layerHeight(HWND window) { return kobal_layer::windowHeight(*kobal_layer::liveWindow(window)); }

using LayerWindowView = X11EditorTest;

TEST_F(LayerWindowView, TopLevelWindowShowsTheEditorPixelForPixel) {
    XPoint2 size = user->size(view->xWindow());
    EXPECT_EQ(size.x, layerWidth(host));
    EXPECT_EQ(size.y, layerHeight(host));
    EXPECT_EQ(user->findTopLevel("Ombro under test"), view->xWindow());
    EXPECT_EQ(differingPixels(user->picture(view->xWindow()), layerPicture()), 0);
}

TEST_F(LayerWindowView, WindowFollowsTheLayerWindowAndReportsItsSize) {
    int width = 0, height = 0;
    EXPECT_FALSE(view->sizeChanged(width, height));
    kobal_layer::SetWindowPos(host, nullptr, 0, 0, 760, 520,
                              SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    ASSERT_TRUE(idleUntil([&] {
        XPoint2 size = user->size(view->xWindow());
        return size.x == 760 && size.y == 520 && layerWidth(editor) == 760 && windowShowsTheLayer();
    }));
    ASSERT_TRUE(view->sizeChanged(width, height));
    EXPECT_EQ(width, 760);
    EXPECT_EQ(height, 520);
    EXPECT_FALSE(view->sizeChanged(width, height));
}

TEST_F(LayerWindowView, LayerWindowFollowsAUserResizeOfTheTopLevelWindow) {
    user->resize(view->xWindow(), 880, 600);
    ASSERT_TRUE(idleUntil([&] {
        return layerWidth(host) == 880 && layerHeight(host) == 600 && layerWidth(editor) == 880 &&
               layerHeight(editor) == 600 && windowShowsTheLayer();
    }));
}

TEST_F(LayerWindowView, CloseFromTheWindowManagerIsReported) {
    EXPECT_FALSE(view->closeRequested());
    user->closeWindow(view->xWindow());
    EXPECT_TRUE(idleUntil([&] { return view->closeRequested(); }));
}

TEST_F(LayerWindowView, DestroyedLayerWindowIsReportedAsClosed) {
    session->closeEditor();
    kobal_layer::DestroyWindow(host);
    view->idle();
    EXPECT_TRUE(view->closeRequested());
}

// The view inside a frame window of the test's own, as a host's editor
// frame holds a plug-in's editor.
class LayerWindowViewInFrame : public X11EditorTest {
protected:
    unsigned long parentXWindow() override {
        frame = user->createFrame(1100, 700);
        return frame;
    }
    Window frame = 0;
};

TEST_F(LayerWindowViewInFrame, ViewIsAChildOfTheFrameAndTakesClicks) {
    Window root = 0, parent = 0, *children = nullptr;
    unsigned int count = 0;
    ASSERT_TRUE(XQueryTree(user->display(), view->xWindow(), &root, &parent, &children, &count));
    if (children) XFree(children);
    EXPECT_EQ(parent, frame);
    EXPECT_TRUE(windowShowsTheLayer());
    HWND tabs = kobal_layer::GetDlgItem(editor, kTabs);
    RECT header = kobal_layer::tabHeaderRect(tabs, 1);
    user->click(Button1, onScreen(tabs, {(header.left + header.right) / 2,
                                         (header.top + header.bottom) / 2}));
    EXPECT_TRUE(idleUntil([&] { return kobal_layer::TabCtrl_GetCurSel(tabs) == 1; }));
}

TEST_F(LayerWindowViewInFrame, FrameDestroyedFirstEndsTheViewQuietly) {
    XDestroyWindow(user->display(), frame);
    XSync(user->display(), False);
    EXPECT_TRUE(idleUntil([&] { return view->closeRequested(); }));
    view.reset();  // the window went with its frame: nothing left to fail
    EXPECT_TRUE(kobal_layer::liveWindow(host));
}

TEST_F(LayerWindowView, UnknownParentWindowGivesNoView) {
    EXPECT_FALSE(x11_front::LayerWindowView::open(host, 0x7FFFFFF, "nowhere"));
    EXPECT_FALSE(x11_front::LayerWindowView::open(nullptr, 0, "no layer window"));
}

}  // namespace
