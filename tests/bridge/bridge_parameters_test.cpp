// The state chunk through the bridge against the equalizer's own through the
// stand-in host, and the parameter count as bands come and go.
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "tests/bridge/plain_host.h"

namespace {

// Name, label, display and value of each parameter.
std::vector<std::string> answers(HostedEffect& hosted) {
    std::vector<std::string> texts;
    for (int32_t p = 0; p < hosted.effect->numParams; ++p)
        texts.push_back(hosted.text(effGetParamName, p) + "|" + hosted.text(effGetParamLabel, p) + "|" +
                        hosted.text(effGetParamDisplay, p) + "|" + std::to_string(hosted.parameter(p)));
    return texts;
}

// The editor's request that sets a value of a band not there yet: the
// frequency of the first notch band (kind 3, ordinal 0, value 0) adds it.
intptr_t addNotchBand(HostedEffect& hosted) {
    int32_t address = 3;
    return hosted.dispatch(effVendorSpecific, static_cast<int32_t>(0xDEADBF0F),
                           reinterpret_cast<intptr_t>(&address), nullptr, 2000.0f);
}

// One IOChanged, then one UpdateDisplay, and nothing private (the core's
// own notice of a changed list stays in the bridge).
void expectCountNotices(const HostedEffect& hosted) {
    std::vector<int32_t> notices;
    for (const PlainHostCall& call : hosted.calls())
        if (call.opcode == audioMasterIOChanged || call.opcode == audioMasterUpdateDisplay ||
            call.opcode == audioMasterVendorSpecific)
            notices.push_back(call.opcode);
    EXPECT_EQ(notices, (std::vector<int32_t>{audioMasterIOChanged, audioMasterUpdateDisplay}));
}

// Set parameters give the stand-in host's chunk; a band added by request
// brings its parameters with the notices hosts listen for, and the chunk
// restores it in another instance; loading the four bands again removes it.
TEST_F(BridgeInstanceTest, ChunkAndParameterCountFollowSettingsAndBands) {
    std::vector<uint8_t> fourBands = hosted_->chunk();
    std::string command = OMBRO_HOST_PROGRAM " save-state " + testing::TempDir() + "bridge.state";
    for (auto [index, value] : {std::pair{0, 0.2f}, {1, 0.6f}, {2, 0.125f}, {4, 0.0f}, {7, 0.9f},
                                {9, 0.95f}, {10, 0.3f}, {11, 0.5f}}) {
        hosted_->setParameter(index, value);
        command += " --set " + std::to_string(index) + "=" + std::to_string(value);
    }
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
    std::ifstream state(testing::TempDir() + "bridge.state", std::ios::binary);
    EXPECT_EQ(hosted_->chunk(), std::vector<uint8_t>(std::istreambuf_iterator<char>(state), {}));

    hosted_->clearCalls();
    ASSERT_EQ(addNotchBand(*hosted_), 1);
    EXPECT_EQ(effect()->numParams, kDefaultParameterCount + 3);
    expectCountNotices(*hosted_);
    EXPECT_EQ(hosted_->text(effGetParamName, kDefaultParameterCount + 1), "Gain-Notch 5");
    HostedEffect restored(builtBridge());
    restored.setChunk(hosted_->chunk());
    EXPECT_EQ(restored.chunk(), hosted_->chunk());
    EXPECT_EQ(answers(restored), answers(*hosted_));

    hosted_->clearCalls();
    hosted_->setChunk(fourBands);
    EXPECT_EQ(effect()->numParams, kDefaultParameterCount);
    expectCountNotices(*hosted_);
    hosted_->clearCalls();
    hosted_->setChunk(fourBands);
    EXPECT_TRUE(hosted_->calls().empty()) << "no notice when the count stays";
}

}  // namespace
