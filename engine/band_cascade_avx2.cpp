// The cascades on AVX2: two bands per register.
#include <immintrin.h>

#include "engine/band_cascade_stereo.h"
#include "engine/band_cascade_target.h"
#include "engine/band_cascade_variants.h"

OMBRO_BEGIN_TARGET("avx2")
#include "engine/band_cascade_glide_pipeline.h"
#include "engine/band_cascade_lanes_avx2.h"
#include "engine/band_cascade_pipeline.h"

OMBRO_DEFINE_CASCADES(Avx2, Avx2Lanes, 2, Avx2Lanes)
OMBRO_END_TARGET()
