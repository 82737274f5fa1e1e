// Editing bands with the mouse through the host's input injection: hit
// testing, dragging frequency and gain (fine and locked with Ctrl and Alt),
// bandwidth with Shift, the host notices of a drag, double click, wheel and
// cursor.
#include <gtest/gtest.h>

#include <cmath>

#include "engine/eq_band.h"
#include "host/ui/input_injection.h"
#include "host/ui/pointer_and_keys.h"
#include "plugin/ui_layer.h"
#include "tests/editor/response_view_fixture.h"
#include "view/band_hit_test.h"

namespace {

using kobal_layer::MouseButton;

constexpr int kWidth = 600;
constexpr int kHeight = 120;

// The axes of a 600 by 120 graph with the tabs shown (±12 dB), written out.
double hzAt(int x) { return (std::exp(x / (kWidth * 0.16683457378359495)) - 1.0) * 59.95 + 20.0; }
double dbAt(int y) { return (kHeight - y) * 24.0 / kHeight - 12.0; }
double ampAt(int y) { return std::exp(dbAt(y) * 0.11512925464970228); }
double dbOf(double amplitude) { return std::log(amplitude) * 8.685889638065037; }
float logNormalized(double hz) {
    return static_cast<float>(
        std::log((hz - 20.0) * 4.170141784820684e-5 * 400.0 + 1.0) * 0.16683457378359495);
}

struct Notice {
    int32_t opcode;
    int32_t index;
    bool operator==(const Notice&) const = default;
};

class MouseEditingTest : public ResponseViewTest {
protected:
    void SetUp() override {
        ResponseViewTest::SetUp();
        openView(kWidth, kHeight);
        silenceAllBands();
        setBand(2, Band, 1000.0, 1.0, 1.0);  // handle at (285, 60)
        clearNotices();
    }
    void TearDown() override {
        kobal_layer::releaseAllKeys();
        ResponseViewTest::TearDown();
    }
    void press(int x, int y) { kobal_layer::pressMouse(MouseButton::left, screenPoint(x, y)); }
    void move(int x, int y) { kobal_layer::moveMouse(screenPoint(x, y)); }
    void release(int x, int y) { kobal_layer::releaseMouse(MouseButton::left, screenPoint(x, y)); }
    void drag(int fromX, int fromY, int toX, int toY) {
        press(fromX, fromY);
        move(toX, toY);
        release(toX, toY);
    }
    std::vector<Notice> gestureNotices() const {
        std::vector<Notice> result;
        for (const HostNotice& n : notices())
            if (n.opcode == audioMasterAutomate || n.opcode == audioMasterBeginEdit ||
                n.opcode == audioMasterEndEdit)
                result.push_back(Notice{n.opcode, n.index});
        return result;
    }
    int hit(int x, int y) { return hitTestBand(*instance, view, x, y, nullptr, true); }
};

TEST_F(MouseEditingTest, DragMovesFrequencyAndGainAndReportsThemToTheHost) {
    press(285, 60);
    EXPECT_EQ(instance->selectedBand, 2);
    EXPECT_EQ(instance->hoverBand, 2);
    EXPECT_EQ(kobal::GetCapture(), view);
    move(300, 50);
    const BandSnapshot band = snapshotBand(instance, 2);
    const double frequency = 1000.0 * hzAt(300) / hzAt(285);
    EXPECT_EQ(band.frequency, frequency);
    const double newDb = 0.0 + (dbOf(ampAt(50)) - dbOf(ampAt(60)));
    EXPECT_EQ(band.gain, std::exp(newDb * 0.11512925464970228));
    EXPECT_NEAR(band.gain, std::exp(2.0 * 0.11512925464970228), 1e-12);  // +2 dB
    EXPECT_EQ(instance->hoverFlags, 3);
    const std::vector<HostNotice> during = notices();
    ASSERT_EQ(during.size(), 2u);
    EXPECT_EQ(during[0].opt, logNormalized(frequency));
    EXPECT_EQ(during[1].opt, static_cast<float>(0.25 * band.gain));
    release(300, 50);
    EXPECT_EQ(gestureNotices(),
              (std::vector<Notice>{{audioMasterAutomate, 6}, {audioMasterAutomate, 7},
                                   {audioMasterEndEdit, 6}, {audioMasterEndEdit, 7}}));
    EXPECT_EQ(instance->hoverBand, -1);
    EXPECT_EQ(instance->hoverFlags, 0);
    EXPECT_EQ(kobal::GetCapture(), nullptr);
}

TEST_F(MouseEditingTest, PressOnEmptySpaceSelectsNothingAndCapturesNothing) {
    instance->selectedBand = 0;
    press(100, 20);
    EXPECT_EQ(instance->selectedBand, 0);
    EXPECT_EQ(kobal::GetCapture(), nullptr);
    move(150, 30);
    EXPECT_EQ(snapshotBand(instance, 2).frequency, 1000.0);
    EXPECT_TRUE(gestureNotices().empty());
}

TEST_F(MouseEditingTest, ShiftDragDoublesTheBandwidthEveryFiftyPixelsButKeepsZeroAtZero) {
    kobal_layer::holdKey(VK_SHIFT, true);
    drag(285, 60, 335, 90);
    const BandSnapshot band = snapshotBand(instance, 2);
    EXPECT_EQ(band.bandwidth, 2.0);
    EXPECT_EQ(band.frequency, 1000.0);
    EXPECT_EQ(band.gain, 1.0);
    EXPECT_EQ(gestureNotices(),
              (std::vector<Notice>{{audioMasterAutomate, 8}, {audioMasterEndEdit, 8}}));
    setBand(2, Band, 1000.0, 1.0, 0.0);  // a zero bandwidth stays zero
    drag(285, 60, 400, 60);
    EXPECT_EQ(snapshotBand(instance, 2).bandwidth, 0.0);
}

TEST_F(MouseEditingTest, CtrlLocksTheFrequencyAndMakesTheGainFine) {
    kobal_layer::holdKey(VK_CONTROL, true);
    drag(285, 60, 500, 40);
    const BandSnapshot band = snapshotBand(instance, 2);
    EXPECT_EQ(band.frequency, 1000.0);
    const double before = dbOf(ampAt(60));
    const double fine = 0.1 * dbOf(ampAt(40)) + 0.9 * before;
    EXPECT_EQ(band.gain, std::exp((0.0 + (fine - before)) * 0.11512925464970228));
    EXPECT_EQ(gestureNotices(),
              (std::vector<Notice>{{audioMasterAutomate, 7}, {audioMasterEndEdit, 7}}));
}

TEST_F(MouseEditingTest, AltLocksTheGainAndMakesTheFrequencyFine) {
    kobal_layer::holdKey(VK_MENU, true);
    drag(285, 60, 345, 20);
    const BandSnapshot band = snapshotBand(instance, 2);
    EXPECT_EQ(band.gain, 1.0);
    EXPECT_EQ(band.frequency, 1000.0 * (0.2 * hzAt(345) + 0.8 * hzAt(285)) / hzAt(285));
}

TEST_F(MouseEditingTest, DraggingBelowTheBottomSilencesTheBandAndBackBringsItToTheEdge) {
    press(285, 60);
    move(285, 131);  // -14.2 dB: more than one dB under the bottom edge
    EXPECT_EQ(snapshotBand(instance, 2).gain, kOffGraphGain);
    move(285, 116);  // -11.2 dB: not yet one dB inside the graph
    EXPECT_EQ(snapshotBand(instance, 2).gain, kOffGraphGain);
    move(285, 110);  // -10 dB
    EXPECT_EQ(snapshotBand(instance, 2).gain, std::exp(-12.0 * 0.11512925464970228));
    release(285, 110);
}

TEST_F(MouseEditingTest, DragPastTheRightEdgeHoldsFrequencyAtTheTop) {
    setBand(2, Band, 20000.0, 1.0, 1.0);
    const int x = static_cast<int>(std::log(19980.0 / 23980.0 * 400.0 + 1.0) * kWidth *
                                   0.16683457378359495);
    press(x, 60);
    ASSERT_EQ(instance->hoverBand, 2);
    kobal::SendMessage(view, WM_MOUSEMOVE, 0, static_cast<LPARAM>(60 << 16 | 900));
    EXPECT_EQ(snapshotBand(instance, 2).frequency, 24000.0);
    release(x, 60);
}

TEST_F(MouseEditingTest, SelectedBandWinsTheHitThenTheHigherIndex) {
    setBand(1, Band, 1000.0, 1.0, 1.0);
    instance->selectedBand = 0;
    EXPECT_EQ(hit(287, 62), 2);
    instance->selectedBand = 1;
    EXPECT_EQ(hit(287, 62), 1);
    EXPECT_EQ(hit(285 + 8, 60), -1);
    EXPECT_EQ(hit(285, 60 - 8), -1);
}

TEST_F(MouseEditingTest, EdgeHandlesAreHitFromWithinSevenPixelsOfTheirEdge) {
    setBand(2, Notch, 1000.0, 1.0, 1.0);
    EXPECT_EQ(hit(285, 114), 2);
    EXPECT_EQ(hit(285, 140), 2);
    EXPECT_EQ(hit(285, 112), -1);
    setBand(2, Band, 1000.0, std::exp(30.0 * 0.11512925464970228), 1.0);  // +30 dB
    EXPECT_EQ(hit(285, 6), 2);
    EXPECT_EQ(hit(285, 8), -1);
}

TEST_F(MouseEditingTest, ClickPointValuesReadTheAxesAndClampBelowTheGraph) {
    PointValues values{};
    hitTestBand(*instance, view, 300, 50, &values, true);
    EXPECT_EQ(values.frequency, hzAt(300));
    EXPECT_EQ(values.amplitude, ampAt(50));
    hitTestBand(*instance, view, 300, 125, &values, true);
    EXPECT_EQ(values.amplitude, kOffGraphGain);
    hitTestBand(*instance, view, 300, 125, &values, false);
    EXPECT_EQ(values.amplitude, ampAt(125));
}

TEST_F(MouseEditingTest, DoubleClickTogglesTheBandWithoutTellingTheHost) {
    kobal_layer::doubleClickMouse(screenPoint(285, 60));
    EXPECT_EQ(snapshotBand(instance, 2).enabled, 0);
    EXPECT_EQ(instance->dirtyFlags & 3u, 3u);
    kobal_layer::doubleClickMouse(screenPoint(285, 60));
    EXPECT_EQ(snapshotBand(instance, 2).enabled, 1);
    EXPECT_TRUE(gestureNotices().empty());
}

TEST_F(MouseEditingTest, WheelWidensOrNarrowsByOneStepPerMessage) {
    kobal_layer::turnWheel(screenPoint(285, 60), 120);
    EXPECT_EQ(snapshotBand(instance, 2).bandwidth, 1.2);
    kobal_layer::turnWheel(screenPoint(285, 60), 240);
    EXPECT_EQ(snapshotBand(instance, 2).bandwidth, 1.2 + 0.2);
    kobal_layer::turnWheel(screenPoint(285, 60), -120);
    EXPECT_EQ(snapshotBand(instance, 2).bandwidth, 1.2 + 0.2 - 0.2);
    kobal_layer::turnWheel(screenPoint(100, 20), 120);  // over no handle
    EXPECT_EQ(snapshotBand(instance, 2).bandwidth, 1.2 + 0.2 - 0.2);
    setBand(2, Band, 1000.0, 1.0, 0.0);
    kobal_layer::turnWheel(screenPoint(285, 60), 120);
    EXPECT_EQ(snapshotBand(instance, 2).bandwidth, 0.2);
    setBand(2, Band, 1000.0, 1.0, 3.9);
    kobal_layer::turnWheel(screenPoint(285, 60), 120);
    EXPECT_EQ(snapshotBand(instance, 2).bandwidth, 4.0);
    EXPECT_TRUE(gestureNotices().empty());
}

TEST_F(MouseEditingTest, HandCursorOverHandlesAndArrowElsewhere) {
    move(285, 60);
    EXPECT_EQ(kobal_layer::cursorIdOf(kobal_layer::currentCursor()), kobal_layer::IDC_HAND);
    EXPECT_EQ(instance->hoverBand, 2);
    move(100, 20);
    EXPECT_EQ(kobal_layer::cursorIdOf(kobal_layer::currentCursor()), kobal_layer::IDC_ARROW);
    EXPECT_EQ(instance->hoverBand, -1);
}

TEST_F(MouseEditingTest, HoverChangeEndsAnEditWhoseButtonUpWasLost) {
    press(285, 60);
    move(290, 55);
    kobal::ReleaseCapture();  // the button-up never arrives
    clearNotices();
    move(100, 20);
    EXPECT_EQ(gestureNotices(),
              (std::vector<Notice>{{audioMasterEndEdit, 6}, {audioMasterEndEdit, 7}}));
    EXPECT_EQ(instance->hoverBand, -1);
    EXPECT_EQ(instance->hoverFlags, 0);
}

}  // namespace
