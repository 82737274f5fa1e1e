// The pipelined cascade: a run of steady bands filtered in one pass over the
// block. Each band works kBandLag samples behind the band before it, so every
// band's next sample is ready when a step starts: one step advances all bands
// of the group at once, and the wait for each band's previous output (its y1)
// overlaps with the work of the others. Bands are packed into registers as
// left/right lane pairs; the first and last steps of a pass, where some bands
// have no sample yet or none left, update only the bands that have one, so
// every band's history ends exactly where the band-after-band loop leaves it.
//
// The arithmetic per lane is that of runBandKernelScalar, operation for
// operation, so the results are the same bits. The templates are instantiated
// once per instruction set, inside functions compiled for that set.
#pragma once

#include <emmintrin.h>

#include <cstdint>

#include "engine/eq_band.h"

namespace band_cascade {

constexpr int32_t kBandLag = 2;  // samples between neighbouring bands

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

    void gather(EqBand* const* bands, int32_t count) {
        for (auto& row : rows)
            for (double& lane : row) lane = 0.0;
        for (int32_t slot = 0; slot < count; ++slot) {
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

    void scatter(EqBand* const* bands, int32_t count) const {
        for (int32_t slot = 0; slot < count; ++slot) {
            int32_t left = 2 * slot, right = left + 1;
            bands[slot]->historyLeft = {rows[X1][left], rows[X2][left], rows[Y1][left],
                                        rows[Y2][left]};
            bands[slot]->historyRight = {rows[X1][right], rows[X2][right], rows[Y1][right],
                                         rows[Y2][right]};
        }
    }

    void loadInto(GroupRegisters<Lanes, kRegisters>& g) const {
        _Pragma("GCC unroll 8") for (int32_t r = 0; r < kRegisters; ++r) {
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
        _Pragma("GCC unroll 8") for (int32_t r = 0; r < kRegisters; ++r) {
            const int32_t lane = r * Lanes::kWidth;
            Lanes::store(&rows[X1][lane], g.x1[r]);
            Lanes::store(&rows[X2][lane], g.x2[r]);
            Lanes::store(&rows[Y1][lane], g.y1[r]);
            Lanes::store(&rows[Y2][lane], g.y2[r]);
        }
    }
};

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

// One pass of up to kRegisters × kBands bands over a block; `in` may be `out`.
template <class Lanes, int32_t kRegisters>
class CascadePass {
public:
    using Vector = typename Lanes::Vector;
    using Mask = typename Lanes::Mask;

    CascadePass(int32_t count, const double* inLeft, const double* inRight, double* outLeft,
                double* outRight, int32_t frames)
        : count_(count), frames_(frames), lastLag_(kBandLag * (count - 1)),
          outBand_((count - 1) % Lanes::kBands),
          inLeft_(inLeft), inRight_(inRight), outLeft_(outLeft), outRight_(outRight) {}

    void run(EqBand* const* bands) {
        if (frames_ <= 0) return;
        GroupLanes<Lanes, kRegisters> lanes;
        lanes.gather(bands, count_);
        GroupRegisters<Lanes, kRegisters> g;
        lanes.loadInto(g);
        prepareMasks();
        Vector sent1[kRegisters], sent2[kRegisters];  // outputs of the last two steps
        _Pragma("GCC unroll 8") for (int32_t r = 0; r < kRegisters; ++r) sent1[r] = sent2[r] = g.y1[r];

        const int32_t steps = frames_ + lastLag_;
        const int32_t steadyBegin = lastLag_ < frames_ ? lastLag_ : steps;
        const int32_t steadyEnd = lastLag_ < frames_ ? frames_ : steps;
        int32_t step = 0;
        for (; step < steadyBegin; ++step) maskedStep(g, sent1, sent2, step);
        if (step < steadyEnd) runSteady(g, step, steadyEnd);
        step = steadyEnd;
        if (steadyEnd > steadyBegin)
            _Pragma("GCC unroll 8") for (int32_t r = 0; r < kRegisters; ++r) sent1[r] = g.y1[r], sent2[r] = g.y2[r];
        for (; step < steps; ++step) maskedStep(g, sent1, sent2, step);

        lanes.storeFrom(g);
        lanes.scatter(bands, count_);
    }

private:
    // A local copy of the registers, so that the compiler keeps them in registers.
    void runSteady(GroupRegisters<Lanes, kRegisters>& shared, int32_t begin, int32_t end) {
        GroupRegisters<Lanes, kRegisters> g = shared;
        for (int32_t step = begin; step < end; ++step) steadyStep(g, step);
        shared = g;
    }

    // Every band has a sample: the lagged outputs are exactly the y2 registers.
    // The flush is a branch that is almost never taken, so that it stays off
    // the chain from one output to the next.
    void steadyStep(GroupRegisters<Lanes, kRegisters>& g, int32_t step) {
        Vector x[kRegisters], y[kRegisters];
        x[0] = Lanes::carryInPair(loadStereo(inLeft_, inRight_, step), g.y2[0]);
        _Pragma("GCC unroll 8") for (int32_t r = 1; r < kRegisters; ++r) x[r] = Lanes::carryIn(g.y2[r - 1], g.y2[r]);
        _Pragma("GCC unroll 8") for (int32_t r = 0; r < kRegisters; ++r)
            y[r] = biquadSum<Lanes>(g.b0[r], g.b1[r], g.b2[r], g.a1[r], g.a2[r], x[r], g.x1[r],
                                    g.x2[r], g.y1[r], g.y2[r]);
        typename Lanes::Stray stray = Lanes::strayBits(y[0]);
        _Pragma("GCC unroll 8") for (int32_t r = 1; r < kRegisters; ++r) stray = Lanes::either(stray, Lanes::strayBits(y[r]));
        if (Lanes::any(stray)) [[unlikely]]
            _Pragma("GCC unroll 8") for (int32_t r = 0; r < kRegisters; ++r) y[r] = Lanes::flushTiny(y[r]);
        _Pragma("GCC unroll 8") for (int32_t r = 0; r < kRegisters; ++r) {
            g.x2[r] = g.x1[r];
            g.x1[r] = x[r];
            g.y2[r] = g.y1[r];
            g.y1[r] = y[r];
        }
        storeStereo(outLeft_, outRight_, step - lastLag_,
                    Lanes::bandPair(y[kRegisters - 1], outBand_));
    }

    // Only bands with a sample at this step advance; outputs travel through
    // `sent` because an idle band's y2 no longer holds its output of two steps ago.
    void maskedStep(GroupRegisters<Lanes, kRegisters>& g, Vector (&sent1)[kRegisters],
                    Vector (&sent2)[kRegisters], int32_t step) {
        __m128d input = step < frames_ ? loadStereo(inLeft_, inRight_, step) : _mm_setzero_pd();
        Vector x[kRegisters];
        x[0] = Lanes::carryInPair(input, sent2[0]);
        _Pragma("GCC unroll 8") for (int32_t r = 1; r < kRegisters; ++r) x[r] = Lanes::carryIn(sent2[r - 1], sent2[r]);
        _Pragma("GCC unroll 8") for (int32_t r = 0; r < kRegisters; ++r) {
            Vector y = Lanes::flushTiny(biquadSum<Lanes>(g.b0[r], g.b1[r], g.b2[r], g.a1[r],
                                                         g.a2[r], x[r], g.x1[r], g.x2[r],
                                                         g.y1[r], g.y2[r]));
            Mask active = Lanes::activeAt(firstStep_[r], endStep_[r], step);
            g.x2[r] = Lanes::select(active, g.x1[r], g.x2[r]);
            g.x1[r] = Lanes::select(active, x[r], g.x1[r]);
            g.y2[r] = Lanes::select(active, g.y1[r], g.y2[r]);
            g.y1[r] = Lanes::select(active, y, g.y1[r]);
            sent2[r] = sent1[r];
            sent1[r] = y;
        }
        int32_t frame = step - lastLag_;
        if (frame >= 0 && frame < frames_)
            storeStereo(outLeft_, outRight_, frame, Lanes::bandPair(sent1[kRegisters - 1], outBand_));
    }

    // Band slot s works on frame step − kBandLag·s: steps [kBandLag·s, kBandLag·s + frames).
    void prepareMasks() {
        alignas(64) double first[kRegisters * Lanes::kWidth];
        alignas(64) double end[kRegisters * Lanes::kWidth];
        for (int32_t lane = 0; lane < kRegisters * Lanes::kWidth; ++lane) {
            first[lane] = kBandLag * (lane / 2);
            end[lane] = first[lane] + frames_;
        }
        _Pragma("GCC unroll 8") for (int32_t r = 0; r < kRegisters; ++r) {
            firstStep_[r] = Lanes::load(&first[r * Lanes::kWidth]);
            endStep_[r] = Lanes::load(&end[r * Lanes::kWidth]);
        }
    }

    const int32_t count_, frames_, lastLag_, outBand_;  // the last band is in the last register
    const double *inLeft_, *inRight_;
    double *outLeft_, *outRight_;
    Vector firstStep_[kRegisters], endStep_[kRegisters];
};

// Runs `count` bands (any number) in passes of at most kMaxRegisters registers,
// spreading them evenly over the passes.
template <class Lanes, int32_t kMaxRegisters>
class CascadeRunner {
public:
    static void run(EqBand* const* bands, int32_t count, const double* inLeft,
                    const double* inRight, double* outLeft, double* outRight, int32_t frames) {
        constexpr int32_t kMaxSlots = kMaxRegisters * Lanes::kBands;
        int32_t passes = (count + kMaxSlots - 1) / kMaxSlots;
        for (int32_t done = 0; passes > 0; --passes) {
            int32_t take = (count - done + passes - 1) / passes;
            runPass(bands + done, take, inLeft, inRight, outLeft, outRight, frames);
            inLeft = outLeft;
            inRight = outRight;
            done += take;
        }
    }

private:
    template <int32_t kRegisters = 1>
    static void runPass(EqBand* const* bands, int32_t count, const double* inLeft,
                        const double* inRight, double* outLeft, double* outRight,
                        int32_t frames) {
        if constexpr (kRegisters < kMaxRegisters) {
            if (count > kRegisters * Lanes::kBands)
                return runPass<kRegisters + 1>(bands, count, inLeft, inRight, outLeft, outRight,
                                               frames);
        }
        CascadePass<Lanes, kRegisters>(count, inLeft, inRight, outLeft, outRight, frames)
            .run(bands);
    }
};

}  // namespace band_cascade
