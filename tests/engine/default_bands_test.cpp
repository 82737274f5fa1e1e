#include <gtest/gtest.h>

#include "engine/default_bands.h"
#include "tests/engine/cookbook_reference.h"
#include "tests/engine/test_instance.h"

// The four flat default bands replace any list, designed for the instance's
// rate; the output gain and the view settings stay.
TEST(DefaultBands, ReplaceTheListWithFourFlatBands) {
    auto instance = makeTestInstance();
    for (int i = 0; i < 7; ++i) addTestBand(instance.get(), Notch, 100.0 * (i + 1), 1.0, 1.0);
    instance->sampleRate = 96000.0;
    instance->outputGain = 0.25;
    instance->editorWidth = 640;
    ASSERT_TRUE(loadDefaultBands(instance.get()));
    ASSERT_EQ(instance->bandCount(), 4);
    EXPECT_EQ(instance->effect.numParams, 12);
    const ReferenceCoefficients expected[] = {referenceLowShelf(96000.0, 100.0, 1.0, 0.25),
                                              referencePeaking(96000.0, 300.0, 1.0, 2.0),
                                              referencePeaking(96000.0, 1000.0, 1.0, 2.0),
                                              referenceHighShelf(96000.0, 5000.0, 1.0, 0.25)};
    const double frequencies[] = {100.0, 300.0, 1000.0, 5000.0};
    const int32_t types[] = {LowShelf, Band, Band, HighShelf};
    for (int i = 0; i < 4; ++i) {
        const EqBand& band = *instance->band(i);
        EXPECT_EQ(band.type, types[i]);
        EXPECT_EQ(band.frequency, frequencies[i]);
        EXPECT_EQ(band.gain, 1.0);
        EXPECT_EQ(band.bandwidth, 2.0);
        EXPECT_EQ(band.enabled, 1);
        EXPECT_EQ(band.logScaleAutomation, 1);
        EXPECT_EQ(band.glideFrequency, band.frequency);
        expectCoefficients(band, expected[i]);
    }
    EXPECT_EQ(instance->outputGain, 0.25);
    EXPECT_EQ(instance->editorWidth, 640);
}
