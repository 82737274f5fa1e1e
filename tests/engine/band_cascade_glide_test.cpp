// Gliding bands: the glide cascade and the stereo chunk kernel against the
// scalar kernel run band after band and chunk after chunk, and the batching
// of designs against a glide redesigned chunk by chunk; every instruction
// set this processor runs, outputs and band records bit for bit.
#include <gtest/gtest.h>

#include <algorithm>

#include "engine/band_cascade.h"
#include "engine/band_cascade_glide.h"
#include "engine/band_cascade_stereo.h"
#include "engine/biquad_kernel.h"
#include "tests/engine/band_cascade_test_support.h"

namespace {

constexpr int32_t kBlockLengths[] = {0, 1, 7, 8, 9, 16, 23, 64, 100, 255, 256, 257, 511, 4096};
constexpr int32_t kBandCounts[] = {1, 2, 3, 5, 8, 9, 17};

int32_t chunksIn(int32_t frames) { return (frames + kGlideChunkFrames - 1) / kGlideChunkFrames; }

// One coefficient set per band and chunk, taken from random designs.
std::vector<ChunkCoefficients> randomDesigns(Random& random, int32_t bands, int32_t chunks) {
    std::vector<ChunkCoefficients> designs;
    for (EqBand& band : randomBands(random, bands * chunks))
        designs.push_back(coefficientsOf(band));
    return designs;
}

void setCoefficients(EqBand& band, const ChunkCoefficients& k) {
    band.a1 = k.a1;
    band.a2 = k.a2;
    band.b0 = k.b0;
    band.b1 = k.b1;
    band.b2 = k.b2;
}

Outcome chunkAfterChunk(const std::vector<EqBand>& bands,
                        const std::vector<ChunkCoefficients>& designs, const StereoSignal& in) {
    const int32_t frames = static_cast<int32_t>(in.left.size());
    Outcome out = startFrom(bands, frames);
    const double *left = in.left.data(), *right = in.right.data();
    for (size_t i = 0; i < out.bands.size(); ++i) {
        EqBand& band = out.bands[i];
        for (int32_t start = 0, chunk = 0; start < frames; start += kGlideChunkFrames, ++chunk) {
            setCoefficients(band, designs[i * chunksIn(frames) + chunk]);
            int32_t length = std::min(kGlideChunkFrames, frames - start);
            runBandKernelScalar(band, left + start, right + start, out.left.data() + start,
                                out.right.data() + start, length);
        }
        setCoefficients(band, coefficientsOf(bands[i]));  // the kernels leave them alone
        left = out.left.data();
        right = out.right.data();
    }
    return out;
}

Outcome glideCascade(InstructionSet set, const std::vector<EqBand>& bands,
                     const std::vector<ChunkCoefficients>& designs, const StereoSignal& in) {
    const int32_t frames = static_cast<int32_t>(in.left.size());
    Outcome out = startFrom(bands, frames);
    std::vector<EqBand*> pointers = pointersTo(out.bands);
    bandKernelsFor(set).runGlideCascade(pointers.data(), static_cast<int32_t>(pointers.size()),
                                        designs.data(), chunksIn(frames), in.left.data(),
                                        in.right.data(), out.left.data(), out.right.data(), frames);
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

// Bands whose design moved away from where their glide stands.
std::vector<EqBand> bandsToGlide(Random& random, int32_t count) {
    std::vector<EqBand> bands = randomBands(random, count);
    for (EqBand& band : bands) {
        double frequency =
            band.frequency * std::uniform_real_distribution<double>(0.5, 2.0)(random);
        designBand(&band, band.type, false, frequency, band.gain * 1.5, band.bandwidth);
    }
    return bands;
}

Outcome glideOneByOne(const std::vector<EqBand>& bands, const StereoSignal& in) {
    const int32_t frames = static_cast<int32_t>(in.left.size());
    Outcome out = startFrom(bands, frames);
    const double *left = in.left.data(), *right = in.right.data();
    LinearGlide rule;
    for (EqBand& band : out.bands) {
        LinearGlide::Increments step = rule.begin(band, frames);
        for (int32_t start = 0; start < frames; start += kGlideChunkFrames) {
            int32_t length = std::min(kGlideChunkFrames, frames - start);
            rule.advance(band, step, length);
            runBandKernelScalar(band, left + start, right + start, out.left.data() + start,
                                out.right.data() + start, length);
        }
        left = out.left.data();
        right = out.right.data();
    }
    return out;
}

Outcome glideInBatches(InstructionSet set, const std::vector<EqBand>& bands,
                       const StereoSignal& in) {
    const int32_t frames = static_cast<int32_t>(in.left.size());
    Outcome out = startFrom(bands, frames);
    std::vector<EqBand*> pointers = pointersTo(out.bands);
    glideBands(pointers.data(), static_cast<int32_t>(pointers.size()), LinearGlide{},
               bandKernelsFor(set), in.left.data(), in.right.data(), out.left.data(),
               out.right.data(), frames);
    return out;
}

class BandCascadeGlide : public testing::TestWithParam<InstructionSet> {};

}  // namespace

TEST_P(BandCascadeGlide, GlideCascadeSwitchesDesignsAtEveryChunk) {
    Random random(21);
    for (int32_t frames : kBlockLengths) {
        for (int32_t count : kBandCounts) {
            SCOPED_TRACE(testing::Message() << frames << " frames, " << count << " bands");
            std::vector<EqBand> bands = randomBands(random, count);
            std::vector<ChunkCoefficients> designs = randomDesigns(random, count, chunksIn(frames));
            StereoSignal in(random, frames);
            ASSERT_NO_FATAL_FAILURE(expectSameOutcome(glideCascade(GetParam(), bands, designs, in),
                                                      chunkAfterChunk(bands, designs, in)));
        }
    }
}

TEST_P(BandCascadeGlide, StereoChunkKernelSwitchesDesignsAtEveryChunk) {
    Random random(22);
    for (int32_t frames : kBlockLengths) {
        SCOPED_TRACE(testing::Message() << frames << " frames");
        std::vector<EqBand> bands = randomBands(random, 1);
        std::vector<ChunkCoefficients> designs = randomDesigns(random, 1, chunksIn(frames));
        StereoSignal in(random, frames);
        Outcome actual = startFrom(bands, frames);
        runBandStereoChunks(actual.bands[0], designs.data(), kGlideChunkFrames, in.left.data(),
                            in.right.data(), actual.left.data(), actual.right.data(), frames);
        ASSERT_NO_FATAL_FAILURE(expectSameOutcome(actual, chunkAfterChunk(bands, designs, in)));
    }
}

TEST_P(BandCascadeGlide, BatchedDesignsEndWhereChunkByChunkGlidingEnds) {
    Random random(23);
    for (int32_t frames : {1, 8, 13, 256, 300, 4096}) {
        for (int32_t count : {1, 3, 8, 12}) {
            SCOPED_TRACE(testing::Message() << frames << " frames, " << count << " bands");
            std::vector<EqBand> bands = bandsToGlide(random, count);
            StereoSignal in(random, frames);
            ASSERT_NO_FATAL_FAILURE(
                expectSameOutcome(glideInBatches(GetParam(), bands, in), glideOneByOne(bands, in)));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryRunnableSet, BandCascadeGlide,
                         testing::ValuesIn(runnableInstructionSets()), instructionSetTestName);
