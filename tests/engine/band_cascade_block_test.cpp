// The block callback with the fast kernels against the band loop done the
// plain way in the test: the scalar kernel band after band, gliding chunk
// after chunk. Random band sets of every type, edits between blocks that
// start glides, disabled and unprimed bands, blocks of every awkward length
// and signals full of non-finite and tiny values, on every instruction set
// this processor runs; outputs and every band record compared bit for bit.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "engine/audio_processing.h"
#include "engine/biquad_kernel.h"
#include "tests/engine/band_cascade_test_support.h"
#include "tests/engine/test_instance.h"

namespace {

bool steady(const EqBand& band) {
    return band.glideFrequency == band.frequency && band.glideGain == band.gain &&
           band.glideBandwidth == band.bandwidth;
}

// The audio path's band loop, written out plainly: unprimed bands at unity
// gain (pass filters apart) are left out, gliding bands step every 8 frames.
void plainBandLoop(std::vector<EqBand>& bands, const StereoSignal& in, Outcome& out) {
    const int32_t frames = static_cast<int32_t>(in.left.size());
    out.left = in.left;
    out.right = in.right;
    for (EqBand& band : bands) {
        bool passFilter = band.type >= LowPass && band.type <= BandPass;
        if (!band.enabled || (!band.primed && std::fabs(band.gain - 1.0) < 5e-9 && !passFilter))
            continue;
        const bool gliding = !steady(band);
        const int32_t chunk = gliding ? 8 : std::max(frames, 1);
        double step[3] = {(band.frequency - band.glideFrequency) / frames,
                          (band.gain - band.glideGain) / frames,
                          (band.bandwidth - band.glideBandwidth) / frames};
        for (int32_t done = 0; done < frames; done += chunk) {
            int32_t length = std::min(chunk, frames - done);
            if (gliding) {
                band.glideType = band.type;
                band.glideFrequency += step[0] * length;
                band.glideGain += step[1] * length;
                band.glideBandwidth += step[2] * length;
                if (!steady(band))
                    designBand(&band, band.type, false, band.glideFrequency, band.glideGain,
                               band.glideBandwidth);
            }
            runBandKernelScalar(band, out.left.data() + done, out.right.data() + done,
                                out.left.data() + done, out.right.data() + done, length);
        }
        if (frames > 0 || !gliding) band.primed = 1;
    }
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

class BandCascadeBlock : public testing::TestWithParam<InstructionSet> {
protected:
    void SetUp() override { ASSERT_TRUE(useInstructionSet(GetParam())); }
    void TearDown() override { useInstructionSet(fastestInstructionSet()); }
};

}  // namespace

TEST_P(BandCascadeBlock, BlocksMatchThePlainBandLoopThroughEditsAndGlides) {
    Random random(31);
    constexpr int32_t kLengths[] = {0, 1, 7, 8, 9, 64, 4096, 3, 100, 511, 16, 17, 1000};
    for (int32_t count : {1, 2, 5, 9, 20, 40}) {
        auto instance = makeTestInstance();
        std::vector<EqBand> plain;
        std::vector<EqBand*> bands;
        for (EqBand& band : randomBands(random, count)) {
            band = *addTestBand(instance.get(), band.type, band.frequency,
                                std::uniform_int_distribution<int32_t>(0, 3)(random) ? band.gain : 1.0,
                                0.2 + bands.size() % 5 * 0.4);
            bands.push_back(instance->band(instance->bandCount() - 1));
            band.enabled = bands.back()->enabled = (random() & 7) != 0;
            plain.push_back(*bands.back());
        }
        for (int32_t block = 0; block < 26; ++block) {
            const int32_t frames = kLengths[block % 13];
            SCOPED_TRACE(testing::Message()
                         << count << " bands, block " << block << " of " << frames << " frames");
            StereoSignal in(random, frames);
            Outcome actual = startFrom({}, frames), expected;
            double* inputs[2] = {in.left.data(), in.right.data()};
            double* outputs[2] = {actual.left.data(), actual.right.data()};
            processDoubleReplacing(&instance->effect, inputs, outputs, frames);
            for (EqBand* band : bands) actual.bands.push_back(*band);
            plainBandLoop(plain, in, expected);
            expected.bands = plain;
            ASSERT_NO_FATAL_FAILURE(expectSameOutcome(actual, expected));
            Random twin = random;  // the same edits on both sides
            editSome(random, bands);
            editSome(twin, pointersTo(plain));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryRunnableSet, BandCascadeBlock,
                         testing::ValuesIn(runnableInstructionSets()), instructionSetTestName);
