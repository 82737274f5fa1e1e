// The registers of a group of bands filtered together, and the per-lane
// arithmetic they share: bands packed as left/right lane pairs, two lanes per
// band, with the sum of runBandKernelScalar operation for operation so that
// the results are the same bits. Instantiated once per instruction set,
// inside functions compiled for that set.
#pragma once

#include <emmintrin.h>

#include <cstdint>

#include "engine/eq_band.h"

#define OMBRO_UNROLL _Pragma("GCC unroll 8")

namespace band_cascade {

// Registers of one group of bands; slots past the last real band are padding
// that runs on zero coefficients and is never stored back.
template <class Lanes, int32_t kRegisters>
struct GroupRegisters {
    using Vector = typename Lanes::Vector;
    Vector b0[kRegisters], b1[kRegisters], b2[kRegisters], a1[kRegisters], a2[kRegisters];
    Vector x1[kRegisters], x2[kRegisters], y1[kRegisters], y2[kRegisters];
};

// The lane image of a group: one row per band field, two lanes per band.
template <class Lanes, int32_t kRegisters>
struct GroupLanes {
    static constexpr int32_t kLanes = kRegisters * Lanes::kWidth;
    enum Row { B0, B1, B2, A1, A2, X1, X2, Y1, Y2, RowCount };
    alignas(64) double rows[RowCount][kLanes];

    static void put(double* row, int32_t slot, double left, double right) {
        row[2 * slot] = left;
        row[2 * slot + 1] = right;
    }

    // Slots whose band pointer is null stay zero (padding).
    void gather(EqBand* const* bands, int32_t count) {
        for (auto& row : rows)
            for (double& lane : row) lane = 0.0;
        for (int32_t slot = 0; slot < count; ++slot) {
            if (!bands[slot]) continue;
            const EqBand& band = *bands[slot];
            const BiquadHistory &left = band.historyLeft, &right = band.historyRight;
            put(rows[B0], slot, band.b0, band.b0);
            put(rows[B1], slot, band.b1, band.b1);
            put(rows[B2], slot, band.b2, band.b2);
            put(rows[A1], slot, band.a1, band.a1);
            put(rows[A2], slot, band.a2, band.a2);
            put(rows[X1], slot, left.x1, right.x1);
            put(rows[X2], slot, left.x2, right.x2);
            put(rows[Y1], slot, left.y1, right.y1);
            put(rows[Y2], slot, left.y2, right.y2);
        }
    }

    // Padding slots (null) now output 1.0 at every step whatever their input
    // (with finite inputs): y = 0·x + 0·x1 + 0·x2 + 1·1 − 0·1, so they never
    // look like values the flush would change. Coefficients loaded later
    // must keep kIdleA1 in the slot.
    static constexpr double kIdleA1 = -1.0;
    void idleUnusedSlots(EqBand* const* bands) {
        for (int32_t slot = 0; slot < kLanes / 2; ++slot)
            if (!bands[slot]) {
                put(rows[A1], slot, kIdleA1, kIdleA1);
                put(rows[Y1], slot, 1.0, 1.0);
                put(rows[Y2], slot, 1.0, 1.0);
            }
    }

    void scatter(EqBand* const* bands, int32_t count) const {
        for (int32_t slot = 0; slot < count; ++slot) {
            if (!bands[slot]) continue;
            int32_t left = 2 * slot, right = left + 1;
            bands[slot]->historyLeft = {rows[X1][left], rows[X2][left], rows[Y1][left],
                                        rows[Y2][left]};
            bands[slot]->historyRight = {rows[X1][right], rows[X2][right], rows[Y1][right],
                                         rows[Y2][right]};
        }
    }

