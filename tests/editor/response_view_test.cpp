// The graph: the summed response it evaluates per column against each
// band's closed form, its phase, and the pixels it paints (the flat fill
// strip, gain lines, the half-sample-rate line and the handles).
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "engine/eq_band.h"
#include "tests/editor/editor_fixture.h"
#include "view/graph_axes.h"
#include "view/graph_snapshot.h"
#include "view/response_curve.h"

namespace {

constexpr uint32_t kBackground = 0xff000000;
constexpr uint32_t kFill = 0xff006060;
constexpr uint32_t kGainLine = 0xff4d4d4d;
constexpr uint32_t kHalfRateLine = 0xffc0c0c0;
constexpr uint32_t kSelectedRed = 0xffff2222;

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

// The column value of a level in dB on the ±12 dB axis.
double columnValue(double db) { return (db + 12.0) / 24.0 - 0.5; }

// A 600 by 120 graph without grid and with every band off.
class ResponseViewTest : public EditorTest {
protected:
    void SetUp() override {
        EditorTest::SetUp();
        openView(600, 120);
        instance->showGrid = 0;
        silenceAllBands();
    }
    EqBand designed(int32_t type, double frequency, double gain, double bandwidth) {
        setBand(2, type, frequency, gain, bandwidth);
        MutexLock lock(instance->mutex);
        return *instance->band(2);
    }
    // Evaluates these bands over the graph; answers the drawn width.
    int evaluate(std::vector<BandCopy> bands, std::vector<double>& magnitude,
                 std::vector<double>* phase = nullptr) {
        magnitude.assign(600, 0.0);
        if (phase) phase->assign(600, 0.0);
        const GraphSnapshot snapshot{bands.data(), static_cast<int>(bands.size()), 0, -1};
        return sumBandResponses(snapshot, graphAxes(*instance, 600, 120),
                                {magnitude.data(), phase ? phase->data() : nullptr});
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
};

// Every column holds, bit for bit, the closed form at its frequency, up
// to half the sample rate (column 592).
TEST_F(ResponseViewTest, ColumnsHoldTheClosedFormMagnitudeBitForBit) {
    const EqBand band = designed(HighShelf, 1000.0, 2.5, 1.0);
    std::vector<double> magnitude;
    EXPECT_EQ(evaluate({BandCopy{band, true}}, magnitude), 592);
    for (int x = 0; x < 592; x += 7)
        EXPECT_EQ(magnitude[x], columnValue(closedFormDb(band, columnHz(x, 600)))) << x;
    const double db = closedFormDb(band, 1000.0);
    EXPECT_NEAR(db, 20.0 * std::log10(std::abs(complexResponse(band, 1000.0))), 1e-9);
}

// The notch is drawn 120 dB deep at its centre column.
TEST_F(ResponseViewTest, CentreColumnShowsTheFullGainOfANarrowPeakOrANotch) {
    std::vector<double> magnitude;
    evaluate({BandCopy{designed(Band, 1000.0, 4.0, 0.01), true}}, magnitude);
    EXPECT_EQ(magnitude[285], columnValue(std::log(4.0) * 8.685889638065037));
    EXPECT_LT(magnitude[284], 0.5 * magnitude[285]);
    evaluate({BandCopy{designed(Notch, 1000.0, 1.0, 1.0), true}}, magnitude);
    EXPECT_EQ(magnitude[285], columnValue(-120.0));
}

TEST_F(ResponseViewTest, PhaseIsTheArgumentOfTheResponseWithinThreeHalfPi) {
    const EqBand band = designed(LowPass, 2000.0, 1.0, 1.0);
    std::vector<double> magnitude, phase;
    evaluate({BandCopy{band, true}}, magnitude, &phase);
    for (int x : {50, 300, 400, 550}) {
        SCOPED_TRACE(x);
        const double argument = std::arg(complexResponse(band, columnHz(x, 600)));
        EXPECT_GT(phase[x], -1.5 * std::numbers::pi);
        EXPECT_LE(phase[x], 0.5 * std::numbers::pi);
        EXPECT_NEAR(std::cos(phase[x]), std::cos(argument), 1e-9);
        EXPECT_NEAR(std::sin(phase[x]), std::sin(argument), 1e-9);
    }
}

// 1000 Hz is column 285 (285.63 truncated), 0 dB row 60.
TEST_F(ResponseViewTest, SelectedBandIsARedDiscOrARedOutlineWhenDisabled) {
    setBand(2, Band, 1000.0, 1.0, 1.0);
    instance->selectedBand = 2;
    paint();
    EXPECT_GT(countPixels(kSelectedRed, 279, 54, 292, 67), 50);  // less its black number
    setBand(2, Band, 1000.0, 1.0, 1.0, false);
    paint();
    EXPECT_EQ(countPixels(kSelectedRed, 270, 45, 300, 75), 0);
    EXPECT_EQ(pixel(285 - 3, 60 - 3), kBackground);  // hollow
    EXPECT_EQ(pixel(285 + 3, 60 + 3), kBackground);
    EXPECT_GT(ringPixels(285, 60, 0xffff0000), 16);
}

// A pass filter's handle sits three quarters down (row 90); 200 Hz is column 138.
TEST_F(ResponseViewTest, OtherBandsAreWhiteAndPassFiltersYellow) {
    setBand(1, Band, 1000.0, 1.0, 1.0);
    setBand(2, LowPass, 200.0, 1.0, 1.0, false);
    instance->selectedBand = 0;
    paint();
    EXPECT_GT(countPixels(0xffffffff, 279, 54, 292, 67), 50);
    EXPECT_GT(ringPixels(138, 90, 0xffffff00), 16);
    EXPECT_EQ(pixel(138 - 3, 90 - 3), kBackground);
}

}  // namespace
