// Editing bands on the graph through the host's input injection: dragging
// handles, the right-click menu, the readout text, and what the host hears.
#include <cmath>
#include <utility>

#include "host/ui/input_injection.h"
#include "host/ui/menus.h"
#include "host/ui/pointer_and_keys.h"
#include "tests/editor/editor_fixture.h"
#include "view/band_hit_test.h"
#include "view/context_menu.h"
#include "view/hover_readout.h"

namespace {

using kobal_layer::MouseButton;

// The axes of a 600 by 120 graph with the tabs shown (±12 dB), written out.
double hzAt(int x) { return (std::exp(x / (600 * 0.16683457378359495)) - 1.0) * 59.95 + 20.0; }
double dbAt(int y) { return (120 - y) * 24.0 / 120 - 12.0; }
double ampAt(int y) { return std::exp(dbAt(y) * kLogPerDb); }

using Notices = std::vector<std::pair<int32_t, int32_t>>;  // opcode, index

// Band 3 (index 2) is a flat bell at 1 kHz: its handle is at (285, 60).
class GraphEditingTest : public EditorTest {
protected:
    void SetUp() override {
        EditorTest::SetUp();
        resizeGraph(600, 120);
        setBand(2, Band, 1000.0, 1.0, 1.0);
        clearNotices();
    }
    void press(int x, int y) { kobal_layer::pressMouse(MouseButton::left, screenPoint(x, y)); }
    void move(int x, int y) { kobal_layer::moveMouse(screenPoint(x, y)); }
    void release(int x, int y) { kobal_layer::releaseMouse(MouseButton::left, screenPoint(x, y)); }
    Notices gestureNotices() const {
        Notices result;
        for (const HostNotice& n : notices())
            if (n.index >= 0) // edits of parameters, not the general change notice
                result.emplace_back(n.opcode, n.index);
        return result;
    }
    int hit(int x, int y) { return hitTestBand(*instance, view, x, y, nullptr, true); }
    // Right-clicks at a point of the graph and picks `command` (0: dismisses).
    void choose(UINT command, int x = 285, int y = 60) {
        kobal_layer::queueMenuChoice(command);
        kobal_layer::pressMouse(MouseButton::right, screenPoint(x, y));
        kobal_layer::releaseMouse(MouseButton::right, screenPoint(x, y));
    }
    kobal_layer::MenuItemView item(UINT id) const {
        const std::optional<kobal_layer::MenuView> menu = kobal_layer::lastTrackedMenu();
        EXPECT_TRUE(menu.has_value());
        if (menu)
            for (const kobal_layer::MenuItemView& entry : *menu)
                if (entry.commandId == id && !entry.separator) return entry;
        return kobal_layer::MenuItemView{};
    }
};

// No key moves frequency and gain; Shift doubles the bandwidth every 50
// pixels (a zero bandwidth stays zero); Control holds the frequency and
// moves the gain a tenth as fast; Alt holds the gain and moves the frequency
// a fifth as fast. The host hears each changed parameter, then its end.
TEST_F(GraphEditingTest, ModifierKeysChooseWhatADragChangesAndHowFast) {
    const double zeroDb = std::log(ampAt(60)) * kDbPerLog;
    const double fineDb = 0.1 * std::log(ampAt(40)) * kDbPerLog + 0.9 * zeroDb;
    struct Case {
        int key, toX, toY;
        double bandwidthBefore, frequency, gain, bandwidth;
        Notices edits;
    };
    const Case cases[] = {
        {0, 300, 50, 1.0, 1000.0 * hzAt(300) / hzAt(285),
         std::exp((std::log(ampAt(50)) * kDbPerLog - zeroDb) * kLogPerDb), 1.0,
         {{audioMasterAutomate, 6}, {audioMasterAutomate, 7}, {audioMasterEndEdit, 6},
          {audioMasterEndEdit, 7}}},
        {VK_SHIFT, 335, 90, 1.0, 1000.0, 1.0, 2.0, {{audioMasterAutomate, 8}, {audioMasterEndEdit, 8}}},
        {VK_SHIFT, 400, 60, 0.0, 1000.0, 1.0, 0.0, {{audioMasterAutomate, 8}, {audioMasterEndEdit, 8}}},
        {VK_CONTROL, 500, 40, 1.0, 1000.0, std::exp((fineDb - zeroDb) * kLogPerDb), 1.0,
         {{audioMasterAutomate, 7}, {audioMasterEndEdit, 7}}},
        {VK_MENU, 345, 20, 1.0, 1000.0 * (0.2 * hzAt(345) + 0.8 * hzAt(285)) / hzAt(285), 1.0, 1.0,
         {{audioMasterAutomate, 6}, {audioMasterEndEdit, 6}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        setBand(2, Band, 1000.0, 1.0, c.bandwidthBefore);
        clearNotices();
        if (c.key) kobal_layer::holdKey(c.key, true);
        press(285, 60);
        EXPECT_EQ(kobal::GetCapture(), view);
        move(c.toX, c.toY);
        release(c.toX, c.toY);
        if (c.key) kobal_layer::holdKey(c.key, false);
        EXPECT_EQ(kobal::GetCapture(), nullptr);
        EXPECT_EQ(instance->selectedBand, 2);
        EXPECT_EQ(band(2).frequency, c.frequency);
        EXPECT_EQ(band(2).gain, c.gain);
        EXPECT_EQ(band(2).bandwidth, c.bandwidth);
        EXPECT_EQ(gestureNotices(), c.edits);
    }
}

// The selected band first, then the higher index; band 1 (100 Hz, column
// 84) is found too. Handles are hit from 7 pixels away, edge handles (a
// notch at the bottom, +30 dB above the top) from 7 pixels inside the edge.
TEST_F(GraphEditingTest, HitTestPrefersTheSelectionThenTheHigherIndexWithinSevenPixels) {
    setBand(1, Band, 1000.0, 1.0, 1.0);
    instance->selectedBand = 0;
    EXPECT_EQ(hit(287, 62), 2);
    instance->selectedBand = 1;
    EXPECT_EQ(hit(287, 62), 1);
    EXPECT_EQ(hit(84, 60), 0);
    EXPECT_EQ(hit(285 + 8, 60), -1);
    EXPECT_EQ(hit(285, 60 - 8), -1);
    setBand(2, Notch, 1000.0, 1.0, 1.0);
    EXPECT_EQ(hit(285, 114), 2);
    EXPECT_EQ(hit(285, 140), 2);
    EXPECT_EQ(hit(285, 112), -1);
    setBand(2, Band, 1000.0, std::exp(30.0 * kLogPerDb), 1.0);
    EXPECT_EQ(hit(285, 6), 2);
    EXPECT_EQ(hit(285, 8), -1);
}

// On empty space the band items are grey, yet the selected band 1 (a low
// shelf) keeps its checks, and "Add new band" puts a bell where the user
// clicked. On band 3 each command changes what it names and tells the host
// once; "Delete band" also tells it of the shorter parameter list.
TEST_F(GraphEditingTest, ContextMenuCommandsActWhereTheUserClicked) {
    instance->selectedBand = 0;
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
    choose(kAddBandCommand, 450, 30);
    EXPECT_EQ(instance->selectedBand, 4);
    EXPECT_EQ(band(4).type, Band);
    EXPECT_EQ(band(4).frequency, hzAt(450));
    EXPECT_EQ(band(4).gain, ampAt(30));
    setBand(2, Band, 1000.0, 2.0, 1.5);  // handle at row 30
    clearNotices();
    choose(kResetBandCommand, 285, 30);
    EXPECT_EQ(band(2).gain, 1.0);
    EXPECT_EQ(band(2).bandwidth, 1.5);
    choose(kEnableBandCommand);
    EXPECT_EQ(band(2).enabled, 0);
    choose(kFirstBandTypeCommand + HighPass);
    EXPECT_EQ(band(2).type, HighPass);
    EXPECT_EQ(notices().size(), 3u);
    EXPECT_EQ(countNotices(audioMasterAutomate, -1), 3);
    choose(kDeleteBandCommand, 285, 90);  // a pass filter's handle sits three quarters down
    ASSERT_EQ(instance->bandCount(), 4);
    EXPECT_EQ(band(2).type, HighShelf);
    EXPECT_TRUE(notices().at(3).isListChange(6, -3));
}

TEST_F(GraphEditingTest, FlipAllBandsMirrorsGainsAroundZeroDecibels) {
    const double plusSix = std::exp(6.0 * kLogPerDb);
    setBand(0, LowShelf, 100.0, plusSix, 2.0);
    setBand(1, Band, 300.0, kOffGraphGain, 2.0);
    setBand(2, Band, 1000.0, 2.0, 1.5);
    setBand(3, HighShelf, 5000.0, 1e-9, 2.0);
    choose(kFlipAllBandsCommand, 100, 10);
    EXPECT_NEAR(band(0).gain, 1.0 / plusSix, 1e-12);
    EXPECT_NEAR(band(1).gain, 1000000.0, 1e-3);
    EXPECT_EQ(band(2).gain, 0.5);
    EXPECT_EQ(band(3).gain, 31622776.601683773);
    EXPECT_EQ(countNotices(audioMasterAutomate, -1), 1);
}

std::string readout(int32_t type, double hz, double gain, double octaves, int32_t enabled,
                    int index) {
    EqBand band{};
    band.type = type;
    band.frequency = hz;
    band.gain = gain;
    band.bandwidth = octaves;
    band.enabled = enabled;
    char text[128];
    formatReadout(text, sizeof text, band, index);
    return text;
}

// Gainless types show no decibels; gains are held between -150 dB and 64.
TEST(HoverReadoutText, NamesTypeNumberAndValues) {
    const double plusThree = std::exp(3.0 * kLogPerDb);
    EXPECT_EQ(readout(Band, 1000.0, plusThree, 1.0, 1, 1), "Band 2: 3.0dB 1000.0Hz 1.00 oct");
    EXPECT_EQ(readout(LowShelf, 80.25, 0.5, 2.0, 1, 0), "Low Shelf 1: -6.0dB 80.2Hz 2.00 oct");
    EXPECT_EQ(readout(LowPass, 5000.0, 3.0, 0.5, 1, 3), "Low Pass 4: 5000.0Hz 0.50 oct");
    EXPECT_EQ(readout(Notch, 60.0, 3.0, 0.1, 0, 0), "DISABLED:Notch 1: 60.0Hz 0.10 oct");
    EXPECT_EQ(readout(Band, 100.0, kOffGraphGain, 1.0, 1, 0), "Band 1: -120.0dB 100.0Hz 1.00 oct");
    EXPECT_EQ(readout(Band, 100.0, 64e6, 1.0, 1, 0), "Band 1: 36.1dB 100.0Hz 1.00 oct");
    EXPECT_EQ(readout(Band, 100.0, 1e-9, 1.0, 1, 0), "Band 1: -150.0dB 100.0Hz 1.00 oct");
}

}  // namespace
