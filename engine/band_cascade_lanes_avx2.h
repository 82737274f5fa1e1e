// Lane operations on 256-bit registers (AVX2): two bands per register, each
// as a left/right lane pair. Include only where the functions are compiled
// for AVX2 or a wider set.
#pragma once

#include <immintrin.h>

#include <cstdint>

// `Kernels` names the instruction set whose kernels use the lanes. Every set
// compiles its own copy of the code built on them, and distinct types keep
// those copies apart when linking: a copy compiled for AVX-512 must never
// stand in for the AVX2 kernels' own.
template <class Kernels>
struct Avx2LanesFor {
    using Vector = __m256d;
    using Mask = __m256d;
    static constexpr int32_t kWidth = 4;
    static constexpr int32_t kBands = 2;

    static Vector load(const double* source) { return _mm256_load_pd(source); }
    static void store(double* target, Vector value) { _mm256_store_pd(target, value); }
    static Vector add(Vector a, Vector b) { return _mm256_add_pd(a, b); }
    static Vector subtract(Vector a, Vector b) { return _mm256_sub_pd(a, b); }
    static Vector multiply(Vector a, Vector b) { return _mm256_mul_pd(a, b); }

    // Lanes that flushTiny clears: unless the biased exponent field is in
    // [969, 2046] (the field plus one, mod 2048, at least 970). On the bits
    // shifted left by one (sign gone, field on top) the kept ones are one
    // unsigned range, tested with a signed comparison after moving the range
    // to start at the most negative value.
    static __m256i flushed(Vector y) {
        const __m256i toRangeStart =
            _mm256_set1_epi64x(static_cast<int64_t>((uint64_t{1} << 63) - (uint64_t{969} << 53)));
        const __m256i lastInRange = _mm256_set1_epi64x(
            static_cast<int64_t>((uint64_t{2047 - 969} << 53) + (uint64_t{1} << 63) - 1));
        __m256i shifted = _mm256_slli_epi64(_mm256_castpd_si256(y), 1);
        return _mm256_cmpgt_epi64(_mm256_add_epi64(shifted, toRangeStart), lastInRange);
    }
    static Vector flushTiny(Vector y) {
        return _mm256_andnot_pd(_mm256_castsi256_pd(flushed(y)), y);
    }

    // The bits flushTiny would clear: nonzero only where flushing changes y.
    using Stray = __m256i;
    static Stray strayBits(Vector y) {
        return _mm256_and_si256(flushed(y), _mm256_castpd_si256(y));
    }
    static Stray either(Stray a, Stray b) { return _mm256_or_si256(a, b); }
    static bool any(Stray bits) { return !_mm256_testz_si256(bits, bits); }

    // A quick screen of several registers: yes when any lane would be
    // flushed, zeros included.
    template <int32_t kCount>
    static bool maySmallOrSpecial(const Vector (&y)[kCount]) {
        __m256i lanes = flushed(y[0]);
        for (int32_t r = 1; r < kCount; ++r) lanes = _mm256_or_si256(lanes, flushed(y[r]));
        return !_mm256_testz_si256(lanes, lanes);
    }

    template <int32_t kCount>
    static bool allPositiveZero(const Vector (&y)[kCount]) {
        __m256i bits = _mm256_castpd_si256(y[0]);
        for (int32_t r = 1; r < kCount; ++r)
            bits = _mm256_or_si256(bits, _mm256_castpd_si256(y[r]));
        return _mm256_testz_si256(bits, bits);
    }

    static Mask activeAt(Vector firstStep, Vector endStep, double step) {
        Vector now = _mm256_set1_pd(step);
        return _mm256_and_pd(_mm256_cmp_pd(firstStep, now, _CMP_LE_OQ),
                             _mm256_cmp_pd(now, endStep, _CMP_LT_OQ));
    }
    static Vector select(Mask mask, Vector chosen, Vector otherwise) {
        return _mm256_blendv_pd(otherwise, chosen, mask);
    }
    static Mask bandMask(int32_t band) {
        __m256i lanesBand = _mm256_set_epi64x(1, 1, 0, 0);
        return _mm256_castsi256_pd(_mm256_cmpeq_epi64(lanesBand, _mm256_set1_epi64x(band)));
    }

    // [top band of below, bottom band of current]
    static Vector carryIn(Vector below, Vector current) {
        return _mm256_permute2f128_pd(below, current, 0x21);
    }
    static Vector carryInPair(__m128d pair, Vector current) {
        return _mm256_permute2f128_pd(_mm256_castpd128_pd256(pair), current, 0x20);
    }
    static __m128d bandPair(Vector value, int32_t band) {
        return band == 0 ? _mm256_castpd256_pd128(value) : _mm256_extractf128_pd(value, 1);
    }
};

struct Avx2Kernels;
struct Avx512Kernels;
using Avx2Lanes = Avx2LanesFor<Avx2Kernels>;
using Avx512HalfLanes = Avx2LanesFor<Avx512Kernels>;  // short runs in the AVX-512 kernels
