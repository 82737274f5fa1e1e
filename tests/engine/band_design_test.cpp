// designBand against the cookbook formulas written out in cookbook_reference.cpp.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "engine/eq_band.h"
#include "tests/engine/cookbook_reference.h"

namespace {

constexpr double kRate = 44100.0;

std::unique_ptr<EqBand> designed(int32_t type, double frequency, double gain, double bandwidth,
                                 double sampleRate = kRate) {
    return std::unique_ptr<EqBand>(
        createDesignedBand(type, frequency, gain, bandwidth, sampleRate));
}

void expectGlide(const EqBand& band, int32_t type, double frequency, double gain,
                 double bandwidth) {
    EXPECT_EQ(band.glideType, type);
    EXPECT_EQ(band.glideFrequency, frequency);
    EXPECT_EQ(band.glideGain, gain);
    EXPECT_EQ(band.glideBandwidth, bandwidth);
}

}  // namespace

// Designs and the cookbook values they must match: plain designs, the
// quarter-turn warp above pi/2, substitutions of near-silent sections and
// the clamps of gain, frequency and bandwidth.
TEST(BandDesign, DesignsMatchTheCookbookAfterClampsAndSubstitutions) {
    struct Case {
        const char* what;
        int32_t type;
        double frequency, gain, bandwidth;
        ReferenceCoefficients expected;
        double sampleRate = kRate;
    } cases[] = {
        {"low shelf, slope from bandwidth", LowShelf, 200.0, 4.0, 2.0,
         referenceLowShelf(kRate, 200.0, 4.0, 0.25)},
        {"high shelf", HighShelf, 6000.0, 0.3, 1.5,
         referenceHighShelf(kRate, 6000.0, 0.3, 1 / (1.5 * 1.5))},
        {"band", Band, 1000.0, 2.5, 1.0, referencePeaking(kRate, 1000.0, 2.5, 1.0)},
        {"band alt", BandAlt, 3000.0, 0.2, 0.5, referencePeaking(kRate, 3000.0, 0.2, 0.5)},
        {"band alt 2", BandAlt2, 700.0, 3.0, 1.2, referencePeaking(kRate, 700.0, 3.0, 1.2, true)},
        {"band above pi/2", Band, 15000.0, 2.0, 1.0, referencePeaking(kRate, 15000.0, 2.0, 1.0)},
        {"band pass above pi/2", BandPass, 18000.0, 1.0, 0.3,
         referenceFilter(BandPass, kRate, 18000.0, 0.3)},
        {"near-silent low shelf is a high pass", LowShelf, 150.0, 0.005, 0.8,
         referenceFilter(HighPass, kRate, 150.0, 0.8)},
        {"low shelf at 0.01 stays a shelf", LowShelf, 150.0, 0.01, 1.5,
         referenceLowShelf(kRate, 150.0, 0.01, 1 / (1.5 * 1.5))},
        {"near-silent high shelf is a low pass", HighShelf, 8000.0, 0.005, 0.8,
         referenceFilter(LowPass, kRate, 8000.0, 0.8)},
        {"near-silent band is a notch", Band, 1000.0, 0.0005, 1.0,
         referenceFilter(Notch, kRate, 1000.0, 1.0)},
        {"near-silent band alt keeps cutting", BandAlt, 1000.0, 0.0005, 1.0,
         referencePeaking(kRate, 1000.0, 0.0005, 1.0)},
        {"deepest cut is 3e-5", BandAlt, 1000.0, 1e-6, 1.0,
         referencePeaking(kRate, 1000.0, 3e-5, 1.0)},
        {"gain above 64", Band, 1000.0, 100.0, 1.0, referencePeaking(kRate, 1000.0, 64.0, 1.0)},
        {"gain zero", BandAlt, 1000.0, 0.0, 1.0, referencePeaking(kRate, 1000.0, 3e-5, 1.0)},
        {"frequency below 10 Hz", Band, 5.0, 2.0, 1.0, referencePeaking(kRate, 10.0, 2.0, 1.0)},
        {"frequency above 0.49 of the rate", Band, 30000.0, 2.0, 1.0,
         referencePeaking(kRate, 0.49 * kRate, 2.0, 1.0)},
        {"zero bandwidth of a band", Band, 1000.0, 2.0, 0.0,
         referencePeaking(kRate, 1000.0, 2.0, 0.01)},
        {"zero bandwidth of a shelf", LowShelf, 300.0, 2.0, 0.0,
         referenceLowShelf(kRate, 300.0, 2.0, 1.2)},
        {"wide shelf", HighShelf, 3000.0, 2.0, 20.0, referenceHighShelf(kRate, 3000.0, 2.0, 0.01)},
        {"1/0.9^2 is above the steepest slope", LowShelf, 300.0, 2.0, 0.9,
         referenceLowShelf(kRate, 300.0, 2.0, 1.2)},
        {"unknown types pass through", 12, 1000.0, 2.0, 1.0, {0.0, 0.0, 1.0, 0.0, 0.0}},
        {"new sample rate", HighShelf, 5000.0, 0.5, 2.0,
         referenceHighShelf(48000.0, 5000.0, 0.5, 0.25), 48000.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        auto band = designed(c.type, c.frequency, c.gain, c.bandwidth, c.sampleRate);
        expectCoefficients(*band, c.expected);
        expectGlide(*band, c.type, c.frequency, c.gain, c.bandwidth);
        EXPECT_EQ(band->type, c.type);  // the stored values are what the user chose
        EXPECT_EQ(band->frequency, c.frequency);
    }
    EXPECT_NEAR(responseDb(*designed(BandAlt, 1000.0, 0.0005, 1.0), 1000.0), -66.02, 0.005);
    EXPECT_NEAR(responseDb(*designed(BandAlt, 1000.0, 1e-6, 1.0), 1000.0), -90.46, 0.005);
}

// Gain does not change a pass filter; near silence turns shelves into them.
TEST(BandDesign, PassFiltersFollowTheCookbookAndIgnoreGain) {
    for (int32_t type : {LowPass, HighPass, AllPass, Notch, BandPass}) {
        SCOPED_TRACE(bandTypeName(type));
        for (double gain : {7.0, 0.001})
            expectCoefficients(*designed(type, 2500.0, gain, 0.7),
                               referenceFilter(type, kRate, 2500.0, 0.7));
    }
}

// New values glide from where the band stood unless the caller snaps or the
// type changes; kKeepBandType recomputes from the stored values.
TEST(BandDesign, RedesignsGlideFromTheOldValuesUnlessSnappedOrRetyped) {
    auto band = designed(Band, 1000.0, 2.0, 1.0);
    designBand(band.get(), Band, false, 2000.0, 3.0, 0.5);
    expectGlide(*band, Band, 1000.0, 2.0, 1.0);
    expectCoefficients(*band, referencePeaking(kRate, 2000.0, 3.0, 0.5));
    designBand(band.get(), Band, true, 2000.0, 3.0, 0.5);
    expectGlide(*band, Band, 2000.0, 3.0, 0.5);
    designBand(band.get(), LowShelf, false, 300.0, 4.0, 1.0);
    expectGlide(*band, LowShelf, 300.0, 4.0, 1.0);
    band->gain = 0.5;
    designBand(band.get(), kKeepBandType, false, 0.0, 0.0, 0.0);
    expectCoefficients(*band, referenceLowShelf(kRate, 300.0, 0.5, 1.0));
    EXPECT_EQ(band->glideGain, 4.0);
}
