// The cascade on AVX-512F: four bands per register.
#include <immintrin.h>

#include "engine/band_cascade_target.h"
#include "engine/band_cascade_variants.h"
#include "engine/eq_band.h"

// GCC 12's own extract intrinsics start from a self-initialized "undefined"
// register, which its uninitialized-use warning reports at every call.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
OMBRO_BEGIN_TARGET("avx512f")
#include "engine/band_cascade_lanes_avx512.h"
#include "engine/band_cascade_pipeline.h"

void runCascadeAvx512(EqBand* const* bands, int32_t count, const double* inLeft,
                      const double* inRight, double* outLeft, double* outRight, int32_t frames) {
    band_cascade::CascadeRunner<Avx512Lanes, 4>::run(bands, count, inLeft, inRight, outLeft,
                                                     outRight, frames);
}
OMBRO_END_TARGET()
#pragma GCC diagnostic pop
