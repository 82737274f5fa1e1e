// Parameters, their texts and the state chunk through the bridge equal the
// equalizer's own through the stand-in host; the host's parameter count
// follows bands added and removed, with the notices hosts listen for.
#include "contracts/host_extensions.h"
#include "tests/bridge/bridge_fixture.h"
#include "tests/bridge/reference_runner.h"

namespace {

constexpr int32_t kSetBandValue = static_cast<int32_t>(0xDEADBF0F);
constexpr int32_t kFirstNotchFrequency = 3;  // kind 3 (notch), ordinal 0, frequency

const std::vector<ParameterValue> kSettings = {
    {0, 0.2f}, {1, 0.6f}, {2, 0.125f}, {4, 0.0f}, {7, 0.9f}, {9, 0.95f}, {10, 0.3f}, {11, 0.5f}};

std::vector<ParameterAnswer> bridgeAnswers(HostedEffect& hosted) {
    std::vector<ParameterAnswer> answers;
    for (int32_t p = 0; p < hosted.effect()->numParams; ++p)
        answers.push_back({hosted.text(effGetParamName, p), hosted.text(effGetParamLabel, p),
                           hosted.text(effGetParamDisplay, p), hosted.parameter(p)});
    return answers;
}

void apply(HostedEffect& hosted, const std::vector<ParameterValue>& values) {
    for (const ParameterValue& value : values) hosted.setParameter(value.index, value.value);
}

intptr_t addNotchBand(HostedEffect& hosted) {
    int32_t address = kFirstNotchFrequency;
    return hosted.dispatch(effVendorSpecific, kSetBandValue, reinterpret_cast<intptr_t>(&address),
                           nullptr, 2000.0f);
}

// One IOChanged followed by one UpdateDisplay among the calls, and nothing
// private (the core's own notice of a changed list stays in the bridge).
void expectCountNotices(const HostedEffect& hosted) {
    std::vector<int32_t> notices;
    for (const PlainHostCall& call : hosted.calls())
        if (call.opcode == audioMasterIOChanged || call.opcode == audioMasterUpdateDisplay ||
            call.opcode == audioMasterVendorSpecific)
            notices.push_back(call.opcode);
    EXPECT_EQ(notices, (std::vector<int32_t>{audioMasterIOChanged, audioMasterUpdateDisplay}));
}

TEST_F(BridgeInstanceTest, ParameterTextsAndChunkEqualTheStandInHosts) {
    apply(*hosted_, kSettings);
    ReferenceAnswers reference = standInAnswers(kSettings);
    ASSERT_EQ(reference.parameters.size(), static_cast<size_t>(kDefaultParameterCount));
    EXPECT_EQ(bridgeAnswers(*hosted_), reference.parameters);
    EXPECT_EQ(hosted_->chunk(), reference.chunk);
}

TEST_F(BridgeInstanceTest, ChunkRoundTripsIntoAnotherInstance) {
    apply(*hosted_, kSettings);
    ASSERT_EQ(addNotchBand(*hosted_), 1);
    std::vector<uint8_t> saved = hosted_->chunk();
    std::unique_ptr<HostedEffect> restored = HostedEffect::open(builtBridge());
    ASSERT_NE(restored, nullptr);
    restored->setChunk(saved);
    EXPECT_EQ(restored->chunk(), saved);
    EXPECT_EQ(bridgeAnswers(*restored), bridgeAnswers(*hosted_));
    EXPECT_EQ(bridgeAnswers(*restored), standInAnswers({}, saved).parameters);
}

TEST_F(BridgeInstanceTest, ParameterCountFollowsBandsAddedByRequestAndRemovedByChunk) {
    std::vector<uint8_t> fourBands = hosted_->chunk();
    hosted_->clearCalls();
    ASSERT_EQ(addNotchBand(*hosted_), 1);
    EXPECT_EQ(effect()->numParams, kDefaultParameterCount + 3);
    expectCountNotices(*hosted_);
    EXPECT_EQ(hosted_->text(effGetParamName, kDefaultParameterCount + 1), "Gain-Notch 5");

    hosted_->clearCalls();
    hosted_->setChunk(fourBands);
    EXPECT_EQ(effect()->numParams, kDefaultParameterCount);
    expectCountNotices(*hosted_);

    hosted_->clearCalls();
    hosted_->setChunk(fourBands);
    EXPECT_TRUE(hosted_->calls().empty()) << "no notice when the count stays";
}

}  // namespace
