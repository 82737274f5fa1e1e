// The fast kernels against the reference: the scalar kernel run band after
// band. Every instruction set this processor runs, every block length that
// meets a loop edge, both kinds of buffer, and signals full of the values the
// flush rule handles; outputs and every band's history compared bit for bit.
#include <gtest/gtest.h>

#include <string>

#include "engine/band_cascade.h"
#include "engine/biquad_kernel.h"
#include "tests/engine/band_cascade_test_support.h"

namespace {

constexpr int32_t kBlockLengths[] = {0,  1,  2,  3,  5,  7,  8,   9,   13,
                                     16, 17, 31, 33, 62, 64, 100, 511, 4096};
constexpr int32_t kBandCounts[] = {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 33};

Outcome bandAfterBand(const std::vector<EqBand>& bands, const StereoSignal& in) {
    Outcome out = startFrom(bands, static_cast<int32_t>(in.left.size()));
    const double *left = in.left.data(), *right = in.right.data();
    for (EqBand& band : out.bands) {
        runBandKernelScalar(band, left, right, out.left.data(), out.right.data(),
                            static_cast<int32_t>(in.left.size()));
        left = out.left.data();
        right = out.right.data();
    }
    return out;
}

enum class Buffers { Separate, Shared };

// With Buffers::Shared the host hands the same buffers in and out.
Outcome cascade(InstructionSet set, const std::vector<EqBand>& bands, const StereoSignal& in,
                Buffers buffers) {
    const int32_t frames = static_cast<int32_t>(in.left.size());
    Outcome out =
        buffers == Buffers::Shared ? Outcome{bands, in.left, in.right} : startFrom(bands, frames);
    const bool shared = buffers == Buffers::Shared;
    std::vector<EqBand*> pointers = pointersTo(out.bands);
    bandKernelsFor(set).runCascade(pointers.data(), static_cast<int32_t>(pointers.size()),
                                   shared ? out.left.data() : in.left.data(),
                                   shared ? out.right.data() : in.right.data(), out.left.data(),
                                   out.right.data(), frames);
    return out;
}

// The block cut into pieces of random length, each run by the cascade.
Outcome cascadeInPieces(InstructionSet set, const std::vector<EqBand>& bands,
                        const StereoSignal& in, Random& random) {
    const int32_t frames = static_cast<int32_t>(in.left.size());
    Outcome out = startFrom(bands, frames);
    std::vector<EqBand*> pointers = pointersTo(out.bands);
    for (int32_t done = 0; done < frames;) {
        int32_t piece = std::uniform_int_distribution<int32_t>(0, 40)(random);
        if (piece > frames - done) piece = frames - done;
        bandKernelsFor(set).runCascade(pointers.data(), static_cast<int32_t>(pointers.size()),
                                       in.left.data() + done, in.right.data() + done,
                                       out.left.data() + done, out.right.data() + done, piece);
        done += piece;
    }
    return out;
}

class BandCascadeKernel : public testing::TestWithParam<InstructionSet> {};

}  // namespace

TEST_P(BandCascadeKernel, CascadeMatchesBandAfterBandForEveryLengthAndCount) {
    Random random(11);
    for (int32_t frames : kBlockLengths) {
        for (int32_t count : kBandCounts) {
            SCOPED_TRACE(testing::Message() << frames << " frames, " << count << " bands");
            std::vector<EqBand> bands = randomBands(random, count);
            StereoSignal in(random, frames);
            Outcome expected = bandAfterBand(bands, in);
            for (Buffers buffers : {Buffers::Separate, Buffers::Shared})
                ASSERT_NO_FATAL_FAILURE(
                    expectSameOutcome(cascade(GetParam(), bands, in, buffers), expected));
        }
    }
}

TEST_P(BandCascadeKernel, PiecesOfABlockGiveTheWholeBlock) {
    Random random(12);
    for (int32_t count : {1, 4, 6, 16, 40}) {
        SCOPED_TRACE(testing::Message() << count << " bands");
        std::vector<EqBand> bands = randomBands(random, count);
        StereoSignal in(random, 4096);
        ASSERT_NO_FATAL_FAILURE(expectSameOutcome(cascadeInPieces(GetParam(), bands, in, random),
                                                  bandAfterBand(bands, in)));
    }
}

// Long silence after a loud start: the histories decay through the flush
// threshold at different samples in different bands and channels.
TEST_P(BandCascadeKernel, DecayIntoSilenceFlushesLikeTheReference) {
    Random random(13);
    std::vector<EqBand> bands = randomBands(random, 12);
    StereoSignal in(random, 4096);
    for (int32_t i = 64; i < 4096; ++i) in.left[i] = in.right[i] = 0.0;
    in.right[3000] = 1e-20;
    ASSERT_NO_FATAL_FAILURE(expectSameOutcome(cascade(GetParam(), bands, in, Buffers::Separate),
                                              bandAfterBand(bands, in)));
}

TEST_P(BandCascadeKernel, StereoKernelMatchesTheScalarKernel) {
    Random random(14);
    for (int32_t frames : kBlockLengths) {
        SCOPED_TRACE(testing::Message() << frames << " frames");
        std::vector<EqBand> bands = randomBands(random, 1);
        StereoSignal in(random, frames);
        Outcome actual = startFrom(bands, frames);
        bandKernelsFor(GetParam())
            .runBand(actual.bands[0], in.left.data(), in.right.data(), actual.left.data(),
                     actual.right.data(), frames);
        ASSERT_NO_FATAL_FAILURE(expectSameOutcome(actual, bandAfterBand(bands, in)));
    }
}

// Runs of two to four bands in either shape the processor's vendor may pick.
TEST_P(BandCascadeKernel, ShortRunsMatchBandAfterBandInEitherShape) {
    Random random(15);
    const ShortRunShape chosen = shortRunShape();
    for (ShortRunShape shape :
         {ShortRunShape::OneWideRegister, ShortRunShape::TwoNarrowRegisters}) {
        useShortRunShape(shape);
        for (int32_t frames : {1, 5, 17, 100, 511}) {
            for (int32_t count : {2, 3, 4, 5}) {
                SCOPED_TRACE(testing::Message() << static_cast<int32_t>(shape) << " shape, "
                                                << frames << " frames, " << count << " bands");
                std::vector<EqBand> bands = randomBands(random, count);
                StereoSignal in(random, frames);
                EXPECT_NO_FATAL_FAILURE(expectSameOutcome(
                    cascade(GetParam(), bands, in, Buffers::Shared), bandAfterBand(bands, in)));
            }
        }
    }
    useShortRunShape(chosen);
}

INSTANTIATE_TEST_SUITE_P(EveryRunnableSet, BandCascadeKernel,
                         testing::ValuesIn(runnableInstructionSets()), instructionSetTestName);

TEST(BandCascadeChoice, FastestSetIsRunnableAndSse2AlwaysIs) {
    EXPECT_TRUE(instructionSetAvailable(InstructionSet::Sse2));
    EXPECT_TRUE(instructionSetAvailable(fastestInstructionSet()));
    EXPECT_EQ(&activeBandKernels(), &bandKernelsFor(fastestInstructionSet()));
    if (instructionSetAvailable(InstructionSet::Avx512)) {
        EXPECT_EQ(fastestInstructionSet(), InstructionSet::Avx512);
    }
}
