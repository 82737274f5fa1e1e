// A plain VST 2 host: it loads the bridge with RTLD_LOCAL, offers no
// extension functions and no windowing layer, answers only the host version,
// sample rate and block size, and records every call the plug-in makes.
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

// The shared object, opened RTLD_NOW | RTLD_LOCAL.
struct LoadedPlugin {
    explicit LoadedPlugin(const std::string& path);
    ~LoadedPlugin();
    void* handle = nullptr;
};

// The build's bridge, loaded once per test process and kept.
LoadedPlugin& builtBridge();

// One instance: opened, set up and switched on; switched off and closed at the end.
struct HostedEffect {
    static constexpr int32_t kBlockSize = 256;

    explicit HostedEffect(const LoadedPlugin& plugin);
    ~HostedEffect();
    intptr_t dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f);
    std::string text(int32_t opcode, int32_t index = 0);
    std::vector<uint8_t> chunk();
    void setChunk(std::vector<uint8_t> chunk);
    void setParameter(int32_t index, float value) { effect->setParameter(effect, index, value); }
    float parameter(int32_t index) { return effect->getParameter(effect, index); }
    // This instance's calls into the host, in order, all or of one opcode.
    std::vector<PlainHostCall> calls(std::optional<int32_t> opcode = {}) const;
    void clearCalls();

    AEffect* const effect;
};

// The editor's request that sets a value of a band not there yet: the
// frequency of the first notch band (kind 3, ordinal 0, value 0) adds it.
intptr_t addNotchBand(HostedEffect& hosted);

class BridgeInstanceTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(hosted_->effect, nullptr); }
    AEffect* effect() const { return hosted_->effect; }
    std::unique_ptr<HostedEffect> hosted_ = std::make_unique<HostedEffect>(builtBridge());
};

constexpr int32_t kDefaultParameterCount = 12;
