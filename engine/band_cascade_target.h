// Compiles the functions between the two macros for one instruction set only
// (e.g. "avx2"): the run-time choice keeps them off processors without it.
// Fused multiply-add is never among the sets named, so no rounding changes.
#pragma once

#define OMBRO_PRAGMA(text) _Pragma(#text)
#if defined(__clang__)
#define OMBRO_BEGIN_TARGET(set) \
    OMBRO_PRAGMA(clang attribute push(__attribute__((target(set))), apply_to = function))
#define OMBRO_END_TARGET() OMBRO_PRAGMA(clang attribute pop)
#else
#define OMBRO_BEGIN_TARGET(set) OMBRO_PRAGMA(GCC push_options) OMBRO_PRAGMA(GCC target(set))
#define OMBRO_END_TARGET() OMBRO_PRAGMA(GCC pop_options)
#endif
