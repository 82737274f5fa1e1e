// The block callback with the fast kernels against the band loop done the
// plain way in the test: the scalar kernel band after band, gliding chunk
// after chunk. Random band sets of every type, edits between blocks that
// start glides, disabled and unprimed bands, blocks of every awkward length
// and signals full of non-finite and tiny values, on every instruction set
// this processor runs; outputs and every band record compared bit for bit.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "engine/audio_processing.h"
#include "engine/band_cascade.h"
#include "engine/biquad_kernel.h"
#include "tests/engine/band_cascade_test_support.h"
#include "tests/engine/test_instance.h"

namespace {

// The audio path's band loop, written out plainly.
class PlainBandLoop {
public:
    explicit PlainBandLoop(std::vector<EqBand> bands) : bands_(std::move(bands)) {}
    std::vector<EqBand>& bands() { return bands_; }

    void process(const StereoSignal& in, std::vector<double>& left, std::vector<double>& right) {
        const int32_t frames = static_cast<int32_t>(in.left.size());
        const double* source[2] = {in.left.data(), in.right.data()};
        double* target[2] = {left.data(), right.data()};
        bool anyRun = false;
        for (EqBand& band : bands_) {
            if (!band.enabled || idleAtUnity(band)) continue;
            if (steady(band)) {
                runBandKernelScalar(band, source[0], source[1], target[0], target[1], frames);
                band.primed = 1;
            } else {
                glide(band, source, target, frames);
            }
            anyRun = true;
            source[0] = target[0];
            source[1] = target[1];
        }
        if (!anyRun) {
            std::copy(in.left.begin(), in.left.end(), left.begin());
            std::copy(in.right.begin(), in.right.end(), right.begin());
        }
    }

private:
    static bool idleAtUnity(const EqBand& band) {
        bool passFilter = band.type >= LowPass && band.type <= BandPass;
        return !band.primed && std::fabs(band.gain - 1.0) < 5e-9 && !passFilter;
    }
    static bool steady(const EqBand& band) {
        return band.glideFrequency == band.frequency && band.glideGain == band.gain &&
               band.glideBandwidth == band.bandwidth;
    }
    static void glide(EqBand& band, const double* const source[2], double* const target[2],
                      int32_t frames) {
        if (frames <= 0) return;
        double stepFrequency = (band.frequency - band.glideFrequency) / frames;
        double stepGain = (band.gain - band.glideGain) / frames;
        double stepBandwidth = (band.bandwidth - band.glideBandwidth) / frames;
        for (int32_t done = 0; done < frames; done += 8) {
            int32_t chunk = std::min(8, frames - done);
            band.glideType = band.type;
            band.glideFrequency += stepFrequency * chunk;
            band.glideGain += stepGain * chunk;
            band.glideBandwidth += stepBandwidth * chunk;
            if (!steady(band))
                designBand(&band, band.type, false, band.glideFrequency, band.glideGain,
                           band.glideBandwidth);
            runBandKernelScalar(band, source[0] + done, source[1] + done, target[0] + done,
                                target[1] + done, chunk);
            band.primed = 1;
        }
    }

    std::vector<EqBand> bands_;
};

// Bands of every type; some at unity gain (left out until they have run),
// some disabled.
std::vector<EqBand> randomBandSet(Random& random, int32_t count) {
    std::vector<EqBand> bands;
    for (int32_t i = 0; i < count; ++i) {
        int32_t type = std::uniform_int_distribution<int32_t>(0, 9)(random);
        double frequency = std::exp(std::uniform_real_distribution<double>(3.0, 10.0)(random));
        double gain = std::uniform_int_distribution<int32_t>(0, 3)(random) == 0
                          ? 1.0
                          : std::exp(std::uniform_real_distribution<double>(-3.0, 3.0)(random));
        EqBand* made = createDesignedBand(type, frequency, gain, 0.2 + i % 5 * 0.4, 44100.0);
        made->enabled = std::uniform_int_distribution<int32_t>(0, 7)(random) != 0;
        bands.push_back(*made);
        delete made;
    }
    return bands;
}

// Between blocks: a few bands get new values (they glide in the next block),
// now and then one is switched on or off or jumps without a glide.
void editSome(Random& random, std::vector<EqBand*> bands) {
    for (EqBand* band : bands) {
        int32_t roll = std::uniform_int_distribution<int32_t>(0, 9)(random);
        double factor = std::uniform_real_distribution<double>(0.7, 1.4)(random);
        if (roll < 3)
            designBand(band, band->type, false, band->frequency * factor, band->gain / factor,
                       band->bandwidth);
        else if (roll == 3)
            designBand(band, band->type, false, band->frequency, band->gain,
                       band->bandwidth * factor);
        else if (roll == 4)
            band->enabled = !band->enabled;
        else if (roll == 5)
            designBand(band, band->type, true, band->frequency * factor, band->gain,
                       band->bandwidth);
    }
}

// Switches the audio path to one instruction set for the test's lifetime.
class InstructionSetChoice {
public:
    explicit InstructionSetChoice(InstructionSet set) { EXPECT_TRUE(useInstructionSet(set)); }
    ~InstructionSetChoice() { useInstructionSet(fastestInstructionSet()); }
};

struct Session {
    InstancePtr instance = makeTestInstance();
    PlainBandLoop plain;

