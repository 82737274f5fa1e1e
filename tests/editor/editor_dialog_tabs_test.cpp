// The tab strip, the show-tabs layout and the editor's size in its parent.
#include <string>
#include <vector>

#include "editor/band_panel_controls.h"
#include "editor/editor_controls.h"
#include "editor/editor_messages.h"
#include "engine/band_list.h"
#include "engine/band_removal.h"
#include "host/ui/input_injection.h"
#include "host/ui/tab_control.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

// The editor dialog resource's size in pixels.
constexpr int kEditorMinWidth = 596;
constexpr int kEditorMinHeight = 368;

using Texts = std::vector<std::string>;

class EditorTabsTest : public OpenEditorTest {
protected:
    void refresh() { kobal::SendMessage(editor(), WM_REFRESH_EDITOR, 0, 0); }
    std::vector<uint8_t> chunk() {
        void* data = nullptr;
        const intptr_t size =
            instance->effect.dispatcher(&instance->effect, effGetChunk, 0, 0, &data, 0.0f);
        const auto* bytes = static_cast<const uint8_t*>(data);
        return std::vector<uint8_t>(bytes, bytes + size);
    }
    void appendFlatBand() {
        ASSERT_TRUE(appendBand(instance, createDesignedBand(Band, 2000.0, 1.0, 1.0,
                                                            instance->sampleRate)));
    }
};

// Opening shows one numbered tab per band, the first current; a refresh
// deletes tabs beyond the band count and appends missing ones in band order.
TEST_F(EditorTabsTest, TabsFollowTheBandCountOnOpeningAndRefresh) {
    EXPECT_EQ(tabTexts(), (Texts{"1", "2", "3", "4"}));
    EXPECT_EQ(currentTab(), 0);
    ASSERT_TRUE(removeBandAt(instance, 3));
    HWND tabs = control(kBandTabs);
    TCITEM item{};
    item.mask = TCIF_TEXT;
    char surplus[] = "5";
    item.pszText = surplus;
    kobal::TabCtrl_InsertItem(tabs, 4, &item);
    ASSERT_EQ(tabTexts(), (Texts{"1", "2", "3", "4", "5"}));
    refresh();
    EXPECT_EQ(tabTexts(), (Texts{"1", "2", "3"}));

    appendFlatBand();
    appendFlatBand();
    kobal::TabCtrl_DeleteItem(tabs, 2);
    ASSERT_EQ(tabTexts(), (Texts{"1", "2"}));
    refresh();
    EXPECT_EQ(tabTexts(), (Texts{"1", "2", "3", "4", "5"}));
}

// Band 6 of 6 is selected when a state of two bands arrives: the refresh
// selects band 2, its tab and its values, and typing and "Remove band" act on it.
TEST_F(EditorTabsTest, SmallerStateSelectsItsLastBandAndThePanelWorksOnIt) {
    ASSERT_TRUE(removeBandAt(instance, 3));
    ASSERT_TRUE(removeBandAt(instance, 2));
    std::vector<uint8_t> twoBands = chunk();
    for (int i = 0; i < 4; ++i) appendFlatBand();
    refresh();
    ASSERT_TRUE(kobal_layer::clickTab(control(kBandTabs), 5));
    advanceClock(40);
    ASSERT_EQ(text(panelControl(kFrequencyEdit)), "2000.0");

    instance->effect.dispatcher(&instance->effect, effSetChunk, 0,
                                static_cast<intptr_t>(twoBands.size()), twoBands.data(), 0.0f);
    advanceClock(40);
    EXPECT_EQ(instance->selectedBand, 1);
    EXPECT_EQ(tabTexts(), (Texts{"1", "2"}));
    EXPECT_EQ(currentTab(), 1);
    EXPECT_EQ(text(panelControl(kFrequencyEdit)), "300.0");
    kobal_layer::typeIntoEdit(panelControl(kGainEdit), "6");
    EXPECT_NEAR(snapshotBand(instance, 1).gain, 1.9952623149688795, 1e-12);
    ASSERT_TRUE(kobal_layer::clickButton(control(kRemoveBandButton)));
    EXPECT_EQ(instance->bandCount(), 1);
    EXPECT_EQ(snapshotBand(instance, 0).type, LowShelf);
}

