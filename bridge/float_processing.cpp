#include "bridge/float_processing.h"

#include <algorithm>
#include <new>

namespace bridge {

void FloatProcessing::reserve(int32_t frames) {
    frames = std::min(frames, kMostReservedFrames);
    if (frames <= capacity_) return;
    try {
        storage_.assign(static_cast<size_t>(frames) * 2 * kChannels, 0.0);
    } catch (const std::bad_alloc&) {
        return;  // the old buffers, if any, were left as they are
    }
    for (int32_t c = 0; c < kChannels; ++c) {
        inputs_[c] = storage_.data() + static_cast<size_t>(c) * frames;
        outputs_[c] = storage_.data() + static_cast<size_t>(kChannels + c) * frames;
    }
    capacity_ = frames;
}

void FloatProcessing::process(AEffect* core, float** inputs, float** outputs, int32_t frames,
                              Output mode) {
    if (capacity_ == 0) return;
    for (int32_t offset = 0; offset < frames; offset += capacity_)
        processChunk(core, inputs, outputs, offset, std::min(capacity_, frames - offset), mode);
}

void FloatProcessing::processChunk(AEffect* core, float** inputs, float** outputs,
                                   int32_t offset, int32_t frames, Output mode) {
    for (int32_t c = 0; c < kChannels; ++c)
        for (int32_t i = 0; i < frames; ++i) inputs_[c][i] = inputs[c][offset + i];
    core->processDoubleReplacing(core, inputs_, outputs_, frames);
    for (int32_t c = 0; c < kChannels; ++c) {
        float* output = outputs[c] + offset;
        if (mode == Output::accumulate)
            for (int32_t i = 0; i < frames; ++i) output[i] += static_cast<float>(outputs_[c][i]);
        else
            for (int32_t i = 0; i < frames; ++i) output[i] = static_cast<float>(outputs_[c][i]);
    }
}

}  // namespace bridge
