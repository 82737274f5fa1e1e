// The kernels compiled for each instruction set, one translation unit each, so
// that no wider instruction reaches code that runs on a narrower processor.
#pragma once

#include <cstdint>

struct EqBand;

// Both channels of one band in one SSE2 register.
void runBandStereo(EqBand& band, const double* inLeft, const double* inRight, double* outLeft,
                   double* outRight, int32_t frames);

#define OMBRO_DECLARE_CASCADE(name)                                                           \
    void name(EqBand* const* bands, int32_t count, const double* inLeft,                      \
              const double* inRight, double* outLeft, double* outRight, int32_t frames);
OMBRO_DECLARE_CASCADE(runCascadeSse2)
OMBRO_DECLARE_CASCADE(runCascadeAvx2)
OMBRO_DECLARE_CASCADE(runCascadeAvx512)
#undef OMBRO_DECLARE_CASCADE
