// Gliding bands, run so that their redesigns do not stall the filters: for a
// batch of chunks, every band's designs come first, then one pipelined
// cascade filters the batch, switching coefficients at every chunk. (The
// maths library saves the floating-point status on each call, which waits
// for all filtering still in flight; alternating one design and one chunk
// pays that wait every chunk.) The bands end in exactly the state that
// gliding band after band, chunk after chunk, leaves them in.
#pragma once

#include <cstdint>

#include "engine/band_cascade.h"

constexpr int32_t kGlideBatchChunks = 64;
constexpr int32_t kGlideGroupBands = 8;

// `rule.begin(band, frames)` gives the band's glide increments for a block of
// `frames`; `rule.advance(band, increments, chunkFrames)` moves the glide on
// by one chunk and redesigns the band. Each band's chunks are advanced in
// order; the caller marks the bands primed.
template <typename GlideRule>
void glideBands(EqBand* const* bands, int32_t count, const GlideRule& rule,
                const BandKernels& kernels, const double* inLeft, const double* inRight,
                double* outLeft, double* outRight, int32_t frames) {
    constexpr int32_t kBatchFrames = kGlideBatchChunks * kGlideChunkFrames;
    ChunkCoefficients designs[kGlideGroupBands][kGlideBatchChunks];
    for (int32_t first = 0; first < count; first += kGlideGroupBands) {
        const int32_t group = count - first < kGlideGroupBands ? count - first : kGlideGroupBands;
        decltype(rule.begin(*bands[0], frames)) increments[kGlideGroupBands];
        for (int32_t i = 0; i < group; ++i) increments[i] = rule.begin(*bands[first + i], frames);
        for (int32_t begin = 0; begin < frames; begin += kBatchFrames) {
            const int32_t end = frames - begin < kBatchFrames ? frames : begin + kBatchFrames;
            for (int32_t i = 0; i < group; ++i) {
                EqBand& band = *bands[first + i];
                for (int32_t done = begin, chunk = 0; done < end; done += kGlideChunkFrames) {
                    rule.advance(band, increments[i],
                                 end - done < kGlideChunkFrames ? end - done : kGlideChunkFrames);
                    designs[i][chunk++] = coefficientsOf(band);
                }
            }
            kernels.runGlideCascade(bands + first, group, designs[0], kGlideBatchChunks,
                                    inLeft + begin, inRight + begin, outLeft + begin,
                                    outRight + begin, end - begin);
        }
        inLeft = outLeft;
        inRight = outRight;
    }
}
