// The pipelined cascade of steady bands: a run of bands filtered in one pass
// over the block. Each band works kBandLag frames behind the band before it,
// so every band's next sample is ready when a step starts: one step advances
// all bands of the group at once, and the wait for each band's previous
// output (its y1) overlaps with the work of the others.
#pragma once

#include "engine/band_cascade_group.h"
#include "engine/band_cascade_lagged_steps.h"
#include "engine/band_cascade_runner.h"

namespace band_cascade {

constexpr int32_t kBandLag = 2;  // frames between neighbouring bands

// One pass of up to kRegisters × kBands bands over a block; `in` may be `out`.
template <class Lanes, int32_t kRegisters>
class CascadePass {
public:
    using Vector = typename Lanes::Vector;

    CascadePass(int32_t count, const double* inLeft, const double* inRight, double* outLeft,
                double* outRight, int32_t frames)
        : count_(count), steps_(count, inLeft, inRight, outLeft, outRight, frames) {}

    void run(EqBand* const* bands) {
        GroupLanes<Lanes, kRegisters> lanes;
        lanes.gather(bands, count_);
        GroupRegisters<Lanes, kRegisters> g;
        lanes.loadInto(g);
        int32_t step = 0;
        for (; step < steps_.fullBegin(); ++step) steps_.maskedStep(g, step);
        if (step < steps_.fullEnd()) {
            runFullSteps(g, step, steps_.fullEnd());
            step = steps_.fullEnd();
            steps_.resumeAfterFullSteps(g, step);
        }
        for (; step < steps_.steps(); ++step) steps_.maskedStep(g, step);
        lanes.storeFrom(g);
        lanes.scatter(bands, count_);
    }

private:
    // On a local copy of the registers, so that the compiler keeps them in registers.
    void runFullSteps(GroupRegisters<Lanes, kRegisters>& shared, int32_t begin, int32_t end) {
        GroupRegisters<Lanes, kRegisters> g = shared;
        const typename LaggedSteps<Lanes, kRegisters, kBandLag>::Io io = steps_.io();
        for (int32_t step = begin; step < end; ++step) fullStep(g, io, step);
        shared = g;
    }

    // Every band has a sample: the outputs of two steps ago are the y2 registers.
    static void fullStep(GroupRegisters<Lanes, kRegisters>& g,
                         const typename LaggedSteps<Lanes, kRegisters, kBandLag>::Io& io,
                         int32_t step) {
        Vector x[kRegisters], y[kRegisters];
        x[0] = Lanes::carryInPair(io.input(step), g.y2[0]);
        OMBRO_UNROLL
        for (int32_t r = 1; r < kRegisters; ++r) x[r] = Lanes::carryIn(g.y2[r - 1], g.y2[r]);
        sumAll(g, x, y);
        advanceAll(g, x, y);
        io.output(step, y[kRegisters - 1]);
    }

    const int32_t count_;
    LaggedSteps<Lanes, kRegisters, kBandLag> steps_;
};

// Runs any number of steady bands in order over the block.
template <class Lanes, int32_t kMaxRegisters>
void runSteadyCascade(EqBand* const* bands, int32_t count, const double* inLeft,
                      const double* inRight, double* outLeft, double* outRight, int32_t frames) {
    if (frames <= 0) return;
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
