// The fast kernels against the scalar kernel run band after band (chunk after
// chunk while gliding), on every instruction set this processor runs: block
// lengths and band counts that meet every loop edge, both kinds of buffer,
// both shapes of short runs; outputs and band records compared bit for bit.
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "engine/band_cascade.h"
#include "engine/band_cascade_glide.h"
#include "engine/biquad_kernel.h"
#include "tests/engine/band_cascade_test_support.h"

namespace {

constexpr int32_t kBlockLengths[] = {0, 1, 2, 3, 7, 8, 9, 16, 17, 23, 33, 64, 100, 511, 4096};
constexpr int32_t kBandCounts[] = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 33};

int32_t chunksIn(int32_t frames) { return (frames + kGlideChunkFrames - 1) / kGlideChunkFrames; }

void setCoefficients(EqBand& band, const ChunkCoefficients& k) {
    std::tie(band.a1, band.a2, band.b0, band.b1, band.b2) = std::tie(k.a1, k.a2, k.b0, k.b1, k.b2);
}

// The reference: band after band; with designs, band i filters chunk c with
// designs[i * chunks + c] and keeps its own coefficients.
Outcome bandAfterBand(const std::vector<EqBand>& bands, const StereoSignal& in,
                      const std::vector<ChunkCoefficients>* designs = nullptr) {
    const int32_t frames = static_cast<int32_t>(in.left.size());
    const int32_t chunk = designs ? kGlideChunkFrames : std::max(frames, 1);
    Outcome out = startFrom(bands, frames);
    const double *left = in.left.data(), *right = in.right.data();
    for (size_t i = 0; i < out.bands.size(); ++i) {
        EqBand& band = out.bands[i];
        for (int32_t start = 0; start < frames; start += chunk) {
            if (designs) setCoefficients(band, (*designs)[i * chunksIn(frames) + start / chunk]);
            runBandKernelScalar(band, left + start, right + start, out.left.data() + start,
                                out.right.data() + start, std::min(chunk, frames - start));
        }
        setCoefficients(band, coefficientsOf(bands[i]));
        left = out.left.data();
        right = out.right.data();
    }
    return out;
}

// Frequency and gain move linearly to the design over the block, the way a
// host's parameter change glides.
struct LinearGlide {
    struct Increments {
        double frequency, gain;
    };
    Increments begin(const EqBand& band, int32_t frames) const {
        return {(band.frequency - band.glideFrequency) / frames,
                (band.gain - band.glideGain) / frames};
    }
    void advance(EqBand& band, const Increments& step, int32_t chunk) const {
        band.glideFrequency += step.frequency * chunk;
        band.glideGain += step.gain * chunk;
        designBand(&band, band.type, false, band.glideFrequency, band.glideGain, band.bandwidth);
    }
};

class BandCascadeKernel : public testing::TestWithParam<InstructionSet> {
protected:
    const BandKernels& kernels() const { return bandKernelsFor(GetParam()); }
};

}  // namespace

TEST_P(BandCascadeKernel, CascadeMatchesBandAfterBandForEveryLengthAndCount) {
    Random random(11);
    const ShortRunShape chosen = shortRunShape();
    for (int32_t frames : kBlockLengths) {
        for (int32_t count : kBandCounts) {
            SCOPED_TRACE(testing::Message() << frames << " frames, " << count << " bands");
            std::vector<EqBand> bands = randomBands(random, count);
            StereoSignal in(random, frames);
            Outcome expected = bandAfterBand(bands, in);
            Outcome separate = startFrom(bands, frames);
            useShortRunShape(ShortRunShape::OneWideRegister);
            kernels().runCascade(pointersTo(separate.bands).data(), count, in.left.data(),
                                 in.right.data(), separate.left.data(), separate.right.data(),
                                 frames);
            Outcome shared{bands, in.left, in.right};  // the host's buffers in and out
            useShortRunShape(ShortRunShape::TwoNarrowRegisters);
            kernels().runCascade(pointersTo(shared.bands).data(), count, shared.left.data(),
                                 shared.right.data(), shared.left.data(), shared.right.data(),
                                 frames);
            useShortRunShape(chosen);
            ASSERT_NO_FATAL_FAILURE(expectSameOutcome(separate, expected));
            ASSERT_NO_FATAL_FAILURE(expectSameOutcome(shared, expected));
        }
    }
}

TEST_P(BandCascadeKernel, GlideCascadeSwitchesDesignsAtEveryChunk) {
    Random random(21);
    for (int32_t frames : kBlockLengths) {
        for (int32_t count : kBandCounts) {
            SCOPED_TRACE(testing::Message() << frames << " frames, " << count << " bands");
            std::vector<EqBand> bands = randomBands(random, count);
            std::vector<ChunkCoefficients> designs;
            for (EqBand& band : randomBands(random, count * chunksIn(frames)))
                designs.push_back(coefficientsOf(band));
            StereoSignal in(random, frames);
            Outcome actual = startFrom(bands, frames);
            kernels().runGlideCascade(pointersTo(actual.bands).data(), count, designs.data(),
                                      chunksIn(frames), in.left.data(), in.right.data(),
                                      actual.left.data(), actual.right.data(), frames);
            ASSERT_NO_FATAL_FAILURE(expectSameOutcome(actual, bandAfterBand(bands, in, &designs)));
        }
    }
}

// Designs done a batch ahead of the filtering end where designing before
// every chunk ends.
TEST_P(BandCascadeKernel, BatchedDesignsEndWhereChunkByChunkGlidingEnds) {
    Random random(23);
    for (int32_t frames : {1, 8, 13, 256, 300, 4096}) {
        for (int32_t count : {1, 3, 8, 12}) {
            SCOPED_TRACE(testing::Message() << frames << " frames, " << count << " bands");
            std::vector<EqBand> bands = randomBands(random, count);
            for (EqBand& band : bands)
                designBand(&band, band.type, false, band.frequency * (0.5 + (count & 1)),
                           band.gain * 1.5, band.bandwidth);
            StereoSignal in(random, frames);
            Outcome batched = startFrom(bands, frames), plain = startFrom(bands, frames);
            glideBands(pointersTo(batched.bands).data(), count, LinearGlide{}, kernels(),
                       in.left.data(), in.right.data(), batched.left.data(), batched.right.data(),
                       frames);
            const double *left = in.left.data(), *right = in.right.data();
            for (EqBand& band : plain.bands) {
                LinearGlide::Increments step = LinearGlide{}.begin(band, frames);
                for (int32_t start = 0; start < frames; start += kGlideChunkFrames) {
                    int32_t length = std::min(kGlideChunkFrames, frames - start);
                    LinearGlide{}.advance(band, step, length);
                    runBandKernelScalar(band, left + start, right + start,
                                        plain.left.data() + start, plain.right.data() + start,
                                        length);
                }
                left = plain.left.data();
                right = plain.right.data();
            }
            ASSERT_NO_FATAL_FAILURE(expectSameOutcome(batched, plain));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryRunnableSet, BandCascadeKernel,
                         testing::ValuesIn(runnableInstructionSets()), instructionSetTestName);