// At the default size (1020 by 640) forty tabs do not fit: the strip scrolls,
// every band can be chosen, and a band added from the editor shows its tab.
TEST_F(EditorTabsTest, FortyBandsAreAllReachableInTheScrollingTabStrip) {
    kobal::SetWindowPos(hostWindow, nullptr, 0, 0, 1020, 640, SWP_NOMOVE | SWP_NOZORDER);
    advanceClock(40);
    for (int i = 4; i < 40; ++i) appendFlatBand();
    refresh();
    HWND tabs = control(kBandTabs);
    ASSERT_GT(kobal_layer::tabScrollButtonRect(tabs, 1).right, 0);
    for (int index : {39, 0, 25, 12}) {
        SCOPED_TRACE(index);
        ASSERT_TRUE(kobal_layer::clickTab(tabs, index));
        EXPECT_EQ(instance->selectedBand, index);
    }
    ASSERT_TRUE(kobal_layer::clickButton(control(kAddBandButton)));
    EXPECT_EQ(currentTab(), 40);
    EXPECT_GT(kobal_layer::tabHeaderRect(tabs, 40).right, 0);
}

TEST_F(EditorTabsTest, ClickingATabSelectsItsBandAndThePanelFollowsOnTheNextTick) {
    ASSERT_TRUE(kobal_layer::clickTab(control(kBandTabs), 2));
    EXPECT_EQ(instance->selectedBand, 2);
    advanceClock(40);
    EXPECT_EQ(text(panelControl(kFrequencyEdit)), "1000.0");
}

TEST_F(EditorTabsTest, HidingTabsHidesStripAndPanelAndExtendsGraphToAboveTheButtons) {
    const RECT graphWithTabs = rectOf(control(kResponseViewControl));
    ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    EXPECT_EQ(instance->showTabs, 0);
    EXPECT_FALSE(isShown(control(kBandTabs)));
    EXPECT_FALSE(isShown(panel()));
    const RECT graph = rectOf(control(kResponseViewControl));
    const RECT button = rectOf(control(kRemoveBandButton));
    EXPECT_EQ(graph.bottom, button.top - 4);
    EXPECT_EQ(graph.top, graphWithTabs.top);
    EXPECT_EQ(graph.right, graphWithTabs.right);
    ASSERT_EQ(notices().size(), 1u);
    EXPECT_EQ(notices()[0].opcode, audioMasterAutomate);
    EXPECT_EQ(notices()[0].index, -1);

    ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    EXPECT_EQ(instance->showTabs, 1);
    EXPECT_TRUE(isShown(control(kBandTabs)));
    EXPECT_TRUE(isShown(panel()));
    const RECT restored = rectOf(control(kResponseViewControl));
    EXPECT_EQ(restored.bottom, graphWithTabs.bottom);
    EXPECT_EQ(restored.top, graphWithTabs.top);
}

TEST_F(EditorTabsTest, HiddenTabsStayHiddenAfterAReopen) {
    ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    reopenEditor();
    EXPECT_FALSE(isShown(control(kBandTabs)));
    EXPECT_FALSE(isShown(panel()));
    EXPECT_EQ(kobal::IsDlgButtonChecked(editor(), kShowTabsBox), BST_UNCHECKED);
    EXPECT_EQ(rectOf(control(kResponseViewControl)).bottom, rectOf(control(kRemoveBandButton)).top - 4);
}

TEST_F(EditorTabsTest, EditorFillsItsParentAndRemembersTheSize) {
    const RECT own = rectOf(editor());
    EXPECT_EQ(own.right, kHostWidth);
    EXPECT_EQ(own.bottom, kHostHeight);
    EXPECT_EQ(instance->editorWidth, kHostWidth - own.left);
    EXPECT_EQ(instance->editorHeight, kHostHeight - own.top);
}

class SmallParentTest : public EditorDialogTest {};

TEST_F(SmallParentTest, ParentSmallerThanTheDialogLeavesTheEditorAtItsMinimum) {
    openEditorIn(300, 200);
    RECT client{};
    kobal::GetClientRect(editor(), &client);
    EXPECT_EQ(client.right, kEditorMinWidth);
    EXPECT_EQ(client.bottom, kEditorMinHeight);
    EXPECT_EQ(instance->editorWidth, kEditorMinWidth);
    EXPECT_EQ(instance->editorHeight, kEditorMinHeight);
}

TEST_F(SmallParentTest, RememberedSizeIsTakenAtOnceOnTheNextOpen) {
    instance->editorWidth = 800;
    instance->editorHeight = 500;
    openEditorIn(kHostWidth, kHostHeight);
    // No first sizing pass was posted: the remembered size holds until the
    // poll timer fits the editor to its parent.
    RECT client{};
    kobal::GetClientRect(editor(), &client);
    EXPECT_EQ(client.right, 800);
    EXPECT_EQ(client.bottom, 500);
    advanceClock(40);
    kobal::GetClientRect(editor(), &client);
    EXPECT_EQ(client.right, kHostWidth);
    EXPECT_EQ(instance->editorWidth, kHostWidth);
}

}  // namespace
