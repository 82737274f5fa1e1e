// designBand against the cookbook formulas written out in cookbook_reference.cpp.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
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

bool sameCoefficientBits(const EqBand& a, const EqBand& b) {
    return std::memcmp(&a.a1, &b.a1, 5 * sizeof(double)) == 0;
}

}  // namespace

TEST(BandDesign, ShelvesFollowTheCookbookWithSlopeFromBandwidth) {
    expectCoefficients(*designed(LowShelf, 200.0, 4.0, 2.0),
                       referenceLowShelf(kRate, 200.0, 4.0, 0.25));
    expectCoefficients(*designed(HighShelf, 6000.0, 0.3, 1.5),
                       referenceHighShelf(kRate, 6000.0, 0.3, 1 / (1.5 * 1.5)));
}

TEST(BandDesign, PeakingTypesFollowTheCookbook) {
    expectCoefficients(*designed(Band, 1000.0, 2.5, 1.0),
                       referencePeaking(kRate, 1000.0, 2.5, 1.0));
    expectCoefficients(*designed(BandAlt, 3000.0, 0.2, 0.5),
                       referencePeaking(kRate, 3000.0, 0.2, 0.5));
    expectCoefficients(*designed(BandAlt2, 700.0, 3.0, 1.2),
                       referencePeaking(kRate, 700.0, 3.0, 1.2, true));
}

TEST(BandDesign, PassFiltersFollowTheCookbookAndIgnoreGain) {
    for (int32_t type : {LowPass, HighPass, AllPass, Notch, BandPass}) {
        SCOPED_TRACE(bandTypeName(type));
        expectCoefficients(*designed(type, 2500.0, 7.0, 0.7),
                           referenceFilter(type, kRate, 2500.0, 0.7));
        EXPECT_TRUE(sameCoefficientBits(*designed(type, 2500.0, 7.0, 0.7),
                                        *designed(type, 2500.0, 0.001, 0.7)));
    }
}

TEST(BandDesign, HighFrequenciesUseAQuarterTurnWarp) {
    // w0 above pi/2: the bandwidth warp stops growing.
    expectCoefficients(*designed(Band, 15000.0, 2.0, 1.0),
                       referencePeaking(kRate, 15000.0, 2.0, 1.0));
    expectCoefficients(*designed(BandPass, 18000.0, 1.0, 0.3),
                       referenceFilter(BandPass, kRate, 18000.0, 0.3));
}

TEST(BandDesign, NearSilentShelvesBecomePassFilters) {
    auto lowShelf = designed(LowShelf, 150.0, 0.005, 0.8);
    auto highPass = designed(HighPass, 150.0, 1.0, 0.8);
    EXPECT_TRUE(sameCoefficientBits(*lowShelf, *highPass));
    expectCoefficients(*lowShelf, referenceFilter(HighPass, kRate, 150.0, 0.8));
    EXPECT_EQ(lowShelf->type, LowShelf);  // the stored type is what the user chose

    expectCoefficients(*designed(LowShelf, 150.0, 0.01, 1.5),
                       referenceLowShelf(kRate, 150.0, 0.01, 1 / (1.5 * 1.5)));
    expectCoefficients(*designed(HighShelf, 8000.0, 0.005, 0.8),
                       referenceFilter(LowPass, kRate, 8000.0, 0.8));
}

TEST(BandDesign, NearSilentBandBecomesNotchButAltBandKeepsCutting) {
    expectCoefficients(*designed(Band, 1000.0, 0.0005, 1.0),
                       referenceFilter(Notch, kRate, 1000.0, 1.0));
    auto alt = designed(BandAlt, 1000.0, 0.0005, 1.0);
    expectCoefficients(*alt, referencePeaking(kRate, 1000.0, 0.0005, 1.0));
    EXPECT_NEAR(responseDb(*alt, 1000.0), -66.02, 0.005);
    // The deepest cut: any gain below 3e-5 designs as 3e-5.
    auto deepest = designed(BandAlt, 1000.0, 1e-6, 1.0);
    expectCoefficients(*deepest, referencePeaking(kRate, 1000.0, 3e-5, 1.0));
    EXPECT_NEAR(responseDb(*deepest, 1000.0), -90.46, 0.005);
}

