// The graph's right-click menu: which items are available and checked, and
// what each command does to the bands and tells the host.
#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "engine/eq_band.h"
#include "host/ui/input_injection.h"
#include "host/ui/menus.h"
#include "plugin/ui_layer.h"
#include "tests/editor/response_view_fixture.h"
#include "view/band_hit_test.h"
#include "view/context_menu.h"

namespace {

using kobal_layer::MenuItemView;
using kobal_layer::MenuView;
using kobal_layer::MouseButton;

std::optional<MenuItemView> findItem(const MenuView& menu, UINT id) {
    for (const MenuItemView& item : menu) {
        if (item.commandId == id && !item.isPopup) return item;
        if (auto inner = findItem(item.popup, id)) return inner;
    }
    return std::nullopt;
}

class ContextMenuTest : public ResponseViewTest {
protected:
    void SetUp() override {
        ResponseViewTest::SetUp();
        openView(600, 120);
        setBand(2, Band, 1000.0, 2.0, 1.5);  // handle at (285, 30)
        clearNotices();
    }
    // Right-clicks at a client point of the graph and picks `command`.
    void choose(UINT command, int x, int y) {
        kobal_layer::queueMenuChoice(command);
        kobal_layer::pressMouse(MouseButton::right, screenPoint(x, y));
        kobal_layer::releaseMouse(MouseButton::right, screenPoint(x, y));
    }
    void chooseOnBand2(UINT command) { choose(command, 285, 30); }
    MenuItemView item(UINT id) const {
        const std::optional<MenuView> menu = kobal_layer::lastTrackedMenu();
        EXPECT_TRUE(menu.has_value());
        return menu ? findItem(*menu, id).value_or(MenuItemView{}) : MenuItemView{};
    }
    // The general change notices, or with `change` false all the others.
    int changeNotices(bool change = true) const {
        int count = 0;
        for (const HostNotice& n : notices())
            count += (n.opcode == audioMasterAutomate && n.index == -1) == change;
        return count;
    }
    int otherNotices() const { return changeNotices(false); }
};

TEST_F(ContextMenuTest, RightClickOnAHandleSelectsItAndOffersEveryItem) {
    instance->selectedBand = 0;
    choose(0, 285, 30);
    EXPECT_EQ(instance->selectedBand, 2);
    EXPECT_EQ(currentTab(), 2);
    for (UINT id = 40001; id <= 40016; ++id) {
        if (id == 40005) continue;
        EXPECT_TRUE(item(id).enabled) << id;
    }
    EXPECT_TRUE(item(kEnableBandCommand).checked);
    EXPECT_TRUE(item(kFirstBandTypeCommand + Band).checked);
    EXPECT_FALSE(item(kFirstBandTypeCommand + LowShelf).checked);
    EXPECT_EQ(snapshotBand(instance, 2).gain, 2.0);  // dismissed: nothing changed
    EXPECT_EQ(changeNotices(), 0);
}

TEST_F(ContextMenuTest, EmptySpaceGraysBandItemsButKeepsTheirChecks) {
    instance->selectedBand = 0;  // the low shelf
    choose(0, 100, 10);
    EXPECT_EQ(instance->selectedBand, 0);
    for (UINT id : {kDeleteBandCommand, kResetBandCommand, kEnableBandCommand})
        EXPECT_FALSE(item(id).enabled) << id;
    for (int type = 0; type <= 8; ++type)
        EXPECT_FALSE(item(kFirstBandTypeCommand + type).enabled) << type;
    for (UINT id : {kAddBandCommand, kResetAllBandsCommand, kFlipAllBandsCommand})
        EXPECT_TRUE(item(id).enabled) << id;
    EXPECT_TRUE(item(kEnableBandCommand).checked);
    EXPECT_TRUE(item(kFirstBandTypeCommand + LowShelf).checked);
}

TEST_F(ContextMenuTest, BandAltChecksNoTypeItem) {
    setBand(2, BandAlt, 1000.0, 2.0, 1.5);
    choose(0, 285, 30);
    for (int type = 0; type <= 8; ++type)
        EXPECT_FALSE(item(kFirstBandTypeCommand + type).checked) << type;
}

TEST_F(ContextMenuTest, AddNewBandLandsWhereTheUserClicked) {
    choose(kAddBandCommand, 450, 30);
    ASSERT_EQ(instance->bandCount(), 5);
    const BandSnapshot band = snapshotBand(instance, 4);
    EXPECT_EQ(band.type, Band);
    EXPECT_EQ(band.frequency, (std::exp(450 / (600 * 0.16683457378359495)) - 1.0) * 59.95 + 20.0);
    EXPECT_EQ(band.gain, std::exp(((120 - 30) * 24.0 / 120 - 12.0) * 0.11512925464970228));
    EXPECT_EQ(instance->selectedBand, 4);
}

TEST_F(ContextMenuTest, AddNewBandBelowTheGraphIsSilentAndOverAHandleStillAdds) {
    kobal_layer::queueMenuChoice(kAddBandCommand);  // the pointer is held below the view
    kobal::SendMessage(view, WM_RBUTTONDOWN, 0, static_cast<LPARAM>(125 << 16 | 450));
    EXPECT_EQ(snapshotBand(instance, 4).gain, kOffGraphGain);
    choose(kAddBandCommand, 285, 30);
    ASSERT_EQ(instance->bandCount(), 6);
    EXPECT_NEAR(snapshotBand(instance, 5).frequency, 1000.0, 20.0);
}

TEST_F(ContextMenuTest, DeleteBandRemovesTheBandUnderThePointer) {
    chooseOnBand2(kDeleteBandCommand);
    ASSERT_EQ(instance->bandCount(), 3);
    EXPECT_EQ(snapshotBand(instance, 2).type, HighShelf);
    ASSERT_EQ(paramListChanges().size(), 1u);
    EXPECT_EQ(paramListChanges()[0].first, 6);
    EXPECT_EQ(paramListChanges()[0].delta, -3);
}

TEST_F(ContextMenuTest, EnableBandTogglesAndTellsTheHostOnce) {
    chooseOnBand2(kEnableBandCommand);
    EXPECT_EQ(snapshotBand(instance, 2).enabled, 0);
    EXPECT_EQ(changeNotices(), 1);
    EXPECT_EQ(otherNotices(), 0);
    EXPECT_EQ(instance->dirtyFlags & 3u, 3u);
}

TEST_F(ContextMenuTest, ResetBandKeepsTypeFrequencyAndBandwidth) {
    chooseOnBand2(kResetBandCommand);
    const BandSnapshot band = snapshotBand(instance, 2);
    EXPECT_EQ(band.type, Band);
    EXPECT_EQ(band.frequency, 1000.0);
    EXPECT_EQ(band.gain, 1.0);
    EXPECT_EQ(band.bandwidth, 1.5);
    EXPECT_EQ(changeNotices(), 1);
    EXPECT_EQ(otherNotices(), 0);
}

TEST_F(ContextMenuTest, ResetAllBandsFlattensEveryBand) {
    setBand(0, LowShelf, 100.0, 3.0, 2.0);
    choose(kResetAllBandsCommand, 100, 10);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(snapshotBand(instance, i).gain, 1.0) << i;
    EXPECT_EQ(snapshotBand(instance, 0).frequency, 100.0);
    EXPECT_EQ(changeNotices(), 1);
}

TEST_F(ContextMenuTest, FlipAllBandsMirrorsGainsAroundZeroDecibels) {
    const double plusSix = std::exp(6.0 * 0.11512925464970228);
    setBand(0, LowShelf, 100.0, plusSix, 2.0);
    setBand(1, Band, 300.0, kOffGraphGain, 2.0);
    setBand(3, HighShelf, 5000.0, 1e-9, 2.0);
    choose(kFlipAllBandsCommand, 100, 10);
    EXPECT_EQ(snapshotBand(instance, 0).gain,
              std::exp(-(std::log(plusSix) * 8.685889638065037) * 0.11512925464970228));
    EXPECT_NEAR(snapshotBand(instance, 0).gain, 1.0 / plusSix, 1e-12);
    EXPECT_NEAR(snapshotBand(instance, 1).gain, 1000000.0, 1e-3);
    EXPECT_EQ(snapshotBand(instance, 2).gain, 0.5);
    EXPECT_EQ(snapshotBand(instance, 3).gain, 31622776.601683773);
    EXPECT_EQ(changeNotices(), 1);
}

TEST_F(ContextMenuTest, BandTypeItemsRetypeTheBand) {
    chooseOnBand2(kFirstBandTypeCommand + BandAlt2);
    EXPECT_EQ(snapshotBand(instance, 2).type, BandAlt2);
    chooseOnBand2(kFirstBandTypeCommand + HighPass);
    EXPECT_EQ(snapshotBand(instance, 2).type, HighPass);
    EXPECT_EQ(snapshotBand(instance, 2).frequency, 1000.0);
    EXPECT_EQ(changeNotices(), 2);
    EXPECT_EQ(otherNotices(), 0);
}

TEST_F(ContextMenuTest, BandCommandsWithoutAValidSelectionDoNothing) {
    instance->selectedBand = 7;
    runContextCommand(*instance, view, kResetBandCommand, 1000.0, 1.0);
    runContextCommand(*instance, view, kEnableBandCommand, 1000.0, 1.0);
    runContextCommand(*instance, view, kFirstBandTypeCommand + Notch, 1000.0, 1.0);
    EXPECT_EQ(snapshotBand(instance, 2).gain, 2.0);
    EXPECT_TRUE(notices().empty());
}

}  // namespace
