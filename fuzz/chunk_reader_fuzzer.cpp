// libFuzzer target for the state-chunk reader: any byte block must load
// without reading outside it, and the loaded state must survive processing,
// writing and reading back.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "engine/audio_processing.h"
#include "engine/band_list.h"
#include "engine/state_chunk.h"
#include "plugin/eq_instance.h"

namespace {

// The fields the engine reads, at their creation values.
EqInstance* makeInstance() {
    auto* instance = new EqInstance();
    instance->gestureParam = -1;
    instance->outputGain = instance->currentOutputGain = 1.0;
    instance->sampleRate = 44100.0;
    instance->mutex.init();
    instance->effect.object = instance;
    clearSpectrumAnalyzer(instance->inputAnalyzer);
    clearSpectrumAnalyzer(instance->outputAnalyzer);
    return instance;
}

void processBlock(EqInstance* instance) {
    std::vector<double> left(37, 0.5), right(37, -0.25);
    double* channels[2] = {left.data(), right.data()};
    processDoubleReplacing(&instance->effect, channels, channels, 37);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static EqInstance* instance = makeInstance();
    std::vector<uint8_t> exact(data, data + size);  // so reading past the end is caught
    readStateChunk(instance, exact.data(), static_cast<intptr_t>(exact.size()));
    if (instance->effect.numParams != 3 * instance->bandCount()) __builtin_trap();
    processBlock(instance);

    void* written = nullptr;
    int32_t writtenSize = writeStateChunk(instance, &written);
    std::vector<uint8_t> first(static_cast<uint8_t*>(written),
                               static_cast<uint8_t*>(written) + writtenSize);
    readStateChunk(instance, first.data(), static_cast<intptr_t>(first.size()));
    writtenSize = writeStateChunk(instance, &written);
    if (static_cast<size_t>(writtenSize) != first.size() ||
        std::memcmp(written, first.data(), first.size()) != 0)
        __builtin_trap();
    return 0;
}
