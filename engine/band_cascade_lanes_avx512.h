// Lane operations on 512-bit registers (AVX-512F and DQ): four bands per
// register, each as a left/right lane pair. Include only where the functions
// are compiled for both.
#pragma once

#include <immintrin.h>

#include <cstdint>

struct Avx512Lanes {
    using Vector = __m512d;
    using Mask = __mmask8;
    static constexpr int32_t kWidth = 8;
    static constexpr int32_t kBands = 4;

    static Vector load(const double* source) { return _mm512_load_pd(source); }
    static void store(double* target, Vector value) { _mm512_store_pd(target, value); }
    static Vector add(Vector a, Vector b) { return _mm512_add_pd(a, b); }
    static Vector subtract(Vector a, Vector b) { return _mm512_sub_pd(a, b); }
    static Vector multiply(Vector a, Vector b) { return _mm512_mul_pd(a, b); }

    // Lanes that flushTiny keeps: exponent field + 1, mod 2048, at least 970.
    static __mmask8 kept(Vector y) {
        const __m512i exponentOne = _mm512_set1_epi64(int64_t{1} << 52);
        const __m512i exponentField = _mm512_set1_epi64(int64_t{0x7FF} << 52);
        const __m512i firstKept = _mm512_set1_epi64(int64_t{970} << 52);
        __m512i field =
            _mm512_and_si512(_mm512_add_epi64(_mm512_castpd_si512(y), exponentOne), exponentField);
        return _mm512_cmpge_epu64_mask(field, firstKept);
    }
    static Vector flushTiny(Vector y) { return _mm512_maskz_mov_pd(kept(y), y); }

    // Lanes where flushing changes y: flushed and not +0.0.
    using Stray = __mmask8;
    static Stray strayBits(Vector y) {
        __m512i bits = _mm512_castpd_si512(y);
        return _mm512_mask_test_epi64_mask(static_cast<__mmask8>(~kept(y)), bits, bits);
    }
    static Stray either(Stray a, Stray b) { return a | b; }
    static bool any(Stray lanes) { return lanes != 0; }

    // A quick screen of several registers: yes when any lane is below 2^-54
    // in magnitude (zeros included), infinite or NaN. The smallest magnitude
    // comes from range operations, which pass over NaNs; their sum is
    // infinite or NaN if any lane is (or, harmlessly, if it overflows).
    template <int32_t kCount>
    static bool maySmallOrSpecial(const Vector (&y)[kCount]) {
        constexpr int kSmallestMagnitude = 0b1010;  // the smaller |a|, |b|, sign cleared
        Vector smallest = _mm512_range_pd(y[0], y[kCount > 1 ? 1 : 0], kSmallestMagnitude);
        Vector sum = kCount > 1 ? _mm512_add_pd(y[0], y[1]) : y[0];
        for (int32_t r = 2; r < kCount; ++r) {
            smallest = _mm512_range_pd(smallest, y[r], kSmallestMagnitude);
            sum = _mm512_add_pd(sum, y[r]);
        }
        constexpr int kNanOrInfinity = 0x01 | 0x08 | 0x10 | 0x80;
        __mmask8 special = _mm512_fpclass_pd_mask(sum, kNanOrInfinity);
        __mmask8 large = _mm512_cmp_pd_mask(smallest, _mm512_set1_pd(0x1p-54), _CMP_GE_OQ);
        __mmask8 kept = _kandn_mask8(special, large);
        return !_kortestc_mask8_u8(kept, kept);
    }

    template <int32_t kCount>
    static bool allPositiveZero(const Vector (&y)[kCount]) {
        __m512i bits = _mm512_castpd_si512(y[0]);
        for (int32_t r = 1; r < kCount; ++r)
            bits = _mm512_or_si512(bits, _mm512_castpd_si512(y[r]));
        return _mm512_test_epi64_mask(bits, bits) == 0;
    }

    static Mask bandMask(int32_t band) { return static_cast<Mask>(3u << (2 * band)); }

    static Mask activeAt(Vector firstStep, Vector endStep, double step) {
        Vector now = _mm512_set1_pd(step);
        return _mm512_cmp_pd_mask(firstStep, now, _CMP_LE_OQ) &
               _mm512_cmp_pd_mask(now, endStep, _CMP_LT_OQ);
    }
    static Vector select(Mask mask, Vector chosen, Vector otherwise) {
        return _mm512_mask_blend_pd(mask, otherwise, chosen);
    }

    // [top band of below, bands 0..2 of current]
    static Vector carryIn(Vector below, Vector current) {
        const __m512i order = _mm512_set_epi64(5, 4, 3, 2, 1, 0, 15, 14);
        return _mm512_permutex2var_pd(current, order, below);
    }
    static Vector carryInPair(__m128d pair, Vector current) {
        const __m512i order = _mm512_set_epi64(5, 4, 3, 2, 1, 0, 9, 8);
        return _mm512_permutex2var_pd(current, order, _mm512_zextpd128_pd512(pair));
    }
    static __m128d bandPair(Vector value, int32_t band) {
        __m256d half = band < 2 ? _mm512_castpd512_pd256(value) : _mm512_extractf64x4_pd(value, 1);
        return band % 2 == 0 ? _mm256_castpd256_pd128(half) : _mm256_extractf128_pd(half, 1);
    }
};