    void loadInto(GroupRegisters<Lanes, kRegisters>& g) const {
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            const int32_t lane = r * Lanes::kWidth;
            g.b0[r] = Lanes::load(&rows[B0][lane]);
            g.b1[r] = Lanes::load(&rows[B1][lane]);
            g.b2[r] = Lanes::load(&rows[B2][lane]);
            g.a1[r] = Lanes::load(&rows[A1][lane]);
            g.a2[r] = Lanes::load(&rows[A2][lane]);
            g.x1[r] = Lanes::load(&rows[X1][lane]);
            g.x2[r] = Lanes::load(&rows[X2][lane]);
            g.y1[r] = Lanes::load(&rows[Y1][lane]);
            g.y2[r] = Lanes::load(&rows[Y2][lane]);
        }
    }

    void storeFrom(const GroupRegisters<Lanes, kRegisters>& g) {
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            const int32_t lane = r * Lanes::kWidth;
            Lanes::store(&rows[X1][lane], g.x1[r]);
            Lanes::store(&rows[X2][lane], g.x2[r]);
            Lanes::store(&rows[Y1][lane], g.y1[r]);
            Lanes::store(&rows[Y2][lane], g.y2[r]);
        }
    }
};

// One band's history: gathered values back into its lanes of the registers
// (restoreBand), or the registers' values into its lanes of the rows
// (captureBand, which scatter then writes to the band). The register is
// picked by a test per register, so that every index stays a constant and the
// registers are never addressed in memory.
template <class Lanes, int32_t kRegisters>
inline void restoreBand(const GroupLanes<Lanes, kRegisters>& lanes,
                        GroupRegisters<Lanes, kRegisters>& g, int32_t slot) {
    using L = GroupLanes<Lanes, kRegisters>;
    const typename Lanes::Mask band = Lanes::bandMask(slot % Lanes::kBands);
    OMBRO_UNROLL
    for (int32_t r = 0; r < kRegisters; ++r) {
        if (r != slot / Lanes::kBands) continue;
        const int32_t lane = r * Lanes::kWidth;
        g.x1[r] = Lanes::select(band, Lanes::load(&lanes.rows[L::X1][lane]), g.x1[r]);
        g.x2[r] = Lanes::select(band, Lanes::load(&lanes.rows[L::X2][lane]), g.x2[r]);
        g.y1[r] = Lanes::select(band, Lanes::load(&lanes.rows[L::Y1][lane]), g.y1[r]);
        g.y2[r] = Lanes::select(band, Lanes::load(&lanes.rows[L::Y2][lane]), g.y2[r]);
    }
}

template <class Lanes, int32_t kRegisters>
inline void captureBand(GroupLanes<Lanes, kRegisters>& lanes,
                        const GroupRegisters<Lanes, kRegisters>& g, int32_t slot) {
    using L = GroupLanes<Lanes, kRegisters>;
    const typename Lanes::Mask band = Lanes::bandMask(slot % Lanes::kBands);
    OMBRO_UNROLL
    for (int32_t r = 0; r < kRegisters; ++r) {
        if (r != slot / Lanes::kBands) continue;
        auto keep = [&](int32_t row, typename Lanes::Vector value) {
            double* at = &lanes.rows[row][r * Lanes::kWidth];
            Lanes::store(at, Lanes::select(band, value, Lanes::load(at)));
        };
        keep(L::X1, g.x1[r]);
        keep(L::X2, g.x2[r]);
        keep(L::Y1, g.y1[r]);
        keep(L::Y2, g.y2[r]);
    }
}

// b0·x + b1·x1 + b2·x2 − a1·y1 − a2·y2, summed in that order (not yet flushed).
template <class Lanes>
inline typename Lanes::Vector biquadSum(typename Lanes::Vector b0, typename Lanes::Vector b1,
                                        typename Lanes::Vector b2, typename Lanes::Vector a1,
                                        typename Lanes::Vector a2, typename Lanes::Vector x,
                                        typename Lanes::Vector x1, typename Lanes::Vector x2,
                                        typename Lanes::Vector y1, typename Lanes::Vector y2) {
    using L = Lanes;
    typename L::Vector sum = L::add(L::multiply(b0, x), L::multiply(b1, x1));
    sum = L::add(sum, L::multiply(b2, x2));
    sum = L::subtract(sum, L::multiply(a1, y1));
    return L::subtract(sum, L::multiply(a2, y2));
}

