// The editor's size in its parent and the layout of its controls: the
// show-tabs switch, sizes remembered across openings, and the share of a
// size change each control edge follows.
#include <cmath>

#include "editor/editor_controls.h"
#include "editor/editor_dialog.h"
#include "editor/layout_sizer.h"
#include "host/ui/input_injection.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_fixture.h"

namespace {

class EditorLayoutTest : public EditorTest {
protected:
    RECT client(HWND window) const {
        RECT rect{};
        kobal::GetClientRect(window, &rect);
        return rect;
    }
};

// The graph then reaches down to just above the buttons, and the choice
// holds when the editor opens again.
TEST_F(EditorLayoutTest, HidingTabsHidesStripAndPanelAndExtendsTheGraph) {
    openEditorIn(kHostWidth, kHostHeight);
    const RECT withTabs = rectInParent(view);
    ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    EXPECT_EQ(instance->showTabs, 0);
    ASSERT_EQ(notices().size(), 1u);
    EXPECT_TRUE(notices()[0].isHostChanged());
    for (int reopened = 0; reopened < 2; ++reopened) {
        SCOPED_TRACE(reopened);
        EXPECT_FALSE(isShown(control(kBandTabs)));
        EXPECT_FALSE(isShown(panel()));
        EXPECT_EQ(kobal::IsDlgButtonChecked(editor(), kShowTabsBox), BST_UNCHECKED);
        const RECT graph = rectInParent(control(kResponseViewControl));
        EXPECT_EQ(graph.bottom, rectInParent(control(kRemoveBandButton)).top - 4);
        EXPECT_EQ(graph.top, withTabs.top);
        EXPECT_EQ(graph.right, withTabs.right);
        ASSERT_TRUE(openEditor(instance, hostWindow));
        advanceClock(0);
    }
    ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    EXPECT_TRUE(isShown(control(kBandTabs)));
    EXPECT_TRUE(isShown(panel()));
    EXPECT_EQ(rectInParent(control(kResponseViewControl)).bottom, withTabs.bottom);
}

TEST_F(EditorLayoutTest, EditorFillsItsParentButNeverShrinksBelowTheDialog) {
    openEditorIn(300, 200);
    EXPECT_EQ(client(editor()).right, 596);
    EXPECT_EQ(client(editor()).bottom, 368);
    EXPECT_EQ(instance->editorWidth, 596);
    EXPECT_EQ(instance->editorHeight, 368);
    kobal::SetWindowPos(hostWindow, nullptr, 0, 0, kHostWidth, kHostHeight,
                        SWP_NOMOVE | SWP_NOZORDER);
    advanceClock(40);
    EXPECT_EQ(rectInParent(editor()).right, kHostWidth);
    EXPECT_EQ(rectInParent(editor()).bottom, kHostHeight);
    EXPECT_EQ(instance->editorWidth, kHostWidth - rectInParent(editor()).left);
}

// No first sizing pass: the remembered size holds until the poll fits the
// editor to its parent.
TEST_F(EditorLayoutTest, RememberedSizeIsTakenAtOnceOnTheNextOpen) {
    instance->editorWidth = 800;
    instance->editorHeight = 500;
    openEditorIn(kHostWidth, kHostHeight);
    EXPECT_EQ(client(editor()).right, 800);
    EXPECT_EQ(client(editor()).bottom, 500);
    advanceClock(40);
    EXPECT_EQ(client(editor()).right, kHostWidth);
}

// Reference size 100 by 50, rectangle (10, 10, 50, 50).
TEST(TransformRect, EdgesFollowTheirShareOfTheSizeChangeTruncatedInSinglePrecision) {
    const float nan = std::nanf("");
    struct Case {
        float scales[4];
        RECT client, expected;
    };
    const Case cases[] = {
        {{1.0f, 2.5f, 0.0f, -1.0f}, {0, 0, 110, 57}, {20, 17, 50, 50}},  // all or nothing
        {{nan, nan, nan, nan}, {0, 0, 110, 57}, {10, 10, 50, 50}},
        {{0.5f, 0.5f, 0.5f, 0.5f}, {0, 0, 97, 53}, {9, 11, 49, 51}},  // -1.5 is -1, 1.5 is 1
        // 0.7f × 10 is 6.99999988 in double precision but exactly 7 in single.
        {{0.7f, 0.0f, 0.7f, 0.0f}, {0, 0, 110, 50}, {17, 10, 57, 50}},
        {{0.0f, 0.0f, 1.0f, 1.0f}, {0, 0, -30, -30}, {10, 10, 10, 10}},  // collapsed
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.expected.left);
        RECT r{10, 10, 50, 50};
        transformRect(r, c.scales, c.client, 100, 50);
        EXPECT_EQ(r.left, c.expected.left);
        EXPECT_EQ(r.top, c.expected.top);
        EXPECT_EQ(r.right, c.expected.right);
        EXPECT_EQ(r.bottom, c.expected.bottom);
    }
}

}  // namespace
