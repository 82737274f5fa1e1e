// The readout of the band under the pointer: its text and where the box goes.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "contracts/mura.h"
#include "engine/eq_band.h"
#include "host/ui/input_injection.h"
#include "plugin/ui_layer.h"
#include "tests/editor/response_view_fixture.h"
#include "view/hover_readout.h"

namespace {

std::string readout(int32_t type, double frequency, double gain, double bandwidth, bool enabled,
                    int index) {
    EqBand band{};
    band.type = type;
    band.frequency = frequency;
    band.gain = gain;
    band.bandwidth = bandwidth;
    band.enabled = enabled ? 1 : 0;
    char text[1024];
    formatReadout(text, sizeof text, band, index);
    return text;
}

const double kPlusThreeDb = std::exp(3.0 * 0.11512925464970228);

TEST(HoverReadoutText, NamesTypeNumberAndValues) {
    EXPECT_EQ(readout(Band, 1000.0, kPlusThreeDb, 1.0, true, 1), "Band 2: 3.0dB 1000.0Hz 1.00 oct");
    EXPECT_EQ(readout(Band, 1000.0, kPlusThreeDb, 1.0, false, 1),
              "DISABLED:Band 2: 3.0dB 1000.0Hz 1.00 oct");
    EXPECT_EQ(readout(LowShelf, 80.25, 0.5, 2.0, true, 0), "Low Shelf 1: -6.0dB 80.2Hz 2.00 oct");
}

TEST(HoverReadoutText, GainlessTypesShowNoDecibels) {
    EXPECT_EQ(readout(LowPass, 5000.0, 3.0, 0.5, true, 3), "Low Pass 4: 5000.0Hz 0.50 oct");
    EXPECT_EQ(readout(Notch, 60.0, 3.0, 0.1, false, 0), "DISABLED:Notch 1: 60.0Hz 0.10 oct");
}

TEST(HoverReadoutText, GainsAreHeldBetweenTheFloorAndSixtyFour) {
    EXPECT_EQ(readout(Band, 100.0, 1.0000000000000004e-06, 1.0, true, 0),
              "Band 1: -120.0dB 100.0Hz 1.00 oct");
    EXPECT_EQ(readout(Band, 100.0, 1000000.0, 1.0, true, 0), "Band 1: 36.1dB 100.0Hz 1.00 oct");
    EXPECT_EQ(readout(Band, 100.0, 1e-9, 1.0, true, 0), "Band 1: -150.0dB 100.0Hz 1.00 oct");
}

TEST(HoverReadoutPlacement, BoxSitsRightOfAndBelowThePointer) {
    const RECT box = placeReadout(POINT{100, 20}, RECT{0, 0, 600, 120}, 80, 12);
    EXPECT_EQ(box.left, 130);
    EXPECT_EQ(box.top, 28);
    EXPECT_EQ(box.right, 210);
    EXPECT_EQ(box.bottom, 40);
    EXPECT_EQ(placeReadout(POINT{-5, 20}, RECT{0, 0, 600, 120}, 80, 12).left, 30);
}

TEST(HoverReadoutPlacement, BoxFlipsLeftNearTheRightEdgeWhenThereIsRoom) {
    const RECT box = placeReadout(POINT{500, 20}, RECT{0, 0, 600, 120}, 80, 12);
    EXPECT_EQ(box.left, 390);
    EXPECT_EQ(box.right, 470);
    const RECT cramped = placeReadout(POINT{100, 20}, RECT{0, 0, 150, 120}, 80, 12);
    EXPECT_EQ(cramped.left, 130);  // no room on the left either
}

TEST(HoverReadoutPlacement, BoxIsLiftedAboveTheBottomAndKeptBelowRowZero) {
    const RECT low = placeReadout(POINT{100, 110}, RECT{0, 0, 600, 120}, 80, 12);
    EXPECT_EQ(low.top, 107);
    EXPECT_EQ(low.bottom, 119);
    const RECT tiny = placeReadout(POINT{100, 0}, RECT{0, 0, 600, 10}, 80, 12);
    EXPECT_EQ(tiny.top, 1);
}

class HoverReadoutPaintTest : public ResponseViewTest {};

TEST_F(HoverReadoutPaintTest, HoveredHandleGetsAFramedBoxWithText) {
    openView(600, 120);
    instance->showGrid = 0;
    silenceAllBands();
    setBand(2, Band, 1000.0, 1.0, 1.0);
    kobal_layer::moveMouse(screenPoint(285, 60));
    ASSERT_EQ(instance->hoverBand, 2);
    paint();
    const uint32_t border = 0xff000000 | (kobal::GetSysColor(9) & 0xffffff);
    const uint32_t background = 0xff000000 | (kobal::GetSysColor(8) & 0xffffff);
    ASSERT_NE(border, background);
    EXPECT_EQ(pixel(285 + 30 - 2, 60 + 8 + 3), border);      // left edge of the frame
    EXPECT_EQ(pixel(285 + 30 - 1, 60 + 8 + 3), background);  // inside it
    EXPECT_GT(countPixels(background, 315, 68, 500, 90), 100);
    kobal_layer::moveMouse(screenPoint(100, 20));
    paint();
    EXPECT_EQ(countPixels(background, 315, 68, 500, 90), 0);
}

}  // namespace
