// Lane operations on 128-bit registers (SSE2, every x86-64 processor): one
// band per register, left channel in lane 0 and right in lane 1.
#pragma once

#include <emmintrin.h>

#include <cstdint>

struct Sse2Lanes {
    using Vector = __m128d;
    using Mask = __m128d;
    static constexpr int32_t kWidth = 2;  // doubles per register
    static constexpr int32_t kBands = 1;  // stereo bands per register

    static Vector load(const double* source) { return _mm_load_pd(source); }
    static void store(double* target, Vector value) { _mm_store_pd(target, value); }
    static Vector add(Vector a, Vector b) { return _mm_add_pd(a, b); }
    static Vector subtract(Vector a, Vector b) { return _mm_sub_pd(a, b); }
    static Vector multiply(Vector a, Vector b) { return _mm_mul_pd(a, b); }

    // Lanes that flushTiny keeps: 2^-54 <= |y| < infinity, which is its exponent
    // test (field + 1, mod 2048, at least 970); NaNs fail both comparisons.
    static Vector kept(Vector y) {
        const Vector magnitudeBits = _mm_castsi128_pd(_mm_set1_epi64x(0x7FFFFFFFFFFFFFFF));
        const Vector smallestKept = _mm_set1_pd(0x1p-54);
        const Vector infinity = _mm_castsi128_pd(_mm_set1_epi64x(0x7FF0000000000000));
        Vector magnitude = _mm_and_pd(y, magnitudeBits);
        return _mm_and_pd(_mm_cmpge_pd(magnitude, smallestKept), _mm_cmplt_pd(magnitude, infinity));
    }
    static Vector flushTiny(Vector y) { return _mm_and_pd(y, kept(y)); }

    // The bits flushTiny would clear: nonzero only where flushing changes y.
    using Stray = __m128i;
    static Stray strayBits(Vector y) { return _mm_castpd_si128(_mm_andnot_pd(kept(y), y)); }
    static Stray either(Stray a, Stray b) { return _mm_or_si128(a, b); }
    static bool any(Stray bits) {
        return _mm_movemask_epi8(_mm_cmpeq_epi32(bits, _mm_setzero_si128())) != 0xFFFF;
    }

    // Lanes whose band works on a sample inside the block at step `step`.
    static Mask activeAt(Vector firstStep, Vector endStep, double step) {
        Vector now = _mm_set1_pd(step);
        return _mm_and_pd(_mm_cmple_pd(firstStep, now), _mm_cmplt_pd(now, endStep));
    }
    static Vector select(Mask mask, Vector chosen, Vector otherwise) {
        return _mm_or_pd(_mm_and_pd(mask, chosen), _mm_andnot_pd(mask, otherwise));
    }
    static Mask bandMask(int32_t) { return _mm_castsi128_pd(_mm_set1_epi32(-1)); }

    // The inputs of a register's bands: each band takes the output of the band
    // below it, the lowest band the top band of the register below.
    static Vector carryIn(Vector below, Vector) { return below; }
    static Vector carryInPair(__m128d pair, Vector) { return pair; }
    static __m128d bandPair(Vector value, int32_t) { return value; }
};
