// The pipelined cascade of steady bands: a run of bands filtered in one pass
// over the block. Each band works kBandLag frames behind the band before it,
// so every band's next sample is ready when a step starts: one step advances
// all bands of the group at once, and the wait for each band's previous
// output (its y1) overlaps with the work of the others.
//
// Bands are dealt to the registers in turn (band k in register k mod R, slot
// k / R), so a band's input, the output of the band before it two steps ago,
// sits in the same slot of the register below: only the lowest register
// needs a shuffle, which also brings in the block's next input sample.
//
// Every step runs all bands at full width. A band with no sample of the block
// yet (at the start) or none left (at the end) runs on whatever reaches it,
// and is set back to its own history just before its first step and copied
// out just after its last, so each band ends exactly where the band-after-band
// loop leaves it.
#pragma once

#include "engine/band_cascade.h"
#include "engine/band_cascade_group.h"
#include "engine/band_cascade_runner.h"

namespace band_cascade {

constexpr int32_t kBandLag = 2;  // frames between neighbouring bands

template <class Lanes, int32_t kRegisters>
class CascadePass {
public:
    using Vector = typename Lanes::Vector;
    using Registers = GroupRegisters<Lanes, kRegisters>;
    static constexpr int32_t kSlots = kRegisters * Lanes::kBands;

    CascadePass(int32_t count, const double* inLeft, const double* inRight, double* outLeft,
                double* outRight, int32_t frames)
        : count_(count),
          frames_(frames),
          lastLag_(kBandLag * (count - 1)),
          outRegister_((count - 1) % kRegisters),
          outSlot_((count - 1) / kRegisters),
          inLeft_(inLeft),
          inRight_(inRight),
          outLeft_(outLeft),
          outRight_(outRight) {}

    void run(EqBand* const* bands) {
        EqBand* bySlot[kSlots] = {};
        for (int32_t band = 0; band < count_; ++band) bySlot[slotOf(band)] = bands[band];
        lanes_.gather(bySlot, kSlots);
        lanes_.idleUnusedSlots(bySlot);
        withOutputRegister([&](auto out) {
            constexpr int32_t kTopSlot = Lanes::kBands - 1;
            if (kTopSlot == 0 || outSlot_ == kTopSlot)  // every register full, the usual case
                runSteps<out.value, kTopSlot>();
            else
                runSteps<out.value, kAnySlot>();
        });
        lanes_.scatter(bySlot, kSlots);
    }

private:
    static constexpr int32_t kRingSteps = 4;  // outputs each register keeps in the ring
    static constexpr int32_t kAnySlot = -1;   // the last band's slot known only at run time
    static constexpr int32_t kChunkSteps = 64;  // steps between choices of flush test
    static constexpr int32_t kExactChunks = 7;  // chunks without the screen once it misleads

    int32_t slotOf(int32_t band) const {
        return (band % kRegisters) * Lanes::kBands + band / kRegisters;
    }
    __m128d input(int32_t step) const { return loadStereo(inLeft_, inRight_, step); }
    // kSlot: the last band's slot in its register, or kAnySlot.
    template <int32_t kSlot>
    void output(int32_t step, Vector outRegister) const {
        const int32_t slot = kSlot == kAnySlot ? outSlot_ : kSlot;
        storeStereo(outLeft_, outRight_, step - lastLag_, Lanes::bandPair(outRegister, slot));
    }

    // kOut: the register that holds the last band; kSlot: its slot there.
    template <int32_t kOut, int32_t kSlot>
    void runSteps() {
        Registers g;
        lanes_.loadInto(g);
        const int32_t steps = frames_ + lastLag_;
        const int32_t ringBegin = lastLag_ + kBandLag;  // every band's x history is a real one
        int32_t step = ringBegin < steps ? ringBegin : steps;
        const int32_t tested = runEdge<kOut>(g, 0, step);
        if (step == ringBegin && step < frames_ - 1) {
            // The first band finishes at frames − 1, an edge step.
            const int32_t ringEnd = step + (frames_ - 1 - step) / kRingSteps * kRingSteps;
            runRing<kOut, kSlot>(g, step, ringEnd, tested > step / 8);
            step = ringEnd;
        }
        runEdge<kOut>(g, step, steps);
    }

