// The editor's buttons and view switches, and what the host hears of them,
// in order.
#include <string>
#include <vector>

#include "editor/band_panel_controls.h"
#include "editor/editor_controls.h"
#include "host/ui/input_injection.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

using Texts = std::vector<std::string>;

class EditorCommandsTest : public OpenEditorTest {
protected:
    void click(int id) { ASSERT_TRUE(kobal_layer::clickButton(control(id))); }
    void selectTab(int index) { ASSERT_TRUE(kobal_layer::clickTab(control(kBandTabs), index)); }
};

bool isListChange(const HostNotice& notice, int32_t first, int32_t delta) {
    return notice.opcode == audioMasterVendorSpecific && notice.paramListChange &&
           notice.paramListChange->first == first && notice.paramListChange->delta == delta;
}

bool isHostChanged(const HostNotice& notice) {
    return notice.opcode == audioMasterAutomate && notice.index == -1 && notice.opt == 0.0f;
}

// Exactly a changed parameter list, then the general change notice.
void expectListChangeThenChanged(const std::vector<HostNotice>& sent, int32_t first,
                                 int32_t delta) {
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_TRUE(isListChange(sent[0], first, delta));
    EXPECT_TRUE(isHostChanged(sent[1]));
}

TEST_F(EditorCommandsTest, AddBandAppendsAFlatBellSelectsItAndTellsTheHost) {
    click(kAddBandButton);
    ASSERT_EQ(instance->bandCount(), 5);
    EXPECT_EQ(instance->selectedBand, 4);
    EXPECT_EQ(instance->effect.numParams, 15);
    EXPECT_EQ(tabTexts(), (Texts{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(currentTab(), 4);
    const BandSnapshot added = snapshotBand(instance, 4);
    EXPECT_EQ(added.type, Band);
    EXPECT_EQ(added.frequency, 700.0);
    EXPECT_EQ(added.gain, 1.0);
    EXPECT_EQ(added.bandwidth, 2.0);
    EXPECT_NE(added.enabled, 0);
    expectListChangeThenChanged(notices(), 12, 3);
}

TEST_F(EditorCommandsTest, AddBandFirstClosesTheOpenEditGesture) {
    kobal_layer::typeIntoEdit(panelControl(kGainEdit), "3");
    clearNotices();
    click(kAddBandButton);
    const std::vector<HostNotice> sent = notices();
    ASSERT_EQ(sent.size(), 3u);
    EXPECT_EQ(sent[0].opcode, audioMasterEndEdit);
    EXPECT_EQ(sent[0].index, 1);
    EXPECT_TRUE(isListChange(sent[1], 12, 3));
    EXPECT_TRUE(isHostChanged(sent[2]));
    EXPECT_EQ(instance->gestureParam, -1);
}

TEST_F(EditorCommandsTest, RemovingABandInTheMiddleKeepsItsIndexForTheNextBand) {
    selectTab(1);
    click(kRemoveBandButton);
    ASSERT_EQ(instance->bandCount(), 3);
    EXPECT_EQ(instance->selectedBand, 1);
    EXPECT_EQ(snapshotBand(instance, 1).frequency, 1000.0);  // formerly band index 2
    EXPECT_EQ(instance->effect.numParams, 9);
    EXPECT_EQ(tabTexts(), (Texts{"1", "2", "3"}));
    EXPECT_EQ(currentTab(), 1);
    EXPECT_EQ(instance->suspendSetParameter, 0);
    expectListChangeThenChanged(notices(), 3, -3);
}

TEST_F(EditorCommandsTest, RemovingTheLastBandSelectsTheOneBeforeItButTheOnlyBandStays) {
    selectTab(3);
    click(kRemoveBandButton);
    EXPECT_EQ(instance->bandCount(), 3);
    EXPECT_EQ(instance->selectedBand, 2);
    EXPECT_EQ(currentTab(), 2);
    EXPECT_TRUE(isListChange(notices().at(0), 9, -3));
    for (int i = 0; i < 2; ++i) click(kRemoveBandButton);
    ASSERT_EQ(instance->bandCount(), 1);
    clearNotices();
    click(kRemoveBandButton);
    EXPECT_EQ(instance->bandCount(), 1);
    EXPECT_EQ(instance->effect.numParams, 3);
    EXPECT_EQ(tabTexts(), (Texts{"1"}));
    EXPECT_EQ(instance->selectedBand, 0);
    EXPECT_TRUE(notices().empty());
}

TEST_F(EditorCommandsTest, ResetDefaultsAfterAnAddTellsTheHostOfTheShorterList) {
    click(kAddBandButton);
    click(kAddBandButton);
    clearNotices();
    click(kResetDefaultsButton);
    EXPECT_EQ(instance->bandCount(), 4);
    EXPECT_EQ(instance->effect.numParams, 12);
    EXPECT_EQ(instance->selectedBand, 0);
    EXPECT_EQ(tabTexts(), (Texts{"1", "2", "3", "4"}));
    EXPECT_EQ(currentTab(), 0);
    expectListChangeThenChanged(notices(), 12, -6);
}

TEST_F(EditorCommandsTest, ResetDefaultsAfterARemovalTellsTheHostOfTheLongerList) {
    click(kRemoveBandButton);
    clearNotices();
    click(kResetDefaultsButton);
    EXPECT_TRUE(isListChange(notices().at(0), 9, 3));
    EXPECT_EQ(snapshotBand(instance, 0).type, LowShelf);
    EXPECT_EQ(snapshotBand(instance, 0).frequency, 100.0);
}

TEST_F(EditorCommandsTest, ResetDefaultsAtTheSameCountOnlyReportsAChange) {
    kobal_layer::typeIntoEdit(panelControl(kGainEdit), "5");
    ASSERT_NE(snapshotBand(instance, 0).gain, 1.0);
    clearNotices();
    click(kResetDefaultsButton);
    EXPECT_EQ(snapshotBand(instance, 0).gain, 1.0);
    const std::vector<HostNotice> sent = notices();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[0].opcode, audioMasterEndEdit);
    EXPECT_TRUE(isHostChanged(sent[1]));
}

// The panel showed band 4 (a high shelf); right after the reset, before any
// timer tick, it shows band 1, and its faders work on band 1 as it now is.
TEST_F(EditorCommandsTest, ResetDefaultsShowsBandOneInThePanelAtOnce) {
    selectTab(3);
    advanceClock(40);
    ASSERT_EQ(text(panelControl(kFrequencyEdit)), "5000.0");
    click(kResetDefaultsButton);
    EXPECT_EQ(text(panelControl(kFrequencyEdit)), "100.0");
    EXPECT_EQ(kobal::SendMessage(panelControl(kBandTypeList), CB_GETCURSEL, 0, 0), 0);
    ASSERT_TRUE(kobal_layer::dragFaderTo(panelControl(kFrequencyFader), 300));
    EXPECT_EQ(snapshotBand(instance, 0).type, LowShelf);
    EXPECT_NE(snapshotBand(instance, 0).frequency, 100.0);
    EXPECT_EQ(snapshotBand(instance, 3).frequency, 5000.0);
}

TEST_F(EditorCommandsTest, ViewSwitchesSetTheirFlagsAndTellTheHost) {
    click(kShowGridBox);
    EXPECT_EQ(instance->showGrid, 0);
    click(kShowPhaseBox);
    EXPECT_EQ(instance->viewFlags & 1, 1);
    click(kShowPhaseBox);
    EXPECT_EQ(instance->viewFlags & 1, 0);
    click(kShowGridBox);
    EXPECT_EQ(instance->showGrid, 1);
    const std::vector<HostNotice> sent = notices();
    ASSERT_EQ(sent.size(), 4u);
    for (const HostNotice& notice : sent) EXPECT_TRUE(isHostChanged(notice));
}

TEST_F(EditorCommandsTest, CheckBoxesShowTheInstanceFlagsWhenOpened) {
    instance->showGrid = 0;
    instance->viewFlags = 1;
    reopenEditor();
    EXPECT_EQ(kobal::IsDlgButtonChecked(editor(), kShowGridBox), BST_UNCHECKED);
    EXPECT_EQ(kobal::IsDlgButtonChecked(editor(), kShowPhaseBox), BST_CHECKED);
    EXPECT_EQ(kobal::IsDlgButtonChecked(editor(), kShowTabsBox), BST_CHECKED);
}

}  // namespace
