// The host's normalized parameters: mappings, limits and display texts.
#include "tests/session/session_fixture.h"

namespace {

using ParameterMapping = SessionTest;

TEST_F(ParameterMapping, DefaultBandsReadBackWithTheirNamesOnTheirScales) {
    EXPECT_EQ(session->parameterCount(), 12);
    EXPECT_NEAR(session->parameter(6), 0.476049, 1e-6);  // 1000 Hz on the logarithmic scale
    EXPECT_EQ(session->parameter(7), 0.25f);
    EXPECT_EQ(session->parameter(8), 0.5f);
    struct Row {
        int32_t p;
        const char *name, *label, *display;
    } rows[] = {{0, "Freq-Low Shelf", "Hz", "100.0"},
                {4, "Gain-Band 2", "dB", "0.0"},
                {8, "Q-Band 3", "", "2.00"},
                {9, "Freq-High Shelf", "Hz", "5000.0"}};
    for (const Row& row : rows) {
        EXPECT_EQ(session->parameterName(row.p), row.name);
        EXPECT_EQ(session->parameterLabel(row.p), row.label);
        EXPECT_EQ(session->parameterDisplay(row.p), row.display);
    }
}

// Values the host sets on band 3 and what it reads back: frequency on the
// log scale, gain without a lower limit up to 64 (16.0), bandwidth 0..4 octaves.
TEST_F(ParameterMapping, SetValuesAreClampedAndDisplayed) {
    struct Case {
        int32_t p;
        float set, readBack;
        const char* display;
    } cases[] = {
        {6, 1.0f, 1.0f, "24000.0"}, {6, 0.0f, 0.0f, "20.0"},  {6, 0.5f, 0.5f, "1160.5"},
        {7, 20.0f, 16.0f, "36.1"},  {7, -0.5f, -0.5f, "-inf"}, {7, 0.25f, 0.25f, "0.0"},
        {8, -1.0f, 0.0f, "0.00"},   {8, 2.0f, 1.0f, "4.00"},
    };
    session->clearHostCalls();
    for (const Case& c : cases) {
        session->setParameter(c.p, c.set);
        EXPECT_FLOAT_EQ(session->parameter(c.p), c.readBack) << c.p << " set to " << c.set;
        EXPECT_EQ(session->parameterDisplay(c.p), c.display) << c.p << " set to " << c.set;
    }
    EXPECT_TRUE(session->hostCalls().empty());  // the host's own changes are not echoed
}

TEST_F(ParameterMapping, OutOfRangeIndicesReadZeroAndChangeNothing) {
    EXPECT_EQ(session->parameter(12), 0.0f);
    EXPECT_EQ(session->parameter(-1), 0.0f);
    std::vector<uint8_t> before = session->chunk();
    session->setParameter(-3, 0.9f);
    session->setParameter(12, 0.9f);
    EXPECT_EQ(session->chunk(), before);
    EXPECT_EQ(session->parameterLabel(12), "");
    EXPECT_EQ(session->parameterDisplay(12), "");
    EXPECT_EQ(session->dispatch(effCanBeAutomated, 11), 1);
    EXPECT_EQ(session->dispatch(effCanBeAutomated, 12), 0);
}

}  // namespace