    // On a local copy of the registers, so that the compiler keeps them in
    // registers. Returns at how many steps the flush needed the lane-by-lane test.
    template <int32_t kOut>
    int32_t runEdge(Registers& shared, int32_t begin, int32_t end) {
        Registers g = shared;
        int32_t tested = 0;
        for (int32_t step = begin; step < end; ++step) tested += edgeStep<kOut>(g, step);
        shared = g;
        return tested;
    }

    // A step near either end of the block: bands start and finish here.
    template <int32_t kOut>
    [[gnu::always_inline]] bool edgeStep(Registers& g, int32_t step) {
        const int32_t starting = step / kBandLag;
        if (step % kBandLag == 0 && starting > 0 && starting < count_)
            restoreBand(lanes_, g, slotOf(starting));
        // Past the block's end the first band keeps getting its last input:
        // any finite value would do, and a real one keeps the flush screen quiet.
        if (step < frames_) lastInput_ = input(step);
        Vector y[kRegisters];
        const bool tested = plainStep(g, lastInput_, y);
        if (step >= lastLag_) output<kAnySlot>(step, y[kOut]);
        const int32_t finished = (step - (frames_ - 1)) / kBandLag;
        if (step >= frames_ - 1 && (step - (frames_ - 1)) % kBandLag == 0 && finished < count_)
            captureBand(lanes_, g, slotOf(finished));
        return tested;
    }

    // One step on the registers as they are named: x1, x2, y1, y2.
    static bool plainStep(Registers& g, __m128d input, Vector (&y)[kRegisters]) {
        Vector x[kRegisters];
        x[0] = Lanes::carryInPair(input, g.y2[kRegisters - 1]);
        OMBRO_UNROLL
        for (int32_t r = 1; r < kRegisters; ++r) x[r] = g.y2[r - 1];
        sumAll(g, x, y);
        return advanceAll(g, x, y);
    }

    // The history as a ring that is never shifted: each register's last
    // kRingSteps outputs, where the register above finds its x1 and x2 too,
    // and the lowest register's last two inputs.
    struct Ring {
        Vector b0[kRegisters], b1[kRegisters], b2[kRegisters], a1[kRegisters], a2[kRegisters];
        Vector y[kRingSteps][kRegisters];  // y[i]: the outputs of step i mod kRingSteps
        Vector x[2];                       // register 0's inputs, by step mod 2
    };

    // Runs steps [begin, end), a multiple of kRingSteps, all with input and
    // output; slots of the ring count from `begin`. Chunk by chunk it picks
    // the flush test: the quick screen, or for a few chunks after it often
    // needed the lane-by-lane test (as it does for the zeros of one silent
    // channel) that test alone, from the start if the first steps needed it.
    template <int32_t kOut, int32_t kSlot>
    void runRing(Registers& g, int32_t begin, int32_t end, bool exactFirst) const {
        Ring ring;
        toRing(g, ring);
        int32_t exactChunks = exactFirst ? kExactChunks : 0;
        for (int32_t chunk = begin; chunk < end; chunk += kChunkSteps) {
            const int32_t chunkEnd = end - chunk < kChunkSteps ? end : chunk + kChunkSteps;
            if (!QuickScreen<Lanes, kRegisters> || exactChunks > 0) {
                --exactChunks;
                ringSteps<kOut, kSlot, false>(ring, chunk, chunkEnd);
            } else if (ringSteps<kOut, kSlot, true>(ring, chunk, chunkEnd) > kChunkSteps / 8) {
                exactChunks = kExactChunks;
            }
        }
        fromRing(ring, g);
    }

    // Returns at how many steps the quick screen needed the lane-by-lane test.
    template <int32_t kOut, int32_t kSlot, bool kQuick>
    [[gnu::always_inline]] int32_t ringSteps(Ring& ring, int32_t begin, int32_t end) const {
        int32_t screened = 0;
        for (int32_t step = begin; step < end; step += kRingSteps) {
            screened += ringStep<0, kOut, kSlot, kQuick>(ring, step);
            screened += ringStep<1, kOut, kSlot, kQuick>(ring, step + 1);
            screened += ringStep<2, kOut, kSlot, kQuick>(ring, step + 2);
            screened += ringStep<3, kOut, kSlot, kQuick>(ring, step + 3);
        }
        return screened;
    }

