// The host's normalized parameters: mappings, limits and display texts.
#include <cmath>

#include "tests/session/session_fixture.h"

namespace {

using ParameterMapping = SessionTest;

constexpr int kBand3Frequency = 6;  // band index 2
constexpr int kBand3Gain = 7;
constexpr int kBand3Bandwidth = 8;

// The logarithmic frequency scale, written out independently of the plug-in.
double logScale(double hz) { return std::log(1.0 + 400.0 * (hz - 20.0) / 23980.0) / std::log(401.0); }

TEST_F(ParameterMapping, DefaultBandsReadBackOnTheirScales) {
    EXPECT_EQ(session->parameterCount(), 12);
    EXPECT_FLOAT_EQ(session->parameter(kBand3Frequency), static_cast<float>(logScale(1000.0)));
    EXPECT_NEAR(session->parameter(kBand3Frequency), 0.476049, 1e-6);
    EXPECT_EQ(session->parameter(kBand3Gain), 0.25f);
    EXPECT_EQ(session->parameter(kBand3Bandwidth), 0.5f);
}

TEST_F(ParameterMapping, LogFrequencyLimitsAtBothEnds) {
    session->setParameter(kBand3Frequency, 1.0f);
    EXPECT_EQ(session->parameterDisplay(kBand3Frequency), "24000.0");
    session->setParameter(kBand3Frequency, 0.0f);
    EXPECT_EQ(session->parameterDisplay(kBand3Frequency), "20.0");
    session->setParameter(kBand3Frequency, 0.5f);
    EXPECT_EQ(session->parameterDisplay(kBand3Frequency), "1160.5");
}

TEST_F(ParameterMapping, GainAndBandwidthLimits) {
    session->setParameter(kBand3Gain, 20.0f);
    EXPECT_EQ(session->parameter(kBand3Gain), 16.0f);  // 64 stored
    EXPECT_EQ(session->parameterDisplay(kBand3Gain), "36.1");
    session->setParameter(kBand3Gain, -0.5f);
    EXPECT_EQ(session->parameter(kBand3Gain), -0.5f);  // -2.0 stored, no lower limit
    EXPECT_EQ(session->parameterDisplay(kBand3Gain), "-inf");
    session->setParameter(kBand3Gain, 0.25f);
    EXPECT_EQ(session->parameterDisplay(kBand3Gain), "0.0");
    session->setParameter(kBand3Bandwidth, -1.0f);
    EXPECT_EQ(session->parameter(kBand3Bandwidth), 0.0f);
    session->setParameter(kBand3Bandwidth, 2.0f);
    EXPECT_EQ(session->parameter(kBand3Bandwidth), 1.0f);
    EXPECT_EQ(session->parameterDisplay(kBand3Bandwidth), "4.00");
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

TEST_F(ParameterMapping, NamesLabelsAndDisplays) {
    EXPECT_EQ(session->parameterName(0), "Freq-Low Shelf");
    EXPECT_EQ(session->parameterName(4), "Gain-Band 2");
    EXPECT_EQ(session->parameterName(8), "Q-Band 3");
    EXPECT_EQ(session->parameterName(9), "Freq-High Shelf");
    EXPECT_EQ(session->parameterLabel(0), "Hz");
    EXPECT_EQ(session->parameterLabel(1), "dB");
    EXPECT_EQ(session->parameterLabel(2), "");
    EXPECT_EQ(session->parameterDisplay(0), "100.0");
    EXPECT_EQ(session->parameterDisplay(2), "2.00");
}

TEST_F(ParameterMapping, ParameterChangesDoNotNotifyTheHost) {
    session->clearHostCalls();
    session->setParameter(kBand3Gain, 0.5f);
    EXPECT_TRUE(gestureCalls().empty());
}

}  // namespace
