// The live spectra: the curve through the level points, where it ends on
// the frequency axis, and when the paint shows it at all.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "contracts/mura.h"
#include "engine/audio_processing.h"
#include "engine/live_analyzer.h"
#include "host/ui/host_clock.h"
#include "plugin/host_imports.h"
#include "plugin/ui_layer.h"
#include "tests/editor/response_view_fixture.h"
#include "view/analyzer_curves.h"

namespace {

constexpr uint32_t kBlack = 0xff000000;

std::vector<float> columnsThrough(const std::vector<SpectrumPoint>& points, int width,
                                  int* last = nullptr) {
    std::vector<float> columns(width + 4, -1.0f);
    const int end = interpolateSpectrumColumns(points.data(), static_cast<int>(points.size()),
                                               width, columns.data());
    if (last) *last = end;
    return columns;
}

TEST(SpectrumCurveColumns, TwoPointsGiveAStraightLine) {
    int last = 0;
    const std::vector<float> c = columnsThrough({{0, 10.0f}, {10, 20.0f}}, 20, &last);
    EXPECT_EQ(last, 10);
    for (int k = 0; k < 10; ++k) EXPECT_EQ(c[k], 10.0f + k) << k;
    EXPECT_EQ(c[10], -1.0f);  // nothing past the last point
}

TEST(SpectrumCurveColumns, EqualLevelsStayFlat) {
    const std::vector<float> c = columnsThrough({{0, 5.0f}, {4, 5.0f}, {8, 5.0f}, {12, 5.0f}}, 20);
    for (int k = 0; k < 12; ++k) EXPECT_EQ(c[k], 5.0f) << k;
}

TEST(SpectrumCurveColumns, InnerPointsBendTheCurveBetweenMidpoints) {
    int last = 0;
    const std::vector<float> c = columnsThrough({{0, 0.0f}, {10, 10.0f}, {20, 0.0f}}, 30, &last);
    EXPECT_EQ(last, 20);
    for (int k = 0; k < 5; ++k) EXPECT_EQ(c[k], static_cast<float>(k)) << k;
    for (int k = 5; k < 15; ++k) {
        const double t = (k - 5) / 10.0;  // the control point lies midway: t is linear
        EXPECT_FLOAT_EQ(c[k], static_cast<float>(5.0 + 10.0 * t * (1.0 - t))) << k;
    }
    for (int k = 15; k < 20; ++k) EXPECT_EQ(c[k], static_cast<float>(5.0 - (k - 15))) << k;
}

TEST(SpectrumCurveColumns, NeverWritesPastTheWidth) {
    const std::vector<float> c = columnsThrough({{0, 1.0f}, {3, 2.0f}, {9, 3.0f}}, 6);
    for (int k = 6; k < 10; ++k) EXPECT_EQ(c[k], -1.0f) << k;
    EXPECT_EQ(interpolateSpectrumColumns(nullptr, 0, 6, nullptr), 0);
}

class SpectrumDisplayTest : public ResponseViewTest {
protected:
    void SetUp() override {
        ResponseViewTest::SetUp();
        bitmap.reset(hostExtensions.createBitmap(1, 600, 240));
        ASSERT_TRUE(bitmap);
    }
    // Levels that updateSpectrum hands back as they are (no new samples).
    void setLevels(double db) {
        SpectrumAnalyzer& analyzer = instance->outputAnalyzer;
        analyzer.hasNewData = 0;
        for (double& level : analyzer.levelsDb) level = db;
    }
    void draw(double topFrequency) {
        drawSpectrum(instance->outputAnalyzer, bitmap.get(), 0xffffff40, 0.75, topFrequency,
                     -120.0, 0.0);
    }
    uint32_t at(int x, int y) const { return bitmap->pixels()[y * bitmap->rowSpan() + x]; }
    void processSilence() {
        std::vector<double> buffer(512, 0.0), out(512);
        double* inputs[] = {buffer.data(), buffer.data()};
        double* outputs[] = {out.data(), out.data()};
        processDoubleReplacing(&instance->effect, inputs, outputs, 512);
    }
    std::unique_ptr<MuraBitmap> bitmap;
};

TEST_F(SpectrumDisplayTest, CurveEndsShortOfTheRightEdgeAtFortyFourKilohertzOnly) {
    setLevels(-60.0);  // row 120 of 240
    draw(22050.0);
    const double binWidth = static_cast<float>(22050.0 * 0.0009765625);
    const int last = static_cast<int>(std::log((1023 * binWidth - 20.0) / 59.95 + 1.0) *
                                      0.16683457378359495 * 600 + 0.5);
    EXPECT_LT(last, 595);
    for (int x : {0, 100, 300, last - 1}) EXPECT_NE(at(x, 120), kBlack) << x;
    for (int x = last + 1; x < 600; ++x) EXPECT_EQ(at(x, 120), kBlack) << x;
    EXPECT_EQ(at(300, 110), kBlack);
    draw(48000.0);  // at 96 kHz it runs to the right edge
    EXPECT_NE(at(598, 120), kBlack);
}

TEST_F(SpectrumDisplayTest, BottomLevelLiesOnTheBottomEdgeAndLoudLevelsAboveTheTop) {
    setLevels(-119.5);  // row 239, the last row of the bitmap
    draw(22050.0);
    EXPECT_NE(at(300, 239), kBlack);
    hostExtensions.fillRect(bitmap.get(), 0, 0, 600, 240, 0, 1.0, 1);
    setLevels(-120.0);  // row 240: the bottom edge, just outside
    draw(22050.0);
    EXPECT_EQ(at(300, 239), kBlack);
    setLevels(10.0);
    hostExtensions.fillRect(bitmap.get(), 0, 0, 600, 240, 0, 1.0, 1);
    draw(22050.0);
    EXPECT_EQ(at(300, 0), kBlack);  // drawn at row -20, off the bitmap
}

TEST_F(SpectrumDisplayTest, LevelsSharingAColumnShowTheHigherOne) {
    setLevels(-120.0);
    instance->outputAnalyzer.levelsDb[1000] = -90.0;
    instance->outputAnalyzer.levelsDb[1001] = -30.0;  // same column as 1000
    draw(22050.0);
    const int x = static_cast<int>(
        std::log((1001 * static_cast<double>(static_cast<float>(22050.0 * 0.0009765625)) - 20.0) /
                     59.95 + 1.0) * 0.16683457378359495 * 600 + 0.5);
    int highest = 240;
    for (int y = 0; y < 240; ++y)
        if (at(x, y) != kBlack) {
            highest = y;
            break;
        }
    EXPECT_LT(highest, 120);  // the -30 dB level (row 60) pulls the curve up
}

TEST_F(SpectrumDisplayTest, NarrowBitmapsGetNoSpectrum) {
    setLevels(-60.0);
    bitmap->resize(4, 240);
    hostExtensions.fillRect(bitmap.get(), 0, 0, 4, 240, 0, 1.0, 1);
    draw(22050.0);
    for (int x = 0; x < 4; ++x) EXPECT_EQ(at(x, 120), kBlack);
}

TEST_F(SpectrumDisplayTest, SpectraShowForOneSecondAfterTheLastBlockAndNotWithoutAudio) {
    openView(600, 120);
    paint();
    EXPECT_EQ(instance->spectrumTick.load(), 0u);
    EXPECT_EQ(instance->spectrumDrawnTick, 0u);
    processSilence();
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

namespace {

// The whole path through the host's real FFT: a steady tone exactly at bin 9
// of the 2048-point analysis (193.8 Hz at 44.1 kHz), amplitude 0.5, is drawn
// with its level, 20 log10(0.5 / 2) = -12.04 dB (the window sums to 1), at
// the column of its level entry (entry 8 holds bin 9, placed at 8 × 22050 /
// 1024 Hz). Grid and bands are off, so the curve is the only thing above the
// flat strip at the centre.
class SpectrumThroughTheHostFftTest : public ResponseViewTest {};

TEST_F(SpectrumThroughTheHostFftTest, ToneAtAKnownBinShowsItsLevelAtItsColumn) {
    constexpr int kWidth = 1200, kHeight = 240, kBin = 9, kFrames = 4096;
    constexpr double kAmplitude = 0.5;
    openView(kWidth, kHeight);
    instance->showGrid = 0;
    silenceAllBands();
    std::vector<double> tone(kFrames), out(2 * kFrames);
    for (int n = 0; n < kFrames; ++n)
        tone[n] = kAmplitude * std::cos(2.0 * 3.141592653589793 * kBin * n / 2048.0);
    double* inputs[] = {tone.data(), tone.data()};
    double* outputs[] = {out.data(), out.data() + kFrames};
    processDoubleReplacing(&instance->effect, inputs, outputs, kFrames);
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
    const int topColumn = (first + last) / 2;
    const double expectedDb = 20.0 * std::log10(kAmplitude / 2.0);
    const double pixelsPerDb = kHeight / 120.0;
    EXPECT_NEAR(topColumn, column, 2);
    // The curve bends between level points, so its top lies a little below the level.
    EXPECT_NEAR(-topRow / pixelsPerDb, expectedDb, 2.0);
}

}  // namespace
