// Notices the effect sends the host when its bands change other than by the
// host's own setParameter: automation, and the parameter-list notice when
// bands are created on request.
#include <gtest/gtest.h>

#include "plugin_under_test.h"

namespace {

constexpr int32_t kSetBandValue = static_cast<int32_t>(0xDEADBF0Fu);

// A band value address: parameter, ordinal among bands of its kind, kind.
int32_t bandAddress(int parameter, int ordinal, int kind, bool normalized) {
    return (normalized ? 0x10000 : 0) | (parameter << 8) | (ordinal << 4) | kind;
}

constexpr int kKindPeaking = 2;

class HostNotices : public SingleInstanceTest {
protected:
    void SetUp() override {
        SingleInstanceTest::SetUp();
        if (session_) session_->clearHostCalls();
    }

    intptr_t setBandValue(int32_t address, float value) {
        return session_->vendorSpecific(kSetBandValue, reinterpret_cast<intptr_t>(&address),
                                        nullptr, value);
    }
};

TEST_F(HostNotices, BandValueRequestIsReportedAsAutomation) {
    // The gain of the second peaking band, band 3: parameter 7.
    EXPECT_EQ(setBandValue(bandAddress(1, 1, kKindPeaking, false), 2.0f), 1);
    std::vector<HostCall> calls = session_->hostCalls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].opcode, audioMasterAutomate);
    EXPECT_EQ(calls[0].index, 7);
    EXPECT_FLOAT_EQ(calls[0].opt, 0.5f);  // gain 2.0 on the 0..4 scale
    EXPECT_FALSE(calls[0].effectWasNull);
    EXPECT_FLOAT_EQ(session_->parameter(7), 0.5f);
}

TEST_F(HostNotices, OutputGainRequestIsReportedAsAStructuralChange) {
    EXPECT_EQ(setBandValue(0xFFFF, 0.5f), 1);
    std::vector<HostCall> calls = session_->hostCalls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].opcode, audioMasterAutomate);
    EXPECT_EQ(calls[0].index, -1);

    StereoBuffer input(4096, 0.5);
    StereoBuffer output;
    session_->process(input, output);  // ramps to the new gain within the block
    session_->process(input, output);
    EXPECT_DOUBLE_EQ(output.left.back(), 0.25);
}

TEST_F(HostNotices, NoticesGoToTheInstanceThatSentThem) {
    auto other = openTestSession();
    ASSERT_NE(other, nullptr);
    other->clearHostCalls();
    setBandValue(bandAddress(2, 0, kKindPeaking, false), 1.0f);
    EXPECT_EQ(session_->hostCalls().size(), 1u);
    EXPECT_TRUE(other->hostCalls().empty());
}

}  // namespace
