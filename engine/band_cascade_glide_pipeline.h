// The pipelined cascade of gliding bands. Their coefficients switch every
// chunk, so neighbouring bands work a whole chunk apart: every band then
// switches at the same step, and outputs travel from band to band through a
// ring that holds one chunk of steps. Designs come ready made, one set per
// band and chunk, so no maths library call interrupts the filtering. Every
// step updates only the bands that have a sample, as in the steady cascade.
#pragma once

#include "engine/band_cascade.h"
#include "engine/band_cascade_group.h"
#include "engine/band_cascade_runner.h"

namespace band_cascade {

template <class Lanes, int32_t kRegisters>
class GlidePass {
public:
    using Vector = typename Lanes::Vector;
    using Mask = typename Lanes::Mask;
    static constexpr int32_t kLanes = kRegisters * Lanes::kWidth;

    GlidePass(int32_t count, const ChunkCoefficients* designs, int32_t designStride,
              const double* inLeft, const double* inRight, double* outLeft, double* outRight,
              int32_t frames)
        : count_(count),
          frames_(frames),
          lastLag_(kGlideChunkFrames * (count - 1)),
          outBand_((count - 1) % Lanes::kBands),
          chunks_((frames + kGlideChunkFrames - 1) / kGlideChunkFrames),
          designStride_(designStride),
          designs_(designs),
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
        Vector ring[kGlideChunkFrames][kRegisters];  // outputs by step, one chunk back
        for (auto& slot : ring)
            for (Vector& y : slot) y = g.y1[0];
        const int32_t steps = frames_ + lastLag_;
        for (int32_t step = 0; step < steps; ++step) {
            if (step % kGlideChunkFrames == 0) switchDesigns(g, step / kGlideChunkFrames);
            glideStep(g, ring[step % kGlideChunkFrames], step);
        }
        lanes.storeFrom(g);
        lanes.scatter(bands, count_);
    }

private:
    // Band slot s is in chunk `chunkStep` − s; idle bands keep any design.
    void switchDesigns(GroupRegisters<Lanes, kRegisters>& g, int32_t chunkStep) {
        alignas(64) double rows[5][kLanes] = {};
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

    // `sent` holds the outputs of one chunk of steps ago and takes this step's.
    void glideStep(GroupRegisters<Lanes, kRegisters>& g, Vector (&sent)[kRegisters], int32_t step) {
        __m128d input = step < frames_ ? loadStereo(inLeft_, inRight_, step) : _mm_setzero_pd();
        Vector x[kRegisters];
        x[0] = Lanes::carryInPair(input, sent[0]);
        OMBRO_UNROLL
        for (int32_t r = 1; r < kRegisters; ++r) x[r] = Lanes::carryIn(sent[r - 1], sent[r]);
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
            sent[r] = y;
        }
        int32_t frame = step - lastLag_;
        if (frame >= 0 && frame < frames_)
            storeStereo(outLeft_, outRight_, frame,
                        Lanes::bandPair(sent[kRegisters - 1], outBand_));
    }

    // Band slot s works on frame step − kGlideChunkFrames·s.
    void prepareMasks() {
        alignas(64) double first[kLanes];
        alignas(64) double end[kLanes];
        for (int32_t lane = 0; lane < kLanes; ++lane) {
            first[lane] = kGlideChunkFrames * (lane / 2);
            end[lane] = first[lane] + frames_;
        }
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            firstStep_[r] = Lanes::load(&first[r * Lanes::kWidth]);
            endStep_[r] = Lanes::load(&end[r * Lanes::kWidth]);
        }
    }

    const int32_t count_, frames_, lastLag_, outBand_, chunks_, designStride_;
    const ChunkCoefficients* designs_;
    const double *inLeft_, *inRight_;
    double *outLeft_, *outRight_;
    Vector firstStep_[kRegisters], endStep_[kRegisters];
};

// Runs any number of gliding bands in order over the block.
template <class Lanes, int32_t kMaxRegisters>
void runGlideCascade(EqBand* const* bands, int32_t count, const ChunkCoefficients* designs,
                     int32_t designStride, const double* inLeft, const double* inRight,
                     double* outLeft, double* outRight, int32_t frames) {
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
