#include <gtest/gtest.h>

#include "engine/band_list.h"
#include "engine/default_bands.h"
#include "tests/engine/cookbook_reference.h"
#include "tests/engine/test_instance.h"

TEST(DefaultBands, ReplaceTheListWithFourFlatBands) {
    auto instance = makeTestInstance();
    for (int i = 0; i < 7; ++i) addTestBand(instance.get(), Notch, 100.0 * (i + 1), 1.0, 1.0);
    ASSERT_EQ(instance->effect.numParams, 21);

    ASSERT_TRUE(loadDefaultBands(instance.get()));
    ASSERT_EQ(instance->bandCount(), 4);
    EXPECT_EQ(instance->effect.numParams, 12);
    struct Row {
        int32_t type;
        double frequency;
    } rows[] = {{LowShelf, 100.0}, {Band, 300.0}, {Band, 1000.0}, {HighShelf, 5000.0}};
    for (int i = 0; i < 4; ++i) {
        const EqBand& band = *instance->band(i);
        EXPECT_EQ(band.type, rows[i].type);
        EXPECT_EQ(band.frequency, rows[i].frequency);
        EXPECT_EQ(band.gain, 1.0);
        EXPECT_EQ(band.bandwidth, 2.0);
        EXPECT_EQ(band.enabled, 1);
        EXPECT_EQ(band.logScaleAutomation, 1);
        EXPECT_EQ(band.sampleRate, 44100.0);
        EXPECT_EQ(band.glideType, band.type);
        EXPECT_EQ(band.glideFrequency, band.frequency);
        EXPECT_EQ(band.glideGain, 1.0);
        EXPECT_EQ(band.glideBandwidth, 2.0);
        EXPECT_EQ(band.primed, 0);
    }
    expectCoefficients(*instance->band(0), referenceLowShelf(44100.0, 100.0, 1.0, 0.25));
    expectCoefficients(*instance->band(1), referencePeaking(44100.0, 300.0, 1.0, 2.0));
    expectCoefficients(*instance->band(2), referencePeaking(44100.0, 1000.0, 1.0, 2.0));
    expectCoefficients(*instance->band(3), referenceHighShelf(44100.0, 5000.0, 1.0, 0.25));
}

TEST(DefaultBands, KeepOutputGainViewSettingsAndListStorage) {
    auto instance = makeTestInstance();
    instance->outputGain = 0.25;
    instance->showGrid = 0;
    instance->viewFlags = 1;
    instance->editorWidth = 640;
    ASSERT_TRUE(loadDefaultBands(instance.get()));
    void* storage = instance->bands.data;
    ASSERT_TRUE(loadDefaultBands(instance.get()));
    EXPECT_EQ(instance->bands.data, storage);
    EXPECT_EQ(instance->bands.capacity, 4000);
    EXPECT_EQ(instance->outputGain, 0.25);
    EXPECT_EQ(instance->showGrid, 0);
    EXPECT_EQ(instance->viewFlags, 1);
    EXPECT_EQ(instance->editorWidth, 640);
}

TEST(DefaultBands, FollowTheInstanceSampleRate) {
    auto instance = makeTestInstance();
    instance->sampleRate = 96000.0;
    ASSERT_TRUE(loadDefaultBands(instance.get()));
    expectCoefficients(*instance->band(3), referenceHighShelf(96000.0, 5000.0, 1.0, 0.25));
}

TEST(BandList, CountChangesRewriteTheParameterCount) {
    auto instance = makeTestInstance();
    addTestBand(instance.get(), Band, 1000.0, 1.0, 1.0);
    addTestBand(instance.get(), Band, 2000.0, 1.0, 1.0);
    EXPECT_EQ(instance->effect.numParams, 6);
    deleteAllBands(instance.get());
    EXPECT_EQ(instance->bandCount(), 0);
    EXPECT_EQ(instance->effect.numParams, 0);
    EXPECT_EQ(instance->bands.capacity, 4000);  // the storage stays for the next bands
}
