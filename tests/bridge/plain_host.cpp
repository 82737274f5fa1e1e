#include "tests/bridge/plain_host.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace {

constexpr intptr_t kHostVstVersion = 2400;

std::mutex callsMutex;
std::vector<PlainHostCall> recordedCalls;
std::map<AEffect*, int32_t> blockSizes;

intptr_t answer(AEffect* effect, int32_t opcode) {
    switch (opcode) {
        case audioMasterVersion: return kHostVstVersion;
        case audioMasterGetSampleRate: return static_cast<intptr_t>(HostedEffect::kSampleRate);
        case audioMasterGetBlockSize: {
            auto found = blockSizes.find(effect);
            return found == blockSizes.end() ? HostedEffect::kBlockSize : found->second;
        }
        default: return 0;
    }
}

}  // namespace

intptr_t plainHostCallback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value,
                           void* /*ptr*/, float opt) {
    std::lock_guard lock(callsMutex);
    recordedCalls.push_back({effect, opcode, index, value, opt});
    return answer(effect, opcode);
}

LoadedPlugin::LoadedPlugin(const std::string& path) {
    handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    EXPECT_NE(handle_, nullptr) << dlerror();
    if (!handle_) return;
    main_ = reinterpret_cast<VstPluginMainProc>(dlsym(handle_, "VSTPluginMain"));
    EXPECT_NE(main_, nullptr) << path << " has no VSTPluginMain";
}

LoadedPlugin::~LoadedPlugin() {
    if (handle_) dlclose(handle_);
}

std::unique_ptr<HostedEffect> HostedEffect::open(const LoadedPlugin& plugin, int32_t blockSize) {
    if (!plugin.loaded()) return nullptr;
    AEffect* effect = plugin.main()(plainHostCallback);
    if (!effect) return nullptr;
    {
        std::lock_guard lock(callsMutex);
        // An earlier instance may have lived at the same address.
        std::erase_if(recordedCalls, [effect](const PlainHostCall& call) { return call.effect == effect; });
        blockSizes[effect] = blockSize;
    }
    std::unique_ptr<HostedEffect> hosted(new HostedEffect(effect));
    hosted->dispatch(effOpen);
    hosted->dispatch(effSetSampleRate, 0, 0, nullptr, kSampleRate);
    hosted->dispatch(effSetBlockSize, 0, blockSize);
    hosted->dispatch(effMainsChanged, 0, 1);
    return hosted;
}

HostedEffect::~HostedEffect() { close(); }

intptr_t HostedEffect::dispatch(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                float opt) {
    return effect_->dispatcher(effect_, opcode, index, value, ptr, opt);
}

void HostedEffect::close() {
    if (!effect_) return;
    dispatch(effMainsChanged, 0, 0);
    dispatch(effClose);
    effect_ = nullptr;
}

std::string HostedEffect::text(int32_t opcode, int32_t index) {
    char buffer[512] = {};
    dispatch(opcode, index, 0, buffer);
    return buffer;
}

std::vector<uint8_t> HostedEffect::chunk() {
    void* data = nullptr;
    intptr_t size = dispatch(effGetChunk, 0, 0, &data);
    if (size <= 0 || !data) return {};
    const auto* bytes = static_cast<const uint8_t*>(data);
    return {bytes, bytes + size};
}

void HostedEffect::setChunk(const std::vector<uint8_t>& chunk) {
    std::vector<uint8_t> copy = chunk;
    dispatch(effSetChunk, 0, static_cast<intptr_t>(copy.size()), copy.data());
}

std::vector<PlainHostCall> HostedEffect::calls() const {
    std::lock_guard lock(callsMutex);
    std::vector<PlainHostCall> mine;
    for (const PlainHostCall& call : recordedCalls)
        if (call.effect == effect_) mine.push_back(call);
    return mine;
}

std::vector<PlainHostCall> HostedEffect::callsWithOpcode(int32_t opcode) const {
    std::vector<PlainHostCall> all = calls();
    std::vector<PlainHostCall> matching;
    std::copy_if(all.begin(), all.end(), std::back_inserter(matching),
                 [opcode](const PlainHostCall& call) { return call.opcode == opcode; });
    return matching;
}

void HostedEffect::clearCalls() {
    std::lock_guard lock(callsMutex);
    std::erase_if(recordedCalls, [this](const PlainHostCall& call) { return call.effect == effect_; });
}

std::vector<PlainHostCall> unattributedPlainHostCalls() {
    std::lock_guard lock(callsMutex);
    std::vector<PlainHostCall> unattributed;
    for (const PlainHostCall& call : recordedCalls)
        if (!blockSizes.count(call.effect)) unattributed.push_back(call);
    return unattributed;
}
