// The pipelined cascade of steady bands: a run of bands filtered in one pass
// over the block. Each band works kBandLag samples behind the band before it,
// so every band's next sample is ready when a step starts: one step advances
// all bands of the group at once, and the wait for each band's previous
// output (its y1) overlaps with the work of the others. The first and last
// steps of a pass, where some bands have no sample yet or none left, update
// only the bands that have one, so every band's history ends exactly where
// the band-after-band loop leaves it.
#pragma once

#include "engine/band_cascade_group.h"
#include "engine/band_cascade_runner.h"

namespace band_cascade {

constexpr int32_t kBandLag = 2;  // samples between neighbouring bands

// One pass of up to kRegisters × kBands bands over a block; `in` may be `out`.
template <class Lanes, int32_t kRegisters>
class CascadePass {
public:
    using Vector = typename Lanes::Vector;
    using Mask = typename Lanes::Mask;

    CascadePass(int32_t count, const double* inLeft, const double* inRight, double* outLeft,
                double* outRight, int32_t frames)
        : count_(count),
          frames_(frames),
          lastLag_(kBandLag * (count - 1)),
          outBand_((count - 1) % Lanes::kBands),
          inLeft_(inLeft),
          inRight_(inRight),
          outLeft_(outLeft),
          outRight_(outRight) {}

    void run(EqBand* const* bands) {
        if (frames_ <= 0) return;
        GroupLanes<Lanes, kRegisters> lanes;
        lanes.gather(bands, count_);
        GroupRegisters<Lanes, kRegisters> g;
        lanes.loadInto(g);
        prepareMasks();
        Vector sent1[kRegisters], sent2[kRegisters];  // outputs of the last two steps
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) sent1[r] = sent2[r] = g.y1[r];

        const int32_t steps = frames_ + lastLag_;
        const int32_t steadyBegin = lastLag_ < frames_ ? lastLag_ : steps;
        const int32_t steadyEnd = lastLag_ < frames_ ? frames_ : steps;
        int32_t step = 0;
        for (; step < steadyBegin; ++step) maskedStep(g, sent1, sent2, step);
        if (step < steadyEnd) runSteady(g, step, steadyEnd);
        step = steadyEnd;
        if (steadyEnd > steadyBegin) {
            OMBRO_UNROLL
            for (int32_t r = 0; r < kRegisters; ++r) sent1[r] = g.y1[r], sent2[r] = g.y2[r];
        }
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
        OMBRO_UNROLL
        for (int32_t r = 1; r < kRegisters; ++r) x[r] = Lanes::carryIn(g.y2[r - 1], g.y2[r]);
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r)
            y[r] = biquadSum<Lanes>(g.b0[r], g.b1[r], g.b2[r], g.a1[r], g.a2[r], x[r], g.x1[r],
                                    g.x2[r], g.y1[r], g.y2[r]);
        typename Lanes::Stray stray = Lanes::strayBits(y[0]);
        OMBRO_UNROLL
        for (int32_t r = 1; r < kRegisters; ++r)
            stray = Lanes::either(stray, Lanes::strayBits(y[r]));
        if (Lanes::any(stray)) [[unlikely]]
            OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) y[r] = Lanes::flushTiny(y[r]);
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
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
        OMBRO_UNROLL
        for (int32_t r = 1; r < kRegisters; ++r) x[r] = Lanes::carryIn(sent2[r - 1], sent2[r]);
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            Vector y =
                Lanes::flushTiny(biquadSum<Lanes>(g.b0[r], g.b1[r], g.b2[r], g.a1[r], g.a2[r], x[r],
                                                  g.x1[r], g.x2[r], g.y1[r], g.y2[r]));
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
            storeStereo(outLeft_, outRight_, frame,
                        Lanes::bandPair(sent1[kRegisters - 1], outBand_));
    }

    // Band slot s works on frame step − kBandLag·s: steps [kBandLag·s, kBandLag·s + frames).
    void prepareMasks() {
        alignas(64) double first[kRegisters * Lanes::kWidth];
        alignas(64) double end[kRegisters * Lanes::kWidth];
        for (int32_t lane = 0; lane < kRegisters * Lanes::kWidth; ++lane) {
            first[lane] = kBandLag * (lane / 2);
            end[lane] = first[lane] + frames_;
        }
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            firstStep_[r] = Lanes::load(&first[r * Lanes::kWidth]);
            endStep_[r] = Lanes::load(&end[r * Lanes::kWidth]);
        }
    }

    const int32_t count_, frames_, lastLag_, outBand_;  // the last band is in the last register
    const double *inLeft_, *inRight_;
    double *outLeft_, *outRight_;
    Vector firstStep_[kRegisters], endStep_[kRegisters];
};

// Runs any number of steady bands in order over the block.
template <class Lanes, int32_t kMaxRegisters>
void runSteadyCascade(EqBand* const* bands, int32_t count, const double* inLeft,
                      const double* inRight, double* outLeft, double* outRight, int32_t frames) {
    inEvenPasses<Lanes, kMaxRegisters>(count, [&](int32_t first, int32_t take) {
        withRegistersFor<Lanes, kMaxRegisters>(take, [&](auto registers) {
            CascadePass<Lanes, registers.value>(take, inLeft, inRight, outLeft, outRight, frames)
                .run(bands + first);
        });
        inLeft = outLeft;
        inRight = outRight;
    });
}

}  // namespace band_cascade
