// The cascades on SSE2, which every x86-64 processor has: one band per register.
#include "engine/band_cascade_glide_pipeline.h"
#include "engine/band_cascade_lanes_sse2.h"
#include "engine/band_cascade_pipeline.h"
#include "engine/band_cascade_stereo.h"
#include "engine/band_cascade_variants.h"

OMBRO_DEFINE_CASCADES(Sse2, Sse2Lanes, 4, Sse2Lanes)