    template <int32_t kPhase, int32_t kOut, int32_t kSlot, bool kQuick>
    [[gnu::always_inline]] int32_t ringStep(Ring& ring, int32_t step) const {
        constexpr int32_t now = kPhase, last = (kPhase + 3) % 4, twoAgo = (kPhase + 2) % 4;
        constexpr int32_t threeAgo = (kPhase + 1) % 4;
        // Each sum reads only earlier steps' outputs, so the order is free:
        // top register first and the lowest, which waits for the shuffle
        // that brings in the input, last keeps the products from crowding
        // out the sums on processors that multiply and add on shared ports.
        Vector y[kRegisters];
        OMBRO_UNROLL
        for (int32_t r = kRegisters - 1; r >= 1; --r)
            y[r] = biquadSum<Lanes>(ring.b0[r], ring.b1[r], ring.b2[r], ring.a1[r], ring.a2[r],
                                    ring.y[twoAgo][r - 1], ring.y[threeAgo][r - 1],
                                    ring.y[now][r - 1], ring.y[last][r], ring.y[twoAgo][r]);
        Vector x0 = Lanes::carryInPair(input(step), ring.y[twoAgo][kRegisters - 1]);
        y[0] = biquadSum<Lanes>(ring.b0[0], ring.b1[0], ring.b2[0], ring.a1[0], ring.a2[0], x0,
                                ring.x[(kPhase + 1) % 2], ring.x[kPhase % 2], ring.y[last][0],
                                ring.y[twoAgo][0]);
        int32_t screened = 0;
        if constexpr (kQuick)
            screened = flushAll<Lanes, kRegisters>(y);
        else
            flushExactly<Lanes, kRegisters>(y);
        ring.x[kPhase % 2] = x0;
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) ring.y[now][r] = y[r];
        output<kSlot>(step, y[kOut]);
        return screened;
    }

    static void toRing(const Registers& g, Ring& ring) {
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            ring.b0[r] = g.b0[r], ring.b1[r] = g.b1[r], ring.b2[r] = g.b2[r];
            ring.a1[r] = g.a1[r], ring.a2[r] = g.a2[r];
            ring.y[3][r] = g.y1[r];
            ring.y[2][r] = g.y2[r];
            // The register above took these outputs as its last two inputs.
            ring.y[1][r] = r + 1 < kRegisters ? g.x1[r + 1] : g.y2[r];
            ring.y[0][r] = r + 1 < kRegisters ? g.x2[r + 1] : g.y2[r];
        }
        ring.x[1] = g.x1[0];
        ring.x[0] = g.x2[0];
    }

    static void fromRing(const Ring& ring, Registers& g) {
        OMBRO_UNROLL
        for (int32_t r = 0; r < kRegisters; ++r) {
            g.y1[r] = ring.y[3][r];
            g.y2[r] = ring.y[2][r];
            g.x1[r] = r > 0 ? ring.y[1][r - 1] : ring.x[1];
            g.x2[r] = r > 0 ? ring.y[0][r - 1] : ring.x[0];
        }
    }

    // Calls run(std::integral_constant<int32_t, R>{}) for the register that
    // holds the last band. With one band per register a pass has as many
    // bands as registers, so the last one is always in the top register.
    template <int32_t kCandidate = Lanes::kBands == 1 ? kRegisters - 1 : 0, typename Run>
    void withOutputRegister(Run&& run) const {
        if constexpr (kCandidate + 1 < kRegisters) {
            if (outRegister_ != kCandidate)
                return withOutputRegister<kCandidate + 1>(run);
        }
        run(std::integral_constant<int32_t, kCandidate>{});
    }

    const int32_t count_, frames_, lastLag_, outRegister_, outSlot_;
    const double *inLeft_, *inRight_;
    double *outLeft_, *outRight_;
    __m128d lastInput_ = _mm_setzero_pd();
    GroupLanes<Lanes, kRegisters> lanes_;
};

// Runs any number of steady bands in order over the block. Runs that fit one
// register of Lanes may go to the narrower FewLanes, two registers or more
// (see ShortRunShape).
template <class Lanes, int32_t kMaxRegisters, class FewLanes = Lanes>
void runSteadyCascade(EqBand* const* bands, int32_t count, const double* inLeft,
                      const double* inRight, double* outLeft, double* outRight, int32_t frames) {
    if (frames <= 0) return;
    if constexpr (FewLanes::kBands < Lanes::kBands) {
        if (count <= Lanes::kBands && shortRunShape() == ShortRunShape::TwoNarrowRegisters)
            return runSteadyCascade<FewLanes, Lanes::kBands / FewLanes::kBands>(
                bands, count, inLeft, inRight, outLeft, outRight, frames);
    }
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