TEST(BandDesign, GainIsClampedToItsRange) {
    expectCoefficients(*designed(Band, 1000.0, 100.0, 1.0),
                       referencePeaking(kRate, 1000.0, 64.0, 1.0));
    expectCoefficients(*designed(BandAlt, 1000.0, 0.0, 1.0),
                       referencePeaking(kRate, 1000.0, 3e-5, 1.0));
}

TEST(BandDesign, FrequencyIsClampedBetweenTenHzAndBelowNyquist) {
    auto low = designed(Band, 5.0, 2.0, 1.0);
    expectCoefficients(*low, referencePeaking(kRate, 10.0, 2.0, 1.0));
    EXPECT_EQ(low->frequency, 5.0);

    auto high = designed(Band, 30000.0, 2.0, 1.0);
    expectCoefficients(*high, referencePeaking(kRate, 0.49 * kRate, 2.0, 1.0));
    EXPECT_NEAR(0.49 * kRate, 21609.0, 1e-9);
    EXPECT_EQ(high->frequency, 30000.0);
}

TEST(BandDesign, BandwidthLimitsKeepSectionsInRange) {
    expectCoefficients(*designed(Band, 1000.0, 2.0, 0.0),
                       referencePeaking(kRate, 1000.0, 2.0, 0.01));
    expectCoefficients(*designed(LowShelf, 300.0, 2.0, 0.0),
                       referenceLowShelf(kRate, 300.0, 2.0, 1.2));
    expectCoefficients(*designed(HighShelf, 3000.0, 2.0, 20.0),
                       referenceHighShelf(kRate, 3000.0, 2.0, 0.01));
    // 1/0.9^2 is above the steepest slope.
    expectCoefficients(*designed(LowShelf, 300.0, 2.0, 0.9),
                       referenceLowShelf(kRate, 300.0, 2.0, 1.2));
}

TEST(BandDesign, UnityGainPeakingSectionsAreFlat) {
    for (int32_t type : {Band, BandAlt, BandAlt2}) {
        auto band = designed(type, 1234.0, 1.0, 0.6);
        EXPECT_EQ(band->b0, 1.0);
        EXPECT_EQ(band->b1, band->a1);
        EXPECT_EQ(band->b2, band->a2);
    }
}

TEST(BandDesign, UnknownTypesPassThroughWithoutAName) {
    for (int32_t type : {12, -3, 10}) {
        auto band = designed(type, 1000.0, 2.0, 1.0);
        expectCoefficients(*band, {0.0, 0.0, 1.0, 0.0, 0.0});
        EXPECT_STREQ(bandTypeName(type), "");
    }
}

TEST(BandDesign, TypeNamesFollowTheCodes) {
    const char* names[] = {"Low Shelf", "High Shelf", "Band (alt 2)", "Low Pass", "High Pass",
                           "All Pass",  "Notch",      "Band Pass",    "Band",     "Band (alt)"};
    for (int32_t code = 0; code < 10; ++code) EXPECT_STREQ(bandTypeName(code), names[code]);
}

TEST(BandDesign, RepeatingTheSameDesignLeavesCoefficientsAlone) {
    auto band = designed(Band, 1000.0, 2.0, 1.0);
    band->b0 = 42.0;  // would be overwritten by a recomputation
    band->glideFrequency = 500.0;
    designBand(band.get(), Band, false, 1000.0, 2.0, 1.0);
    EXPECT_EQ(band->b0, 42.0);
    EXPECT_EQ(band->glideFrequency, 500.0);

    designBand(band.get(), Band, true, 1000.0, 2.0, 1.0);
    EXPECT_EQ(band->b0, 42.0);
    EXPECT_EQ(band->glideFrequency, 1000.0);  // snap still moves the glide
}

