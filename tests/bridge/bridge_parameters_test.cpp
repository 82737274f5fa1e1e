// The parameter count as bands come and go.
#include "tests/bridge/plain_host.h"

namespace {

// One IOChanged, then one UpdateDisplay; the core's private notice stays in the bridge.
void expectCountNotices(const HostedEffect& hosted) {
    std::vector<int32_t> notices;
    for (const PlainHostCall& call : hosted.calls())
        if (call.opcode == audioMasterIOChanged || call.opcode == audioMasterUpdateDisplay ||
            call.opcode == audioMasterVendorSpecific)
            notices.push_back(call.opcode);
    EXPECT_EQ(notices, (std::vector<int32_t>{audioMasterIOChanged, audioMasterUpdateDisplay}));
}

// A band added by request brings its parameters with the notices hosts
// listen for, and the chunk restores it in another instance; loading the
// four bands again removes it.
TEST_F(BridgeInstanceTest, ParameterCountFollowsBandsAddedByRequestAndRemovedByChunk) {
    std::vector<uint8_t> fourBands = hosted_->chunk();
    hosted_->clearCalls();
    ASSERT_EQ(addNotchBand(*hosted_), 1);
    EXPECT_EQ(effect()->numParams, kDefaultParameterCount + 3);
    expectCountNotices(*hosted_);
    EXPECT_EQ(hosted_->text(effGetParamName, kDefaultParameterCount + 1), "Gain-Notch 5");
    HostedEffect restored(builtBridge());
    restored.setChunk(hosted_->chunk());
    EXPECT_EQ(restored.chunk(), hosted_->chunk());
    EXPECT_EQ(restored.effect->numParams, kDefaultParameterCount + 3);

    hosted_->clearCalls();
    hosted_->setChunk(fourBands);
    EXPECT_EQ(effect()->numParams, kDefaultParameterCount);
    expectCountNotices(*hosted_);
    hosted_->clearCalls();
    hosted_->setChunk(fourBands);
    EXPECT_TRUE(hosted_->calls().empty()) << "no notice when the count stays";
}

}  // namespace
