// The cascade on AVX2: two bands per register.
#include <immintrin.h>

#include "engine/band_cascade_target.h"
#include "engine/band_cascade_variants.h"
#include "engine/eq_band.h"

OMBRO_BEGIN_TARGET("avx2")
#include "engine/band_cascade_lanes_avx2.h"
#include "engine/band_cascade_pipeline.h"

void runCascadeAvx2(EqBand* const* bands, int32_t count, const double* inLeft,
                    const double* inRight, double* outLeft, double* outRight, int32_t frames) {
    band_cascade::CascadeRunner<Avx2Lanes, 2>::run(bands, count, inLeft, inRight, outLeft,
                                                   outRight, frames);
}
OMBRO_END_TARGET()