TEST(BandDesign, NewValuesWithoutSnapKeepTheGlidePosition) {
    auto band = designed(Band, 1000.0, 2.0, 1.0);
    designBand(band.get(), Band, false, 2000.0, 3.0, 0.5);
    EXPECT_EQ(band->frequency, 2000.0);
    EXPECT_EQ(band->gain, 3.0);
    EXPECT_EQ(band->bandwidth, 0.5);
    EXPECT_EQ(band->glideFrequency, 1000.0);
    EXPECT_EQ(band->glideGain, 2.0);
    EXPECT_EQ(band->glideBandwidth, 1.0);
    expectCoefficients(*band, referencePeaking(kRate, 2000.0, 3.0, 0.5));
}

TEST(BandDesign, ATypeChangeJumpsTheGlide) {
    auto band = designed(Band, 1000.0, 2.0, 1.0);
    designBand(band.get(), LowShelf, false, 2000.0, 3.0, 0.5);
    EXPECT_EQ(band->glideType, LowShelf);
    EXPECT_EQ(band->glideFrequency, 2000.0);
    EXPECT_EQ(band->glideGain, 3.0);
    EXPECT_EQ(band->glideBandwidth, 0.5);
}

TEST(BandDesign, KeepTypeRecomputesFromStoredValues) {
    auto band = designed(Band, 1000.0, 2.0, 1.0);
    band->frequency = 3000.0;
    band->type = HighShelf;
    designBand(band.get(), kKeepBandType, false, 0.0, 0.0, 0.0);
    expectCoefficients(*band, referenceHighShelf(kRate, 3000.0, 2.0, 1.0));
    EXPECT_EQ(band->glideType, HighShelf);  // the type moved, so the glide jumped
    EXPECT_EQ(band->glideFrequency, 3000.0);

    band->gain = 4.0;
    designBand(band.get(), kKeepBandType, false, 0.0, 0.0, 0.0);
    EXPECT_EQ(band->glideGain, 2.0);
    designBand(band.get(), kKeepBandType, true, 0.0, 0.0, 0.0);
    EXPECT_EQ(band->glideGain, 4.0);
    EXPECT_EQ(band->gain, 4.0);
}

TEST(BandDesign, FreshRecordsStartFromTheDefaults) {
    std::unique_ptr<EqBand> band(newEqBand());
    EXPECT_EQ(band->type, Band);
    EXPECT_EQ(band->frequency, 1000.0);
    EXPECT_EQ(band->gain, 1.0);
    EXPECT_EQ(band->bandwidth, 1.0);
    EXPECT_EQ(band->sampleRate, 1.0);
    EXPECT_EQ(band->enabled, 1);
    EXPECT_EQ(band->logScaleAutomation, 1);
    EXPECT_EQ(band->glideType, Band);
    EXPECT_EQ(band->glideFrequency, 1000.0);
    EXPECT_EQ(band->glideGain, 1.0);
    EXPECT_EQ(band->glideBandwidth, 1.0);
    EXPECT_EQ(band->primed, 0);
    EXPECT_EQ(band->historyLeft.y1, 0.0);
    EXPECT_EQ(band->historyRight.x2, 0.0);
}

TEST(BandDesign, CreatedBandsTakeOverTheSampleRateWithoutGlide) {
    auto band = designed(HighShelf, 5000.0, 0.5, 2.0, 48000.0);
    EXPECT_EQ(band->sampleRate, 48000.0);
    expectCoefficients(*band, referenceHighShelf(48000.0, 5000.0, 0.5, 0.25));
    EXPECT_EQ(band->glideType, HighShelf);
    EXPECT_EQ(band->glideFrequency, 5000.0);
    EXPECT_EQ(band->glideGain, 0.5);
    EXPECT_EQ(band->glideBandwidth, 2.0);
}
