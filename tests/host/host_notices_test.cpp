// Notices the effect sends the host when its bands change other than by the
// host's own setParameter: automation, and the parameter-list notice when
// bands are created on request.
#include <gtest/gtest.h>

#include "contracts/host_extensions.h"
#include "plugin_under_test.h"

namespace {

constexpr int32_t kSetBandValue = static_cast<int32_t>(0xDEADBF0Fu);
constexpr int32_t kSetBandEnabled = static_cast<int32_t>(0xDEADBF11u);

// A band value address: parameter, ordinal among bands of its kind, kind.
int32_t bandAddress(int parameter, int ordinal, int kind, bool normalized) {
    return (normalized ? 0x10000 : 0) | (parameter << 8) | (ordinal << 4) | kind;
}

constexpr int kKindHighPass = 0;
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

TEST_F(HostNotices, CreatedBandsAreAnnouncedAsNewParameters) {
    // The frequency of a third high pass: three high-pass bands are made.
    EXPECT_EQ(setBandValue(bandAddress(0, 2, kKindHighPass, true), 0.5f), 1);
    EXPECT_EQ(session_->parameterCount(), 21);
    EXPECT_EQ(session_->parameterName(18), "Freq-High Pass 7");

    std::vector<HostCall> calls = session_->hostCalls();
    std::vector<HostCall> listChanges = callsWithOpcode(calls, audioMasterVendorSpecific);
    ASSERT_FALSE(listChanges.empty());
    for (const HostCall& change : listChanges) {
        EXPECT_EQ(change.index, kHostExtensionOpcode);
        ASSERT_TRUE(change.paramListChange.has_value());
        EXPECT_EQ(change.paramListChange->delta, 3);
    }
    EXPECT_EQ(listChanges.back().paramListChange->first, 18);

    ASSERT_GE(calls.size(), 3u);
    const HostCall& changed = calls[calls.size() - 2];
    const HostCall& automated = calls.back();
    EXPECT_EQ(changed.opcode, audioMasterAutomate);
    EXPECT_EQ(changed.index, -1);
    EXPECT_EQ(automated.opcode, audioMasterAutomate);
    EXPECT_EQ(automated.index, 18);
    EXPECT_FLOAT_EQ(automated.opt, session_->parameter(18));
}

TEST_F(HostNotices, EnablingAMissingBandCreatesItEnabled) {
    int32_t address = bandAddress(0, 0, kKindHighPass, false);
    EXPECT_EQ(session_->vendorSpecific(kSetBandEnabled, reinterpret_cast<intptr_t>(&address),
                                       nullptr, 1.0f),
              1);
    EXPECT_EQ(session_->parameterCount(), 15);
    std::vector<HostCall> listChanges =
        callsWithOpcode(session_->hostCalls(), audioMasterVendorSpecific);
    ASSERT_EQ(listChanges.size(), 1u);
    EXPECT_EQ(listChanges[0].paramListChange->first, 12);
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
