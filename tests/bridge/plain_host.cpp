#include "tests/bridge/plain_host.h"

#include <dlfcn.h>

#include <mutex>

namespace {

std::mutex callsMutex;
std::vector<PlainHostCall> recordedCalls;

intptr_t plainHostCallback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value, void*, float opt) {
    std::lock_guard lock(callsMutex);
    recordedCalls.push_back({effect, opcode, index, value, opt});
    switch (opcode) {
        case audioMasterVersion: return 2400;
        case audioMasterGetSampleRate: return 48000;
        case audioMasterGetBlockSize: return HostedEffect::kBlockSize;
        default: return 0;
    }
}

AEffect* newInstance(const LoadedPlugin& plugin) {
    auto main = reinterpret_cast<VstPluginMainProc>(plugin.handle ? dlsym(plugin.handle, "VSTPluginMain") : nullptr);
    AEffect* effect = main ? main(plainHostCallback) : nullptr;
    std::lock_guard lock(callsMutex);
    // An earlier instance may have lived at the same address.
    std::erase_if(recordedCalls, [effect](const PlainHostCall& call) { return call.effect == effect; });
    return effect;
}

}  // namespace

std::vector<PlainHostCall> plainHostCalls() {
    std::lock_guard lock(callsMutex);
    return recordedCalls;
}

LoadedPlugin::LoadedPlugin(const std::string& path) : handle(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    EXPECT_NE(handle, nullptr) << dlerror();
}

LoadedPlugin::~LoadedPlugin() {
    if (handle) dlclose(handle);
}

LoadedPlugin& builtBridge() {
    static LoadedPlugin bridge(OMBRO_BRIDGE_DIR "/Ombro.so");
    return bridge;
}

HostedEffect::HostedEffect(const LoadedPlugin& plugin) : effect(newInstance(plugin)) {
    if (!effect) return;
    dispatch(effOpen);
    dispatch(effSetSampleRate, 0, 0, nullptr, 48000.0f);
    dispatch(effSetBlockSize, 0, kBlockSize);
    dispatch(effMainsChanged, 0, 1);
}

HostedEffect::~HostedEffect() {
    if (!effect) return;
    dispatch(effMainsChanged, 0, 0);
    dispatch(effClose);
}

intptr_t HostedEffect::dispatch(int32_t opcode, int32_t index, intptr_t value, void* ptr, float opt) {
    return effect->dispatcher(effect, opcode, index, value, ptr, opt);
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
    return {static_cast<const uint8_t*>(data), static_cast<const uint8_t*>(data) + size};
}

void HostedEffect::setChunk(std::vector<uint8_t> chunk) {
    dispatch(effSetChunk, 0, static_cast<intptr_t>(chunk.size()), chunk.data());
}

std::vector<PlainHostCall> HostedEffect::calls(std::optional<int32_t> opcode) const {
    std::vector<PlainHostCall> mine = plainHostCalls();
    std::erase_if(mine, [&](const PlainHostCall& call) {
        return call.effect != effect || (opcode && call.opcode != *opcode);
    });
    return mine;
}

void HostedEffect::clearCalls() {
    std::lock_guard lock(callsMutex);
    std::erase_if(recordedCalls, [this](const PlainHostCall& call) { return call.effect == effect; });
}

intptr_t addNotchBand(HostedEffect& hosted) {
    int32_t address = 3;
    return hosted.dispatch(effVendorSpecific, static_cast<int32_t>(0xDEADBF0F),
                           reinterpret_cast<intptr_t>(&address), nullptr, 2000.0f);
}
