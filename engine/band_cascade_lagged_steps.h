// What every pass of a cascade shares: its bands work kLag frames apart (band
// slot s on frame step − kLag·s), so a pass over a block takes frames +
// kLag·(count − 1) steps. In the first and last of them some bands have no
// sample yet or none left: those steps update only the bands that have one,
// so every band's history ends exactly where the band-after-band loop leaves
// it, and outputs travel from band to band through a ring of the last kLag
// steps' outputs.
#pragma once

#include <emmintrin.h>

#include <cstdint>

#include "engine/band_cascade_group.h"

namespace band_cascade {

template <class Lanes, int32_t kRegisters, int32_t kLag>
class LaggedSteps {
public:
    using Vector = typename Lanes::Vector;
    using Mask = typename Lanes::Mask;
    static constexpr int32_t kLanes = kRegisters * Lanes::kWidth;

    // Where the first band reads and the last band writes.
    struct Io {
        const double *inLeft, *inRight;
        double *outLeft, *outRight;
        int32_t lastLag, outBand;  // the last band finishes frame step − lastLag

        __m128d input(int32_t step) const { return loadStereo(inLeft, inRight, step); }
        void output(int32_t step, Vector lastRegister) const {
            storeStereo(outLeft, outRight, step - lastLag, Lanes::bandPair(lastRegister, outBand));
        }
    };

    LaggedSteps(int32_t count, const double* inLeft, const double* inRight, double* outLeft,
                double* outRight, int32_t frames)
        : frames_(frames),
          io_{inLeft, inRight, outLeft, outRight, kLag * (count - 1), (count - 1) % Lanes::kBands} {
        alignas(64) double first[kLanes];
        alignas(64) double end[kLanes];
        for (int32_t lane = 0; lane < kLanes; ++lane) {
            first[lane] = kLag * (lane / 2);
            end[lane] = first[lane] + frames;
        }
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            firstStep_[r] = Lanes::load(&first[r * Lanes::kWidth]);
            endStep_[r] = Lanes::load(&end[r * Lanes::kWidth]);
        }
    }

    const Io& io() const { return io_; }
    int32_t steps() const { return frames_ + io_.lastLag; }
    // The steps in which every band has a sample: [fullBegin, fullEnd).
    int32_t fullBegin() const { return io_.lastLag < frames_ ? io_.lastLag : steps(); }
    int32_t fullEnd() const { return io_.lastLag < frames_ ? frames_ : steps(); }

    // Only the bands with a sample at this step advance.
    void maskedStep(GroupRegisters<Lanes, kRegisters>& g, int32_t step) {
        Vector(&sent)[kRegisters] = ring_[ringSlot(step)];  // the outputs of step − kLag
        Vector x[kRegisters], y[kRegisters];
        carryIn(step < frames_ ? io_.input(step) : _mm_setzero_pd(), sent, x);
        sumAll(g, x, y);
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            y[r] = Lanes::flushTiny(y[r]);
            Mask active = Lanes::activeAt(firstStep_[r], endStep_[r], step);
            g.x2[r] = Lanes::select(active, g.x1[r], g.x2[r]);
            g.x1[r] = Lanes::select(active, x[r], g.x1[r]);
            g.y2[r] = Lanes::select(active, g.y1[r], g.y2[r]);
            g.y1[r] = Lanes::select(active, y[r], g.y1[r]);
            sent[r] = y[r];
        }
        if (step >= io_.lastLag && step < steps()) io_.output(step, y[kRegisters - 1]);
    }

    // A step in which every band has a sample (fullBegin <= step < fullEnd).
    void fullStep(GroupRegisters<Lanes, kRegisters>& g, int32_t step) {
        Vector(&sent)[kRegisters] = ring_[ringSlot(step)];
        Vector x[kRegisters], y[kRegisters];
        carryIn(io_.input(step), sent, x);
        sumAll(g, x, y);
        advanceAll(g, x, y);
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) sent[r] = y[r];
        io_.output(step, y[kRegisters - 1]);
    }

    // After full steps ending before `end`, the outputs of its last kLag steps
    // are the y1 and y2 registers.
    void resumeAfterFullSteps(const GroupRegisters<Lanes, kRegisters>& g, int32_t end) {
        static_assert(kLag == 2, "the registers hold two steps of outputs");
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            ring_[ringSlot(end - 1)][r] = g.y1[r];
            ring_[ringSlot(end - 2)][r] = g.y2[r];
        }
    }

private:
    // Each band's input: the output of the band before it, kLag steps ago.
    static void carryIn(__m128d input, const Vector (&sent)[kRegisters], Vector (&x)[kRegisters]) {
        x[0] = Lanes::carryInPair(input, sent[0]);
        OMBRO_UNROLL
        for (int32_t r = 1; r < kRegisters; ++r) x[r] = Lanes::carryIn(sent[r - 1], sent[r]);
    }

    static int32_t ringSlot(int32_t step) { return (step % kLag + kLag) % kLag; }

    const int32_t frames_;
    const Io io_;
    Vector firstStep_[kRegisters], endStep_[kRegisters];
    Vector ring_[kLag][kRegisters] = {};
};

}  // namespace band_cascade
