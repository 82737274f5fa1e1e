// A plain VST 2 host as a digital audio workstation is one: it loads the
// bridge's shared object with RTLD_LOCAL, offers no extension functions and
// no windowing layer, answers only the host version, sample rate and block
// size, and records every call the plug-in makes into it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contracts/vst2.h"

struct PlainHostCall {
    AEffect* effect;
    int32_t opcode, index;
    intptr_t value;
    float opt;
};

// Every call recorded, whatever effect it named.
std::vector<PlainHostCall> plainHostCalls();

// The shared object, opened RTLD_NOW | RTLD_LOCAL (a failure when it cannot be).
struct LoadedPlugin {
    explicit LoadedPlugin(const std::string& path);
    ~LoadedPlugin();
    void* handle = nullptr;
};

// The build's bridge (Ombro.so beside the core), loaded once per test
// process and kept, as a host keeps its plug-ins.
LoadedPlugin& builtBridge();

// One instance: opened, told the sample rate and block size, switched on;
// switched off and closed on destruction. `effect` is null when the plug-in
// gave no instance.
struct HostedEffect {
    static constexpr int32_t kBlockSize = 256;

    explicit HostedEffect(const LoadedPlugin& plugin);
    ~HostedEffect();
    intptr_t dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f);
    std::string text(int32_t opcode, int32_t index = 0);  // effGetParamName and friends
    std::vector<uint8_t> chunk();
    void setChunk(std::vector<uint8_t> chunk);
    void setParameter(int32_t index, float value) { effect->setParameter(effect, index, value); }
    float parameter(int32_t index) { return effect->getParameter(effect, index); }
    // This instance's calls into the host, in order, all or of one opcode.
    std::vector<PlainHostCall> calls(std::optional<int32_t> opcode = {}) const;
    void clearCalls();

    AEffect* const effect;
};

// A test with one freshly opened instance of the built bridge.
class BridgeInstanceTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(hosted_->effect, nullptr); }
    AEffect* effect() const { return hosted_->effect; }
    std::unique_ptr<HostedEffect> hosted_ = std::make_unique<HostedEffect>(builtBridge());
};

// The default band set has four bands.
constexpr int32_t kDefaultParameterCount = 12;
