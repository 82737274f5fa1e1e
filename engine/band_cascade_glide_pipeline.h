// The pipelined cascade of gliding bands. Their coefficients switch every
// chunk, so neighbouring bands work a whole chunk apart: every band then
// switches at the same step, and outputs travel from band to band through a
// ring that holds one chunk of steps. Designs come ready made, one set per
// band and chunk, so no maths library call interrupts the filtering.
#pragma once

#include "engine/band_cascade.h"
#include "engine/band_cascade_group.h"
#include "engine/band_cascade_lagged_steps.h"
#include "engine/band_cascade_runner.h"

namespace band_cascade {

template <class Lanes, int32_t kRegisters>
class GlidePass {
public:
    static constexpr int32_t kLanes = kRegisters * Lanes::kWidth;
    static constexpr int32_t kSlots = kRegisters * Lanes::kBands;

    GlidePass(int32_t count, const ChunkCoefficients* designs, int32_t designStride,
              const double* inLeft, const double* inRight, double* outLeft, double* outRight,
              int32_t frames)
        : count_(count),
          chunks_((frames + kGlideChunkFrames - 1) / kGlideChunkFrames),
          designStride_(designStride),
          designs_(designs),
          steps_(count, inLeft, inRight, outLeft, outRight, frames) {}

    void run(EqBand* const* bands) {
        EqBand* bySlot[kSlots] = {};
        for (int32_t slot = 0; slot < count_; ++slot) bySlot[slot] = bands[slot];
        GroupLanes<Lanes, kRegisters> lanes;
        lanes.gather(bySlot, kSlots);
        lanes.idleUnusedSlots(bySlot);
        GroupRegisters<Lanes, kRegisters> g;
        lanes.loadInto(g);
        for (int32_t step = 0; step < steps_.steps(); ++step) {
            if (step % kGlideChunkFrames == 0) switchDesigns(g, step / kGlideChunkFrames);
            if (step >= steps_.fullBegin() && step < steps_.fullEnd())
                steps_.fullStep(g, step);
            else
                steps_.maskedStep(g, step);
        }
        lanes.storeFrom(g);
        lanes.scatter(bySlot, kSlots);
    }

private:
    // Band slot s is in chunk `chunkStep` − s; idle bands keep any design.
    void switchDesigns(GroupRegisters<Lanes, kRegisters>& g, int32_t chunkStep) const {
        alignas(64) double rows[5][kLanes] = {};
        for (int32_t slot = count_; slot < kSlots; ++slot)
            rows[3][2 * slot] = rows[3][2 * slot + 1] = GroupLanes<Lanes, kRegisters>::kIdleA1;
        for (int32_t slot = 0; slot < count_; ++slot) {
            int32_t chunk = chunkStep - slot;
            chunk = chunk < 0 ? 0 : chunk >= chunks_ ? chunks_ - 1 : chunk;
            const ChunkCoefficients& k = designs_[slot * designStride_ + chunk];
            const double values[5] = {k.b0, k.b1, k.b2, k.a1, k.a2};
            for (int32_t row = 0; row < 5; ++row)
                rows[row][2 * slot] = rows[row][2 * slot + 1] = values[row];
        }
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            const int32_t lane = r * Lanes::kWidth;
            g.b0[r] = Lanes::load(&rows[0][lane]);
            g.b1[r] = Lanes::load(&rows[1][lane]);
            g.b2[r] = Lanes::load(&rows[2][lane]);
            g.a1[r] = Lanes::load(&rows[3][lane]);
            g.a2[r] = Lanes::load(&rows[4][lane]);
        }
    }

    const int32_t count_, chunks_, designStride_;
    const ChunkCoefficients* designs_;
    LaggedSteps<Lanes, kRegisters, kGlideChunkFrames> steps_;
};

// Runs any number of gliding bands in order over the block.
template <class Lanes, int32_t kMaxRegisters>
void runGlideCascade(EqBand* const* bands, int32_t count, const ChunkCoefficients* designs,
                     int32_t designStride, const double* inLeft, const double* inRight,
                     double* outLeft, double* outRight, int32_t frames) {
    if (frames <= 0) return;
    inEvenPasses<Lanes, kMaxRegisters>(count, [&](int32_t first, int32_t take) {
        withRegistersFor<Lanes, kMaxRegisters>(take, [&](auto registers) {
            GlidePass<Lanes, registers.value>(take, designs + first * designStride, designStride,
                                              inLeft, inRight, outLeft, outRight, frames)
                .run(bands + first);
        });
        inLeft = outLeft;
        inRight = outRight;
    });
}

}  // namespace band_cascade
