// The graph's axes, the summed response it evaluates per column and the
// pixels it paints: grid rows, the flat fill strip, the half-sample-rate
// line and the handle colours.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "contracts/mura.h"
#include "engine/eq_band.h"
#include "tests/editor/response_view_fixture.h"
#include "view/graph_axes.h"
#include "view/graph_snapshot.h"
#include "view/response_curve.h"

namespace {

constexpr uint32_t kBackground = 0xff000000;
constexpr uint32_t kFill = 0xff006060;
constexpr uint32_t kGainLine = 0xff4d4d4d;
constexpr uint32_t kHalfRateLine = 0xffc0c0c0;

// The paint's column frequency, written out here.
double columnHz(int x, int width) {
    return (std::exp(x * 5.993961427306569 / width) - 1.0) * 23980.0 * 0.0025 + 20.0;
}

// The closed-form magnitude of a biquad in dB at `hz`.
double closedFormDb(const EqBand& b, double hz) {
    const double w = hz * (std::numbers::pi / b.sampleRate) * 2.0;
    const double s = std::sin(0.5 * w);
    const double p = 4.0 * s * s;
    const double n0 = (b.b0 + b.b1 + b.b2) * (b.b0 + b.b1 + b.b2);
    const double m0 = (1.0 + b.a1 + b.a2) * (1.0 + b.a1 + b.a2);
    const double n = n0 + p * (b.b0 * b.b2 * p - (b.b1 * (b.b0 + b.b2) + 4.0 * b.b0 * b.b2));
    const double m = m0 + p * (b.a2 * p - (b.a1 * (1.0 + b.a2) + 4.0 * b.a2));
    return 10.0 * std::log10(n) - 10.0 * std::log10(m);
}

// The band's response at `hz`, evaluated as a complex ratio.
std::complex<double> complexResponse(const EqBand& b, double hz) {
    const double w = 2.0 * std::numbers::pi * hz / b.sampleRate;
    const std::complex<double> z1 = std::polar(1.0, -w), z2 = std::polar(1.0, -2.0 * w);
    return (b.b0 + b.b1 * z1 + b.b2 * z2) / (1.0 + b.a1 * z1 + b.a2 * z2);
}

class ResponseViewGraphTest : public ResponseViewTest {
protected:
    // A 600 by 120 graph without grid and with every band off.
    void openBareView() {
        openView(600, 120);
        instance->showGrid = 0;
        silenceAllBands();
    }
    EqBand designed(int32_t type, double frequency, double gain, double bandwidth) {
        setBand(2, type, frequency, gain, bandwidth);
        return designedBand(2);
    }
    EqBand designedBand(int index) {
        MutexLock lock(instance->mutex);
        return *instance->band(index);
    }
    // Evaluates only band 2 over a graph of the given size.
    int evaluate(int width, int height, std::vector<double>& magnitude,
                 std::vector<double>* phase = nullptr) {
        magnitude.assign(width, 0.0);
        if (phase) phase->assign(width, 0.0);
        const GraphAxes axes = graphAxes(*instance, width, height);
        BandCopy copy{designedBand(2), true};
        const GraphSnapshot onlyBand2{&copy, 1, 0, -1};
        return sumBandResponses(
            onlyBand2, axes, ResponseColumns{magnitude.data(), phase ? phase->data() : nullptr});
    }
    // Pixels close to `color` (each channel within 0x40, outlines are smoothed)
    // at 4.5 to 8 pixels from a handle's centre: its outline.
    int ringPixels(int centreX, int centreY, uint32_t color) const {
        const auto near = [](uint32_t a, uint32_t b) {
            for (int shift : {0, 8, 16})
                if (std::abs(int((a >> shift) & 0xff) - int((b >> shift) & 0xff)) >= 0x40)
                    return false;
            return true;
        };
        int count = 0;
        for (int y = centreY - 8; y <= centreY + 8; ++y)
            for (int x = centreX - 8; x <= centreX + 8; ++x)
                count += near(pixel(x, y), color) && std::hypot(x - centreX, y - centreY) > 4.5;
        return count;
    }
    int nonBackgroundRows(int x) const {
        int rows = 0;
        for (int y = 0; y < instance->drawingBitmap->height(); ++y)
            rows += pixel(x, y) != kBackground;
        return rows;
    }
};

TEST_F(ResponseViewGraphTest, FrequencyAxisSpansTwentyHzToTwentyFourKilohertz) {
    EXPECT_EQ(columnToFrequency(0, 600), 20.0);
    EXPECT_NEAR(columnToFrequency(600, 600), 24000.0, 1e-9);
    EXPECT_EQ(frequencyToColumn(1000.0, 600), 285);  // 285.63 truncated
    EXPECT_EQ(frequencyToColumn(20.0, 600), 0);
    EXPECT_NEAR(columnToFrequency(285.63, 600), 1000.0, 0.05);
    EXPECT_EQ(paintedColumnFrequency(300, 600), columnHz(300, 600));
}

TEST_F(ResponseViewGraphTest, GainAxisFollowsShowTabs) {
    instance->showTabs = 0;
    GraphAxes tall = graphAxes(*instance, 600, 120);
    EXPECT_EQ(tall.gainRange, 48.0);
    EXPECT_EQ(tall.gainBottom, -24.0);
    EXPECT_EQ(dbOfRow(tall, 0), 24.0);
    EXPECT_EQ(dbOfRow(tall, 60), 0.0);
    EXPECT_EQ(rowOfDb(tall, 12.0), 30);
    EXPECT_NEAR(amplitudeOfRow(tall, 0), tall.topAmplitude, 1e-12);
    instance->showTabs = 1;
    GraphAxes shortAxes = graphAxes(*instance, 600, 120);
    EXPECT_EQ(shortAxes.gainRange, 24.0);
    EXPECT_EQ(rowOfDb(shortAxes, 6.0), 30);
    EXPECT_NEAR(amplitudeOfRow(shortAxes, 120), shortAxes.bottomAmplitude, 1e-12);
}

TEST_F(ResponseViewGraphTest, HandlesSitByTypeAndSilentGainsOnTheBottomEdge) {
    const GraphAxes axes = graphAxes(*instance, 600, 120);
    EXPECT_EQ(handleRow(axes, Notch, 1.0), 120);
    EXPECT_EQ(handleRow(axes, LowPass, 1.0), 90);
    EXPECT_EQ(handleRow(axes, BandPass, 3.0), 60);
    EXPECT_EQ(handleRow(axes, Band, 1.0), 60);
    EXPECT_EQ(handleRow(axes, Band, 1e-9), 120 - static_cast<int>((-150.0 + 12.0) * 5.0));
}

TEST_F(ResponseViewGraphTest, ColumnsHoldTheClosedFormMagnitudeBitForBit) {
    openView(600, 120);
    const EqBand band = designed(Band, 1000.0, 2.5, 1.0);
    std::vector<double> magnitude;
    evaluate(600, 120, magnitude);
    for (int x : {0, 100, 284, 286, 450, 591}) {
        SCOPED_TRACE(x);
        const double db = closedFormDb(band, columnHz(x, 600));
        EXPECT_EQ(magnitude[x], (db + 12.0) / 24.0 - 0.5);
        const std::complex<double> response = complexResponse(band, columnHz(x, 600));
        EXPECT_NEAR(db, 20.0 * std::log10(std::abs(response)), 1e-9);
    }
}

// Bands of different sample rates in one paint: every column holds, bit for
// bit, the sum in band order of each band's closed form at its own rate, and
// the drawn width is where the last band to reach half its rate stopped.
TEST_F(ResponseViewGraphTest, BandsOfMixedSampleRatesSumTheirOwnClosedFormsBitForBit) {
    openView(600, 120);
    struct RatedBand {
        int32_t type;
        double frequency, gain, sampleRate;
    };
    const RatedBand bands[] = {{LowShelf, 200.0, 2.0, 44100.0},
                               {HighPass, 3000.0, 1.0, 96000.0},
                               {HighShelf, 6000.0, 0.5, 44100.0},
                               {LowPass, 2000.0, 1.0, 22050.0}};
    std::vector<BandCopy> copies;
    for (const RatedBand& rated : bands) {
        EqBand band = designed(rated.type, rated.frequency, rated.gain, 1.0);
        adoptSampleRate(&band, rated.sampleRate);
        copies.push_back(BandCopy{band, true});
    }
    std::vector<double> magnitude(600, 0.0);
    const GraphSnapshot snapshot{copies.data(), 4, 0, -1};
    const int drawnWidth =
        sumBandResponses(snapshot, graphAxes(*instance, 600, 120), {magnitude.data(), nullptr});
    int halfOf22050 = 0;
    while (columnHz(halfOf22050, 600) <= 11025.0) ++halfOf22050;
    EXPECT_EQ(drawnWidth, halfOf22050);
    for (int x = 0; x < 600; x += 7) {
        SCOPED_TRACE(x);
        double sum = 0.0;
        for (const BandCopy& copy : copies)
            if (columnHz(x, 600) <= 0.5 * copy.values.sampleRate)
                sum += (closedFormDb(copy.values, columnHz(x, 600)) + 12.0) / 24.0 - 0.5;
        EXPECT_EQ(magnitude[x], sum);
    }
}

TEST_F(ResponseViewGraphTest, CentreColumnShowsTheFullGainOfANarrowPeak) {
    openView(600, 120);
    designed(Band, 1000.0, 4.0, 0.01);
    std::vector<double> magnitude;
    evaluate(600, 120, magnitude);
    const double peakDb = std::log(4.0) * 8.685889638065037;
    EXPECT_EQ(magnitude[285], (peakDb + 12.0) / 24.0 - 0.5);
    EXPECT_LT(magnitude[284], 0.5 * magnitude[285]);
    designed(Notch, 1000.0, 1.0, 1.0);
    evaluate(600, 120, magnitude);
    EXPECT_EQ(magnitude[285], (-120.0 + 12.0) / 24.0 - 0.5);
}

TEST_F(ResponseViewGraphTest, PhaseIsTheArgumentOfTheResponseWithinThreeHalfPi) {
    openView(600, 120);
    const EqBand band = designed(LowPass, 2000.0, 1.0, 1.0);
    std::vector<double> magnitude, phase;
    evaluate(600, 120, magnitude, &phase);
    for (int x : {50, 300, 400, 550}) {
        SCOPED_TRACE(x);
        const double argument = std::arg(complexResponse(band, columnHz(x, 600)));
        EXPECT_GT(phase[x], -1.5 * std::numbers::pi);
        EXPECT_LE(phase[x], 0.5 * std::numbers::pi);
        EXPECT_NEAR(std::cos(phase[x]), std::cos(argument), 1e-9);
        EXPECT_NEAR(std::sin(phase[x]), std::sin(argument), 1e-9);
    }
}

TEST_F(ResponseViewGraphTest, CurveStopsAtHalfTheSampleRateWithAMarkerLine) {
    openView(600, 120);
    instance->showGrid = 0;
    std::vector<double> magnitude;
    int firstAbove = 0;
    while (columnHz(firstAbove, 600) <= 22050.0) ++firstAbove;
    ASSERT_EQ(firstAbove, 592);
    EXPECT_EQ(evaluate(600, 120, magnitude), 592);
    paint();
    EXPECT_EQ(pixel(592, 10), kHalfRateLine);
    EXPECT_EQ(pixel(592, 119), kHalfRateLine);
    EXPECT_EQ(pixel(595, 60), kBackground);  // nothing drawn past it
}

TEST_F(ResponseViewGraphTest, NoEnabledBandLeavesAFlatStripThreePixelsHigh) {
    openBareView();
    paint();
    for (int x : {10, 300, 599}) {
        SCOPED_TRACE(x);
        EXPECT_EQ(pixel(x, 59), kFill);
        EXPECT_EQ(pixel(x, 61), kFill);
        EXPECT_NE(pixel(x, 60), kBackground);
        EXPECT_EQ(pixel(x, 58), kBackground);
        EXPECT_EQ(pixel(x, 62), kBackground);
    }
    EXPECT_EQ(nonBackgroundRows(300), 3);
}

TEST_F(ResponseViewGraphTest, TallAxisDrawsGainLinesTwentyPixelsApartOrMore) {
    openView(600, 120);
    instance->showTabs = 0;
    silenceAllBands();
    paint();
    int x = 150;
    while (pixel(x, 0) != kBackground) ++x;  // a column without a frequency line
    EXPECT_EQ(pixel(x, 30), kGainLine);
    EXPECT_EQ(pixel(x, 90), kGainLine);
    for (int skipped : {15, 45, 75, 105}) EXPECT_EQ(pixel(x, skipped), kBackground) << skipped;
}

TEST_F(ResponseViewGraphTest, SelectedBandIsARedDiscOrARedOutlineWhenDisabled) {
    openBareView();
    setBand(2, Band, 1000.0, 1.0, 1.0);  // handle at column 285, row 60
    instance->selectedBand = 2;
    paint();
    const int inner = countPixels(0xffff2222, 279, 54, 292, 67);
    EXPECT_GT(inner, 50);  // a disc of radius 6, less its black number
    setBand(2, Band, 1000.0, 1.0, 1.0, false);
    paint();
    EXPECT_EQ(countPixels(0xffff2222, 270, 45, 300, 75), 0);
    EXPECT_EQ(pixel(285 - 3, 60 - 3), kBackground);  // hollow
    EXPECT_EQ(pixel(285 + 3, 60 + 3), kBackground);
    EXPECT_GT(ringPixels(285, 60, 0xffff0000), 16);
}

TEST_F(ResponseViewGraphTest, OtherBandsAreWhiteAndPassFiltersYellow) {
    openBareView();
    setBand(1, Band, 1000.0, 1.0, 1.0);
    setBand(2, LowPass, 200.0, 1.0, 1.0, false);
    instance->selectedBand = 0;
    paint();
    EXPECT_GT(countPixels(0xffffffff, 279, 54, 292, 67), 50);
    const int lowPassColumn = frequencyToColumn(200.0, 600);
    EXPECT_GT(ringPixels(lowPassColumn, 90, 0xffffff00), 16);
    EXPECT_EQ(pixel(lowPassColumn - 3, 90 - 3), kBackground);
}

TEST_F(ResponseViewGraphTest, SilentBandHandleSitsOnTheBottomEdge) {
    openBareView();
    setBand(1, Band, 1000.0, 1e-9, 1.0, false);
    setBand(2, Band, 3000.0, 1e-9, 1.0);
    instance->selectedBand = 0;
    paint();
    const int x = frequencyToColumn(3000.0, 600);
    EXPECT_GT(countPixels(0xffffffff, x - 6, 113, x + 7, 120), 25);
}

}  // namespace
