// The cascades compiled for each instruction set, one translation unit each,
// so that no wider instruction reaches code that runs on a narrower processor.
#pragma once

#include "engine/band_cascade.h"

#define OMBRO_DECLARE_CASCADES(set)                                                         \
    void runCascade##set(EqBand* const* bands, int32_t count, const double* inLeft,         \
                         const double* inRight, double* outLeft, double* outRight,          \
                         int32_t frames);                                                   \
    void runGlideCascade##set(EqBand* const* bands, int32_t count,                          \
                              const ChunkCoefficients* designs, int32_t designStride,       \
                              const double* inLeft, const double* inRight, double* outLeft, \
                              double* outRight, int32_t frames);
OMBRO_DECLARE_CASCADES(Sse2)
OMBRO_DECLARE_CASCADES(Avx2)
OMBRO_DECLARE_CASCADES(Avx512)
#undef OMBRO_DECLARE_CASCADES

// Defines both entry points of a set from its lane type and its widest pass
// (and the lanes for steady runs that would fill one register at most).
// A lone band takes the stereo kernel, which is the quickest for one band.
#define OMBRO_DEFINE_CASCADES(set, Lanes, maxRegisters, FewLanes)                              \
    void runCascade##set(EqBand* const* bands, int32_t count, const double* inLeft,            \
                         const double* inRight, double* outLeft, double* outRight,             \
                         int32_t frames) {                                                     \
        if (count == 1)                                                                        \
            return runBandStereo(*bands[0], inLeft, inRight, outLeft, outRight, frames);       \
        band_cascade::runSteadyCascade<Lanes, maxRegisters, FewLanes>(                          \
            bands, count, inLeft, inRight, outLeft, outRight, frames);                         \
    }                                                                                          \
    void runGlideCascade##set(EqBand* const* bands, int32_t count,                             \
                              const ChunkCoefficients* designs, int32_t designStride,          \
                              const double* inLeft, const double* inRight, double* outLeft,    \
                              double* outRight, int32_t frames) {                              \
        if (count == 1)                                                                        \
            return runBandStereoChunks(*bands[0], designs, kGlideChunkFrames, inLeft, inRight, \
                                       outLeft, outRight, frames);                             \
        band_cascade::runGlideCascade<Lanes, maxRegisters>(                                    \
            bands, count, designs, designStride, inLeft, inRight, outLeft, outRight, frames);  \
    }