static inline __m128d loadStereo(const double* left, const double* right, int32_t frame) {
    return _mm_loadh_pd(_mm_load_sd(left + frame), right + frame);
}

static inline void storeStereo(double* left, double* right, int32_t frame, __m128d pair) {
    _mm_storel_pd(left + frame, pair);
    _mm_storeh_pd(right + frame, pair);
}

// The unflushed outputs of every register for the inputs x.
template <class Lanes, int32_t kRegisters>
inline void sumAll(const GroupRegisters<Lanes, kRegisters>& g,
                   const typename Lanes::Vector (&x)[kRegisters],
                   typename Lanes::Vector (&y)[kRegisters]) {
    OMBRO_UNROLL
    for (int32_t r = 0; r < kRegisters; ++r)
        y[r] = biquadSum<Lanes>(g.b0[r], g.b1[r], g.b2[r], g.a1[r], g.a2[r], x[r], g.x1[r], g.x2[r],
                                g.y1[r], g.y2[r]);
}

// Whether flushing would change any lane of y, lane by lane.
template <class Lanes, int32_t kRegisters>
[[gnu::always_inline]] inline bool anyStray(const typename Lanes::Vector (&y)[kRegisters]) {
    typename Lanes::Stray stray = Lanes::strayBits(y[0]);
    OMBRO_UNROLL
    for (int32_t r = 1; r < kRegisters; ++r) stray = Lanes::either(stray, Lanes::strayBits(y[r]));
    return Lanes::any(stray);
}

// Lanes with a quick screen of several registers, which may also answer yes
// for zeros.
template <class Lanes, int32_t kRegisters>
concept QuickScreen = requires(const typename Lanes::Vector (&y)[kRegisters]) {
    Lanes::template maySmallOrSpecial<kRegisters>(y);
};

// y flushed where flushing changes a lane, decided lane by lane. The flush is
// a branch that is almost never taken, which keeps it off the chain from one
// output to the next.
template <class Lanes, int32_t kRegisters>
[[gnu::always_inline]] inline void flushExactly(typename Lanes::Vector (&y)[kRegisters]) {
    if (anyStray<Lanes, kRegisters>(y)) [[unlikely]] {
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) y[r] = Lanes::flushTiny(y[r]);
    }
}

// y flushed where needed, after the quick screen where the lanes have one:
// only when it answers yes and not every lane is +0.0 (silence) is y tested
// lane by lane (a flush that changes nothing would still lengthen the chain).
// True when that test was needed.
template <class Lanes, int32_t kRegisters>
[[gnu::always_inline]] inline bool flushAll(typename Lanes::Vector (&y)[kRegisters]) {
    if constexpr (QuickScreen<Lanes, kRegisters>) {
        if (!Lanes::template maySmallOrSpecial<kRegisters>(y)) [[likely]]
            return false;
        if (Lanes::template allPositiveZero<kRegisters>(y)) return false;
        flushExactly<Lanes, kRegisters>(y);
        return true;
    } else {
        flushExactly<Lanes, kRegisters>(y);
        return false;
    }
}

// Every band takes its step: y (the sums) are flushed and shifted into the
// history. Returns flushAll's answer.
template <class Lanes, int32_t kRegisters>
inline bool advanceAll(GroupRegisters<Lanes, kRegisters>& g,
                       const typename Lanes::Vector (&x)[kRegisters],
                       typename Lanes::Vector (&y)[kRegisters]) {
    const bool tested = flushAll<Lanes, kRegisters>(y);
    OMBRO_UNROLL
    for (int32_t r = 0; r < kRegisters; ++r) {
        g.x2[r] = g.x1[r];
        g.x1[r] = x[r];
        g.y2[r] = g.y1[r];
        g.y1[r] = y[r];
    }
    return tested;
}

}  // namespace band_cascade
