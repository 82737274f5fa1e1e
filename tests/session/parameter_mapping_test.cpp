// The host's normalized parameters: limits and display texts.
#include "tests/session/session_fixture.h"

namespace {

using ParameterMapping = SessionTest;

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
}

}  // namespace
