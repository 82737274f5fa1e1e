// The cascade and the stereo kernel on SSE2, which every x86-64 processor has:
// one band per register.
#include "engine/band_cascade_lanes_sse2.h"
#include "engine/band_cascade_pipeline.h"
#include "engine/band_cascade_variants.h"
#include "engine/eq_band.h"

namespace {
using Sse2Cascade = band_cascade::CascadeRunner<Sse2Lanes, 4>;
}

void runBandStereo(EqBand& band, const double* inLeft, const double* inRight, double* outLeft,
                   double* outRight, int32_t frames) {
    EqBand* const single[] = {&band};
    Sse2Cascade::run(single, 1, inLeft, inRight, outLeft, outRight, frames);
}

void runCascadeSse2(EqBand* const* bands, int32_t count, const double* inLeft,
                    const double* inRight, double* outLeft, double* outRight, int32_t frames) {
    Sse2Cascade::run(bands, count, inLeft, inRight, outLeft, outRight, frames);
}
