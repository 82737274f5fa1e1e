// The 32-bit processReplacing entry over the core's 64-bit processing: the
// float input is widened into buffers allocated before processing, the core
// runs processDoubleReplacing, and the result is narrowed into the output.
// Input and output may be the same buffers (each chunk is read before it is
// written). Blocks longer than the reserved length run as several chunks, so
// the audio thread never allocates.
#pragma once

#include <cstdint>
#include <vector>

#include "contracts/vst2.h"

namespace bridge {

class FloatProcessing {
public:
    static constexpr int32_t kChannels = 2;
    static constexpr int32_t kInitialFrames = 1024;
    // Longer announced blocks run in chunks of this many frames.
    static constexpr int32_t kMostReservedFrames = 1 << 16;

    FloatProcessing() { reserve(kInitialFrames); }

    // Grows the buffers to hold `frames` frames per channel, at most
    // kMostReservedFrames (never shrinks; out of memory keeps them as they
    // are). Called from the host's GUI thread (effSetBlockSize,
    // effMainsChanged), which hosts do not do while processing.
    void reserve(int32_t frames);
    int32_t capacity() const { return capacity_; }

    // Replacing: the output is the result. Accumulating (the old process
    // entry): the result is added to what the output holds.
    enum class Output { replace, accumulate };

    // Without buffers (no memory at creation) the output is left alone.
    void process(AEffect* core, float** inputs, float** outputs, int32_t frames,
                 Output mode = Output::replace);

private:
    void processChunk(AEffect* core, float** inputs, float** outputs, int32_t offset,
                      int32_t frames, Output mode);

    std::vector<double> storage_;
    double* inputs_[kChannels] = {};
    double* outputs_[kChannels] = {};
    int32_t capacity_ = 0;
};

}  // namespace bridge
