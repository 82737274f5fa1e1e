// Ombro's state kept by Ardour: a session saved with the plug-in, closed and
// opened again, gives back every band and parameter.
#include "tests/ardour/ardour_session_fixture.h"
#include "tests/ardour/session_file.h"

TEST_F(ArdourSessionTest, ParametersSetInArdourComeBackAfterReopening) {
    createSession("parameters", {"4=0.375", "7=0.5", "9=0.8", "11=0.125"});
    std::vector<float> values = reopenSession("parameters", "parameters");
    // The four default bands, with the four values Ardour set.
    std::vector<BandSetting> expected = {{0, 1, 100.0, 0.0, 2.0},
                                         {8, 1, 300.0, 0.0, 2.0},
                                         {8, 1, 1000.0, 0.0, 2.0},
                                         {1, 1, 5000.0, 0.0, 2.0}};
    std::vector<float> expectedValues = normalizedParameters(expected);
    expectedValues[4] = 0.375f;
    expectedValues[7] = 0.5f;
    expectedValues[9] = 0.8f;
    expectedValues[11] = 0.125f;
    ASSERT_EQ(values.size(), expectedValues.size());
    for (size_t i = 0; i < values.size(); ++i)
        EXPECT_NEAR(values[i], expectedValues[i], 1e-6) << "parameter " << i;
}

TEST_F(ArdourSessionTest, AddedBandsComeBackFromTheSavedSession) {
    createSession("bands");
    std::vector<unsigned char> chunk = stateChunk(kAddedBandsState, kStateOutputGainDb);
    SessionFile created(sessionFolder("bands"), "bands");
    ASSERT_TRUE(created.replacePluginChunk(chunk));
    ASSERT_TRUE(created.save());

    // Ardour loads the six bands and writes the session itself; the session
    // it wrote is opened once more.
    reopenSession("bands", "bands", "resaved");
    std::vector<float> values = reopenSession("bands", "resaved");

    std::vector<float> expectedValues = normalizedParameters(kAddedBandsState);
    ASSERT_EQ(values.size(), expectedValues.size());
    for (size_t i = 0; i < values.size(); ++i)
        EXPECT_NEAR(values[i], expectedValues[i], 1e-6) << "parameter " << i;
    EXPECT_EQ(SessionFile(sessionFolder("bands"), "resaved").pluginChunk(), chunk);
}
