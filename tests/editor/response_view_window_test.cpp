// The graph window itself: which class it answers to, and painting when the
// host's raster library lacks the bitmap or font function.
#include <gtest/gtest.h>

#include "contracts/mura.h"
#include "engine/eq_band.h"
#include "plugin/host_imports.h"
#include "plugin/ui_layer.h"
#include "tests/editor/response_view_fixture.h"
#include "view/graph_fonts.h"
#include "view/response_view_control.h"

namespace {

class ResponseViewWindowTest : public ResponseViewTest {
protected:
    void TearDown() override {
        hostExtensions = saved;
        destroyGraphFonts();
        ResponseViewTest::TearDown();
    }
    HostExtensions saved = hostExtensions;
};

TEST_F(ResponseViewWindowTest, OnlyTheOmbroWindowClassIsCreated) {
    openView(600, 120);
    EXPECT_EQ(createResponseViewControl(editor(), "", 1099, "SysTabControl32", 0, 0, 0, 50, 50),
              nullptr);
    EXPECT_EQ(createResponseViewControl(editor(), "", 1099, nullptr, 0, 0, 0, 50, 50), nullptr);
    HWND another = createResponseViewControl(editor(), "", 1099, "OmbroWindow", 0, 5, 6, 70, 40);
    ASSERT_NE(another, nullptr);
    EXPECT_EQ(kobal::GetDlgItem(editor(), 1099), another);
    RECT client{};
    kobal::GetClientRect(another, &client);
    EXPECT_EQ(client.right, 70);
    EXPECT_EQ(client.bottom, 40);
}

TEST_F(ResponseViewWindowTest, WithoutABitmapNothingIsPainted) {
    openView(600, 120);
    delete instance->drawingBitmap;
    instance->drawingBitmap = nullptr;
    hostExtensions.createBitmap = nullptr;
    EXPECT_EQ(kobal::SendMessage(view, WM_PAINT, 0, 0), 0);
    EXPECT_EQ(instance->drawingBitmap, nullptr);
}

TEST_F(ResponseViewWindowTest, WithoutFontsLinesAndHandlesAreStillDrawn) {
    openView(600, 120);
    destroyGraphFonts();
    hostExtensions.createFont = nullptr;
    silenceAllBands();
    setBand(2, Band, 1000.0, 1.0, 1.0);
    instance->selectedBand = 2;
    paint();
    EXPECT_EQ(gridFont, nullptr);
    EXPECT_EQ(labelFont, nullptr);
    // The whole disc is red: no number is drawn on it.
    EXPECT_EQ(pixel(285, 60), 0xffff2222u);
    EXPECT_EQ(pixel(285 - 3, 60 + 2), 0xffff2222u);
}

TEST_F(ResponseViewWindowTest, BitmapFollowsTheClientSize) {
    openView(600, 120);
    paint();
    ASSERT_NE(instance->drawingBitmap, nullptr);
    kobal::SetWindowPos(view, nullptr, 0, 0, 320, 90, SWP_NOMOVE | SWP_NOZORDER);
    paint();
    EXPECT_EQ(instance->drawingBitmap->width(), 320);
    EXPECT_EQ(instance->drawingBitmap->height(), 90);
}

}  // namespace
