// The band panel's type list and its two switches.
#include <string>
#include <vector>

#include "editor/band_panel_controls.h"
#include "editor/editor_messages.h"
#include "host/ui/combo_box.h"
#include "host/ui/input_injection.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

class BandPanelSwitchTest : public OpenEditorTest {
protected:
    HWND typeList() const { return panelControl(kBandTypeList); }
    int listSelection() const {
        return static_cast<int>(kobal::SendMessage(typeList(), CB_GETCURSEL, 0, 0));
    }
    void choose(int index) { ASSERT_TRUE(kobal_layer::chooseListEntry(typeList(), index)); }
    bool onlyHostChangedNotices(size_t expected) const {
        const std::vector<HostNotice> sent = notices();
        if (sent.size() != expected) return false;
        for (const HostNotice& notice : sent)
            if (notice.opcode != audioMasterAutomate || notice.index != -1) return false;
        return true;
    }
};

TEST_F(BandPanelSwitchTest, TypeListPutsBandThirdAndTheOldVariantsLast) {
    const std::vector<std::string> expected = {
        "Low Shelf", "High Shelf", "Band",  "Low Pass",   "High Pass",
        "All Pass",  "Notch",      "Band Pass", "Band (alt)", "Band (alt 2)"};
    ASSERT_EQ(kobal::SendMessage(typeList(), kobal_layer::CB_GETCOUNT, 0, 0),
              static_cast<LRESULT>(expected.size()));
    for (size_t i = 0; i < expected.size(); ++i) {
        char entry[64] = "";
        kobal::SendMessage(typeList(), kobal_layer::CB_GETLBTEXT, i,
                           reinterpret_cast<LPARAM>(entry));
        EXPECT_EQ(entry, expected[i]) << "entry " << i;
    }
}

TEST_F(BandPanelSwitchTest, ListShowsTheSelectedBandsType) {
    EXPECT_EQ(listSelection(), 0);  // band 0 is the low shelf
    {
        MutexLock lock(instance->mutex);
        EqBand* band = instance->band(0);
        designBand(band, BandAlt2, true, band->frequency, band->gain, band->bandwidth);
    }
    kobal::SendMessage(panel(), WM_REFRESH_BANDPANEL, 0, 0);
    EXPECT_EQ(listSelection(), 9);
}

TEST_F(BandPanelSwitchTest, ChoosingAnEntryStoresItsTypeAndKeepsTheValues) {
    const BandSnapshot before = snapshotBand(instance, 0);
    struct Choice {
        int entry;
        int32_t type;
    };
    for (const Choice& choice : {Choice{2, Band}, Choice{8, BandAlt}, Choice{9, BandAlt2},
                                 Choice{6, Notch}}) {
        SCOPED_TRACE(choice.entry);
        choose(choice.entry);
        const BandSnapshot after = snapshotBand(instance, 0);
        EXPECT_EQ(after.type, choice.type);
        EXPECT_EQ(after.frequency, before.frequency);
        EXPECT_EQ(after.gain, before.gain);
        EXPECT_EQ(after.bandwidth, before.bandwidth);
    }
    EXPECT_TRUE(onlyHostChangedNotices(4));
}

TEST_F(BandPanelSwitchTest, EnabledSwitchTurnsTheBandOffAndOn) {
    ASSERT_EQ(kobal::IsDlgButtonChecked(panel(), kEnabledBox), BST_CHECKED);
    ASSERT_TRUE(kobal_layer::clickButton(panelControl(kEnabledBox)));
    EXPECT_EQ(snapshotBand(instance, 0).enabled, 0);
    ASSERT_TRUE(kobal_layer::clickButton(panelControl(kEnabledBox)));
    EXPECT_NE(snapshotBand(instance, 0).enabled, 0);
    EXPECT_TRUE(onlyHostChangedNotices(2));
}

TEST_F(BandPanelSwitchTest, LogScaleSwitchFollowsTheCheckBox) {
    const bool initially = snapshotBand(instance, 0).logScaleAutomation;
    EXPECT_EQ(kobal::IsDlgButtonChecked(panel(), kLogScaleAutomationBox) != 0, initially);
    ASSERT_TRUE(kobal_layer::clickButton(panelControl(kLogScaleAutomationBox)));
    EXPECT_EQ(snapshotBand(instance, 0).logScaleAutomation, !initially);
    EXPECT_TRUE(onlyHostChangedNotices(1));
}

TEST_F(BandPanelSwitchTest, WithNoValidBandTheSwitchesChangeNothing) {
    std::vector<BandSnapshot> before;
    for (int i = 0; i < 4; ++i) before.push_back(snapshotBand(instance, i));
    instance->selectedBand = 7;
    ASSERT_TRUE(kobal_layer::clickButton(panelControl(kLogScaleAutomationBox)));
    ASSERT_TRUE(kobal_layer::clickButton(panelControl(kEnabledBox)));
    kobal_layer::typeIntoEdit(panelControl(kFrequencyEdit), "300");
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(snapshotBand(instance, i).logScaleAutomation, before[i].logScaleAutomation);
        EXPECT_EQ(snapshotBand(instance, i).enabled, before[i].enabled);
        EXPECT_EQ(snapshotBand(instance, i).frequency, before[i].frequency);
    }
    EXPECT_TRUE(notices().empty());
}

}  // namespace
