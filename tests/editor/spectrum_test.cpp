// The live spectra: a tone through the host's real FFT drawn at its level
// and column, and how long the paint keeps showing it.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "host/ui/host_clock.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_fixture.h"

namespace {

constexpr uint32_t kBlack = 0xff000000;

class SpectrumDisplayTest : public EditorTest {};

// The whole path through the host's real FFT: a steady tone exactly at bin 9
// of the 2048-point analysis (193.8 Hz at 44.1 kHz), amplitude 0.5, is drawn
// with its level, 20 log10(0.5 / 2) = -12.04 dB (the window sums to 1), at
// the column of its level entry (entry 8 holds bin 9, placed at 8 × 22050 /
// 1024 Hz). Grid and bands are off, so the curve is the only thing above the
// flat strip at the centre.
TEST_F(SpectrumDisplayTest, ToneAtAKnownBinShowsItsLevelAtItsColumn) {
    constexpr int kWidth = 1200, kHeight = 240, kBin = 9, kFrames = 4096;
    constexpr double kAmplitude = 0.5;
    openView(kWidth, kHeight);
    instance->showGrid = 0;
    silenceAllBands();
    std::vector<double> tone(kFrames);
    for (int n = 0; n < kFrames; ++n)
        tone[n] = kAmplitude * std::cos(2.0 * 3.141592653589793 * kBin * n / 2048.0);
    process(tone);
    paint();
    ASSERT_NE(instance->spectrumDrawnTick, 0u);

    const double entryHz = (kBin - 1) * static_cast<double>(static_cast<float>(22050.0 / 1024.0));
    const int column = static_cast<int>(std::log((entryHz - 20.0) / 59.95 + 1.0) /
                                            5.993961427306569 * kWidth + 0.5);
    // The highest drawn row between the top edge and the centre strip, and
    // the middle of the columns that reach it.
    int topRow = kHeight, first = -1, last = -1;
    for (int x = 0; x < kWidth; ++x)
        for (int y = 0; y < kHeight / 2 - 10 && y <= topRow; ++y)
            if (pixel(x, y) != kBlack) {
                if (y < topRow) first = x;
                topRow = y;
                last = x;
                break;
            }
    const double expectedDb = 20.0 * std::log10(kAmplitude / 2.0);
    const double pixelsPerDb = kHeight / 120.0;
    EXPECT_NEAR((first + last) / 2, column, 2);
    // The curve bends between level points, so its top lies a little below the level.
    EXPECT_NEAR(-topRow / pixelsPerDb, expectedDb, 2.0);
}

TEST_F(SpectrumDisplayTest, SpectraShowForOneSecondAfterTheLastBlockAndNotWithoutAudio) {
    openView(600, 120);
    paint();
    EXPECT_EQ(instance->spectrumTick.load(), 0u);
    EXPECT_EQ(instance->spectrumDrawnTick, 0u);
    process(std::vector<double>(512, 0.0));
    const uint32_t tick = instance->spectrumTick.load();
    ASSERT_NE(tick, 0u);
    paint();
    EXPECT_EQ(instance->spectrumDrawnTick, tick);
    kobal_layer::advanceTestClock(999);
    paint();
    EXPECT_EQ(instance->spectrumTick.load(), tick);
    kobal_layer::advanceTestClock(1);
    paint();
    EXPECT_EQ(instance->spectrumTick.load(), 0u);
    EXPECT_EQ(instance->spectrumDrawnTick, 0u);
}

}  // namespace
