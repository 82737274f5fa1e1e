// A session saved with six bands, opened, saved again by Ardour and opened
// once more gives back every band's parameters and the chunk.
#include <cmath>

#include "tests/ardour/ardour_sandbox.h"

TEST_F(ArdourSessionTest, AddedBandsComeBackFromTheSavedSession) {
    SessionFile created = createSession("bands");
    ASSERT_TRUE(created.replacePluginChunk(addedBandsChunk()));
    ASSERT_TRUE(created.save());
    reopenSession("bands", "bands", "resaved");
    std::vector<float> values = reopenSession("bands", "resaved");

    // Frequency (on the host's logarithmic axis), gain and bandwidth of each band.
    std::vector<float> expected;
    for (const BandSetting& band : kAddedBands) {
        expected.push_back(static_cast<float>(
            std::log((band.frequency - 20.0) * 4.170141784820684e-5 * 400.0 + 1.0) * 0.16683457378359495));
        expected.push_back(static_cast<float>(0.25 * std::pow(10.0, band.gainDb / 20.0)));
        expected.push_back(static_cast<float>(0.25 * band.bandwidth));
    }
    ASSERT_EQ(values.size(), expected.size());
    for (size_t i = 0; i < values.size(); ++i) EXPECT_NEAR(values[i], expected[i], 1e-6) << "parameter " << i;
    EXPECT_EQ(SessionFile(path("bands"), "resaved").pluginChunk(), addedBandsChunk());
}
