// A plain VST 2 host as a digital audio workstation is one: it loads a
// plug-in's shared object with RTLD_LOCAL, offers no extension functions and
// no windowing layer, answers audioMasterVersion (and the block size and
// sample rate it announced), and records every call the plug-in makes into it.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "contracts/vst2.h"

struct PlainHostCall {
    AEffect* effect;
    int32_t opcode;
    int32_t index;
    intptr_t value;
    float opt;
};

// The shared object, opened RTLD_NOW | RTLD_LOCAL.
class LoadedPlugin {
public:
    explicit LoadedPlugin(const std::string& path);  // fails the test when it cannot load
    ~LoadedPlugin();                                 // dlclose
    LoadedPlugin(const LoadedPlugin&) = delete;
    LoadedPlugin& operator=(const LoadedPlugin&) = delete;

    bool loaded() const { return main_ != nullptr; }
    VstPluginMainProc main() const { return main_; }
    void* handle() const { return handle_; }

private:
    void* handle_ = nullptr;
    VstPluginMainProc main_ = nullptr;
};

// One instance of the plug-in in the plain host.
class HostedEffect {
public:
    static constexpr int32_t kBlockSize = 256;
    static constexpr float kSampleRate = 48000.0f;

    // VSTPluginMain, effOpen, sample rate, block size, switched on. Null when
    // the plug-in gives no AEffect.
    static std::unique_ptr<HostedEffect> open(const LoadedPlugin& plugin,
                                              int32_t blockSize = kBlockSize);
    ~HostedEffect();  // effClose unless closed already
    HostedEffect(const HostedEffect&) = delete;
    HostedEffect& operator=(const HostedEffect&) = delete;

    AEffect* effect() const { return effect_; }
    intptr_t dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f);
    void close();

    std::string text(int32_t opcode, int32_t index = 0);  // effGetParamName and friends
    std::vector<uint8_t> chunk();
    void setChunk(const std::vector<uint8_t>& chunk);
    void setParameter(int32_t index, float value) { effect_->setParameter(effect_, index, value); }
    float parameter(int32_t index) { return effect_->getParameter(effect_, index); }

    // The calls the plug-in made for this instance, in order; and clearing them.
    std::vector<PlainHostCall> calls() const;
    std::vector<PlainHostCall> callsWithOpcode(int32_t opcode) const;
    void clearCalls();

private:
    explicit HostedEffect(AEffect* effect) : effect_(effect) {}
    AEffect* effect_;
};

// Calls the plug-in made with a null effect or an effect the host does not know.
std::vector<PlainHostCall> unattributedPlainHostCalls();

// The callback itself, for tests that call VSTPluginMain directly.
intptr_t plainHostCallback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value,
                           void* ptr, float opt);