    explicit Session(const std::vector<EqBand>& bands) : plain(bands) {
        for (const EqBand& band : bands) {
            EqBand* copy =
                addTestBand(instance.get(), band.type, band.frequency, band.gain, band.bandwidth);
            *copy = band;
        }
    }

    std::vector<EqBand*> instanceBands() {
        std::vector<EqBand*> bands;
        for (int32_t i = 0; i < instance->bandCount(); ++i) bands.push_back(instance->band(i));
        return bands;
    }

    std::vector<EqBand> instanceBandCopies() {
        std::vector<EqBand> copies;
        for (EqBand* band : instanceBands()) copies.push_back(*band);
        return copies;
    }

    void expectSameBlock(const StereoSignal& in) {
        const size_t frames = in.left.size();
        std::vector<double> left(frames, -1.0), right(frames, -2.0);
        std::vector<double> plainLeft(frames, -1.0), plainRight(frames, -2.0);
        double* inputs[2] = {const_cast<double*>(in.left.data()),
                             const_cast<double*>(in.right.data())};
        double* outputs[2] = {left.data(), right.data()};
        processDoubleReplacing(&instance->effect, inputs, outputs, static_cast<int32_t>(frames));
        plain.process(in, plainLeft, plainRight);
        ASSERT_NO_FATAL_FAILURE(expectSameBits(left, plainLeft, "left"));
        ASSERT_NO_FATAL_FAILURE(expectSameBits(right, plainRight, "right"));
        ASSERT_NO_FATAL_FAILURE(expectSameBands(instanceBandCopies(), plain.bands()));
    }

    // The same edits on both sides, drawn once.
    void edit(Random& random) {
        Random twin = random;
        editSome(random, instanceBands());
        editSome(twin, pointersTo(plain.bands()));
    }
};

class BandCascadeBlock : public testing::TestWithParam<InstructionSet> {};

}  // namespace

TEST_P(BandCascadeBlock, BlocksMatchThePlainBandLoopThroughEditsAndGlides) {
    InstructionSetChoice choice(GetParam());
    Random random(31);
    constexpr int32_t kLengths[] = {0, 1, 7, 8, 9, 64, 4096, 3, 100, 511, 16, 17, 1000};
    for (int32_t count : {1, 2, 5, 9, 20, 40}) {
        Session session(randomBandSet(random, count));
        for (int32_t block = 0; block < 26; ++block) {
            int32_t frames = kLengths[block % 13];
            SCOPED_TRACE(testing::Message()
                         << count << " bands, block " << block << " of " << frames << " frames");
            ASSERT_NO_FATAL_FAILURE(session.expectSameBlock(StereoSignal(random, frames)));
            session.edit(random);
        }
    }
}

// An empty block runs no chunk of a glide, so a band that has never run stays
// unprimed (and would still be left out if its gain went back to unity).
TEST_P(BandCascadeBlock, EmptyBlockLeavesAGlidingBandUnprimed) {
    InstructionSetChoice choice(GetParam());
    Random random(33);
    std::vector<EqBand> bands = randomBandSet(random, 3);
    for (EqBand& band : bands) {
        EqBand* fresh = createDesignedBand(Band, 800.0, 1.0, 1.0, 44100.0);
        band = *fresh;
        delete fresh;
        designBand(&band, Band, false, 800.0, 2.0, 1.0);
    }
    Session session(bands);
    ASSERT_NO_FATAL_FAILURE(session.expectSameBlock(StereoSignal(random, 0)));
    for (EqBand* band : session.instanceBands()) EXPECT_EQ(band->primed, 0);
}

// With nothing gliding, cutting a block into pieces changes nothing.
TEST_P(BandCascadeBlock, PiecesOfASteadyBlockGiveTheWholeBlock) {
    InstructionSetChoice choice(GetParam());
    Random random(32);
    std::vector<EqBand> bands = randomBandSet(random, 24);
    Session whole(bands), pieces(bands);
    StereoSignal in(random, 4096);
    std::vector<double> left(4096), right(4096), pieceLeft(4096), pieceRight(4096);
    double* inputs[2] = {in.left.data(), in.right.data()};
    double* outputs[2] = {left.data(), right.data()};
    processDoubleReplacing(&whole.instance->effect, inputs, outputs, 4096);
    for (int32_t done = 0; done < 4096;) {
        int32_t piece =
            std::min(4096 - done, std::uniform_int_distribution<int32_t>(0, 700)(random));
        double* pieceIn[2] = {in.left.data() + done, in.right.data() + done};
        double* pieceOut[2] = {pieceLeft.data() + done, pieceRight.data() + done};
        processDoubleReplacing(&pieces.instance->effect, pieceIn, pieceOut, piece);
        done += piece;
    }
    ASSERT_NO_FATAL_FAILURE(expectSameBits(pieceLeft, left, "left"));
    ASSERT_NO_FATAL_FAILURE(expectSameBits(pieceRight, right, "right"));
    ASSERT_NO_FATAL_FAILURE(
        expectSameBands(pieces.instanceBandCopies(), whole.instanceBandCopies()));
}

INSTANTIATE_TEST_SUITE_P(EveryRunnableSet, BandCascadeBlock,
                         testing::ValuesIn(runnableInstructionSets()), instructionSetTestName);
