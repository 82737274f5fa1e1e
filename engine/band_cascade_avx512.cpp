// The cascades on AVX-512 (F and DQ): four bands per register.
#include <immintrin.h>

#include "engine/band_cascade_stereo.h"
#include "engine/band_cascade_target.h"
#include "engine/band_cascade_variants.h"

// GCC 12's own extract intrinsics start from a self-initialized "undefined"
// register, which its uninitialized-use warning reports at every call.
#pragma GCC diagnostic push
#if !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif
OMBRO_BEGIN_TARGET("avx512f,avx512dq")
#include "engine/band_cascade_glide_pipeline.h"
#include "engine/band_cascade_lanes_avx2.h"
#include "engine/band_cascade_lanes_avx512.h"
#include "engine/band_cascade_pipeline.h"

OMBRO_DEFINE_CASCADES(Avx512, Avx512Lanes, 4, Avx512HalfLanes)
OMBRO_END_TARGET()
#pragma GCC diagnostic pop
