// The layout sizer on dialogs of the stand-in windowing layer: edges follow
// their share of the size change, truncated toward zero, and the sizer's
// bookkeeping survives repeated ids, replaced windows and unbinding.
#include <gtest/gtest.h>

#include <cmath>
#include <iterator>

#include "editor/layout_sizer.h"
#include "plugin/ui_layer.h"
#include "tests/editor/host_layer_binding.h"

namespace {

constexpr int kTestDialogId = 900;
constexpr int kDialogWidth = 200;
constexpr int kDialogHeight = 100;
constexpr int kLeftBox = 1;
constexpr int kRightBox = 2;
constexpr int kBottomBox = 3;

constexpr RECT kLeftBoxRect{10, 20, 60, 50};
constexpr RECT kRightBoxRect{120, 10, 190, 40};
constexpr RECT kBottomBoxRect{10, 70, 190, 90};

constexpr ControlRecord box(int id, const RECT& rect) {
    return ControlRecord{"", id, 0, "Static", 0, rect.left, rect.top, rect.right - rect.left,
                         rect.bottom - rect.top, 0};
}

const ControlRecord kTestControls[] = {box(kLeftBox, kLeftBoxRect), box(kRightBox, kRightBoxRect),
                                       box(kBottomBox, kBottomBoxRect)};

void createTestControls(HWND window, int32_t) {
    kobal::KOBAL_MakeSetCurParms(1.0f, 1.0f, 0, 0, window, false, true);
    kobal::KOBAL_GenerateDialogFromList(kTestControls, static_cast<int>(std::size(kTestControls)));
}

DialogResource testDialogResource{kTestDialogId, "", 13, 0, createTestControls,
                                  kDialogWidth,  kDialogHeight, nullptr};

bool sameRect(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

#define EXPECT_RECT(actual, l, t, r, b) EXPECT_TRUE(sameRect((actual), RECT{l, t, r, b}))      \
    << "got " << (actual).left << "," << (actual).top << "," << (actual).right << ","          \
    << (actual).bottom

class LayoutSizerTest : public ::testing::Test {
protected:
    void SetUp() override {
        bindHostLayerOnce();
        dialog = kobal::KOBAL_CreateDialog(&testDialogResource, kTestDialogId, nullptr,
                                           ignoringDialogProcedure, 0);
        ASSERT_NE(dialog, nullptr);
        RECT client{};
        kobal::GetClientRect(dialog, &client);
        ASSERT_EQ(client.right, kDialogWidth);
        ASSERT_EQ(client.bottom, kDialogHeight);
    }
    void TearDown() override {
        sizer.init(nullptr, nullptr);
        kobal::DestroyWindow(dialog);
    }

    void resizeDialog(int width, int height) {
        kobal::SetWindowPos(dialog, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }
    // Grows the dialog by (dx, dy) against its resource size and lays it out.
    void layOutGrownBy(int dx, int dy) {
        resizeDialog(kDialogWidth + dx, kDialogHeight + dy);
        sizer.applyLayout(nullptr, false, 0, 0);
    }
    const RECT& lastRectOf(int itemIndex) { return sizer.items.as<SizerItem>()[itemIndex].lastRect; }
    HWND control(int id) { return kobal::GetDlgItem(dialog, id); }

    HWND dialog = nullptr;
    LayoutSizer sizer;
};

TEST_F(LayoutSizerTest, InitTakesTheReferenceSizeFromTheClientAreaOrTheGivenRectangle) {
    sizer.init(dialog, nullptr);
    EXPECT_EQ(sizer.dialog, dialog);
    EXPECT_EQ(sizer.refWidth, kDialogWidth);
    EXPECT_EQ(sizer.refHeight, kDialogHeight);
    const RECT reference{5, 5, 300, 250};
    sizer.init(dialog, &reference);
    EXPECT_EQ(sizer.refWidth, 300);
    EXPECT_EQ(sizer.refHeight, 250);
    sizer.init(nullptr, &reference);
    EXPECT_EQ(sizer.dialog, nullptr);
    EXPECT_EQ(sizer.refWidth, 300);
}

// In dialog coordinates wherever the dialog stands, unless an initial
// rectangle is given; unknown ids and unbound sizers add nothing.
TEST_F(LayoutSizerTest, AddItemMeasuresTheControlInDialogCoordinates) {
    sizer.addItem(kLeftBox, 0, 0, 1, 1);
    EXPECT_EQ(sizer.items.count<SizerItem>(), 0);
    kobal::SetWindowPos(dialog, nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    sizer.init(dialog, nullptr);
    sizer.addItem(4711, 0, 0, 1, 1);
    EXPECT_EQ(sizer.items.data, nullptr);
    sizer.addItem(kRightBox, 1, 0, 1, 0);
    sizer.addItem(kLeftBox, 0, 0, 1, 1);
    const RECT initial{1, 2, 3, 4};
    sizer.addItem(kLeftBox, 0, 0, 0, 0, &initial);
    ASSERT_EQ(sizer.items.count<SizerItem>(), 3);
    const SizerItem& item = sizer.items.as<SizerItem>()[0];
    EXPECT_EQ(item.window, control(kRightBox));
    EXPECT_RECT(item.origRect, 120, 10, 190, 40);
    EXPECT_RECT(item.addedRect, 120, 10, 190, 40);
    EXPECT_RECT(item.lastRect, 120, 10, 190, 40);
    EXPECT_EQ(item.scales[0], 1.0f);
    EXPECT_EQ(item.scales[1], 0.0f);
    EXPECT_RECT(sizer.items.as<SizerItem>()[1].origRect, 10, 20, 60, 50);
    EXPECT_RECT(sizer.items.as<SizerItem>()[2].addedRect, 1, 2, 3, 4);
}

TEST_F(LayoutSizerTest, EdgesFollowTheirShareOfTheChange) {
    sizer.init(dialog, nullptr);
    sizer.addItem(kLeftBox, 0, 0, 1, 1);    // stretches
    sizer.addItem(kRightBox, 1, 0, 1, 0);   // moves right
    sizer.addItem(kBottomBox, 0, 1, 1, 1);  // moves down, stretches across
    layOutGrownBy(0, 0);  // unchanged size: every control stays
    EXPECT_RECT(rectInParent(control(kLeftBox)), 10, 20, 60, 50);
    EXPECT_RECT(rectInParent(control(kRightBox)), 120, 10, 190, 40);
    EXPECT_RECT(rectInParent(control(kBottomBox)), 10, 70, 190, 90);
    layOutGrownBy(40, 30);
    EXPECT_RECT(rectInParent(control(kLeftBox)), 10, 20, 100, 80);
    EXPECT_RECT(rectInParent(control(kRightBox)), 160, 10, 230, 40);
    EXPECT_RECT(rectInParent(control(kBottomBox)), 10, 100, 230, 120);
}

TEST_F(LayoutSizerTest, HalfSharesTruncateTowardZeroAndCollapsedControlsKeepTheirCorner) {
    sizer.init(dialog, nullptr);
    sizer.addItem(kLeftBox, 0.5f, 0.5f, 0.5f, 0.5f);
    sizer.addItem(kBottomBox, 0, 0, 1, 1);
    layOutGrownBy(-3, 3);
    // -3 * 0.5 = -1.5 moves by -1 (not -2); +3 * 0.5 = 1.5 moves by +1
    EXPECT_RECT(lastRectOf(0), 9, 21, 59, 51);
    EXPECT_RECT(rectInParent(control(kLeftBox)), 9, 21, 59, 51);
    layOutGrownBy(-190, -80);  // zero size at the left and top edges
    EXPECT_RECT(lastRectOf(1), 10, 70, 10, 70);
    EXPECT_RECT(rectInParent(control(kBottomBox)), 10, 70, 10, 70);
}

TEST_F(LayoutSizerTest, SameIdTwiceMakesTwoItemsAndFindItemAnswersTheFirst) {
    sizer.init(dialog, nullptr);
    sizer.addItem(kRightBox, 1, 0, 1, 0);
    sizer.addItem(kRightBox, 0, 1, 0, 1);
    ASSERT_EQ(sizer.items.count<SizerItem>(), 2);
    EXPECT_EQ(sizer.findItem(kRightBox), &sizer.items.as<SizerItem>()[0]);
    layOutGrownBy(10, 20);
    EXPECT_RECT(lastRectOf(0), 130, 10, 200, 40);
    EXPECT_RECT(lastRectOf(1), 120, 30, 190, 60);
    // Both moved the same window; the second move is the one that stays.
    EXPECT_RECT(rectInParent(control(kRightBox)), 120, 30, 190, 60);
}

TEST_F(LayoutSizerTest, FindItemSkipsItemsWithoutAWindow) {
    sizer.init(dialog, nullptr);
    sizer.addItem(kLeftBox, 0, 0, 0, 0);
    sizer.addItem(kLeftBox, 0, 0, 0, 0);
    sizer.items.as<SizerItem>()[0].window = nullptr;
    EXPECT_EQ(sizer.findItem(kLeftBox), &sizer.items.as<SizerItem>()[1]);
    EXPECT_EQ(sizer.findItem(kBottomBox), nullptr);
}

TEST_F(LayoutSizerTest, InitWithNeitherDialogNorRectangleForgetsEverything) {
    sizer.init(dialog, nullptr);
    sizer.addItem(kLeftBox, 0, 0, 1, 1);
    sizer.init(nullptr, nullptr);
    EXPECT_EQ(sizer.dialog, nullptr);
    EXPECT_EQ(sizer.refWidth, 0);
    EXPECT_EQ(sizer.refHeight, 0);
    EXPECT_EQ(sizer.items.size, 0);
    EXPECT_EQ(sizer.items.data, nullptr);
    EXPECT_EQ(sizer.findItem(kLeftBox), nullptr);
    layOutGrownBy(50, 50);
    EXPECT_RECT(rectInParent(control(kLeftBox)), 10, 20, 60, 50);
}

TEST_F(LayoutSizerTest, ReplacedWindowIsLaidOutFromTheFirstControlsRectangle) {
    sizer.init(dialog, nullptr);
    sizer.addItem(kLeftBox, 0, 0, 1, 1);
    SizerItem* item = sizer.findItem(kLeftBox);
    ASSERT_NE(item, nullptr);
    item->window = control(kRightBox);
    layOutGrownBy(20, 10);
    EXPECT_RECT(rectInParent(control(kRightBox)), 10, 20, 80, 60);
    EXPECT_RECT(rectInParent(control(kLeftBox)), 10, 20, 60, 50);
    EXPECT_EQ(sizer.findItem(kRightBox), item);
}

TEST_F(LayoutSizerTest, OnlyWindowNoMoveAndOffsetsRestrictTheLayout) {
    sizer.init(dialog, nullptr);
    sizer.addItem(kLeftBox, 0, 0, 1, 1);
    sizer.addItem(kRightBox, 1, 0, 1, 0);
    resizeDialog(kDialogWidth + 10, kDialogHeight);

    sizer.applyLayout(nullptr, true, 0, 0);
    EXPECT_RECT(lastRectOf(1), 130, 10, 200, 40);
    EXPECT_RECT(rectInParent(control(kRightBox)), 120, 10, 190, 40);

    sizer.applyLayout(control(kRightBox), false, 5, -5);
    EXPECT_RECT(rectInParent(control(kRightBox)), 135, 5, 205, 35);
    EXPECT_RECT(rectInParent(control(kLeftBox)), 10, 20, 60, 50);
}

TEST(TransformRect, ScalesOfOneOrMoreTakeTheWholeChangeAndOthersNone) {
    const RECT client{0, 0, 110, 57};
    const float scales[4] = {1.0f, 2.5f, 0.0f, -1.0f};
    RECT r{10, 10, 50, 50};
    transformRect(r, scales, client, 100, 50);
    EXPECT_RECT(r, 20, 17, 50, 50);

    const float notANumber = std::nanf("");
    const float nanScales[4] = {notANumber, notANumber, notANumber, notANumber};
    RECT same{10, 10, 50, 50};
    transformRect(same, nanScales, client, 100, 50);
    EXPECT_RECT(same, 10, 10, 50, 50);
}

TEST(TransformRect, SharesAreComputedInSinglePrecision) {
    // 0.7f is 0.699999988; times 10 that is 6.99999988 in double precision
    // (truncated: 6) but rounds to exactly 7 in single precision.
    const float scales[4] = {0.7f, 0.0f, 0.7f, 0.0f};
    RECT r{0, 0, 40, 40};
    transformRect(r, scales, RECT{0, 0, 110, 100}, 100, 100);
    EXPECT_RECT(r, 7, 0, 47, 40);
}

TEST(TransformRect, NegativeClientSizesCountAsZero) {
    const float scales[4] = {0.0f, 0.0f, 1.0f, 1.0f};
    RECT r{10, 10, 50, 50};
    transformRect(r, scales, RECT{0, 0, -30, -30}, 20, 20);
    EXPECT_RECT(r, 10, 10, 30, 30);
}

}  // namespace
