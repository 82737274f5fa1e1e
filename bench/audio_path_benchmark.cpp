// The block callback as shipped against the straightforward scalar loop: time
// per band and stereo frame, steady and gliding, and whether the bits agree.
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

#include "bench/audio_path_timing.h"
#include "bench/bench_bands.h"
#include "bench/benchmark_suites.h"
#include "bench/stopwatch.h"
#include "engine/audio_processing.h"
#include "engine/band_cascade.h"
#include "plugin/eq_instance.h"
#include "plugin/instance.h"

namespace {

constexpr int32_t kBlockFrames = 512;
constexpr int32_t kBandCounts[] = {1, 4, 8, 16, 32};

struct StereoBuffers {
    std::vector<double> samples[4];
    double* inputs[2];
    double* outputs[2];

    StereoBuffers() {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> noise(-1.0, 1.0);
        for (auto& channel : samples) channel.resize(kBlockFrames);
        for (int c = 0; c < 2; ++c) {
            for (double& s : samples[c]) s = noise(random);
            inputs[c] = samples[c].data();
            outputs[c] = samples[2 + c].data();
        }
    }
};

// Both implementations driven through the same sequence of blocks.
struct Contenders {
    std::vector<BandSetting> settings;
    EqInstance* instance;
    ScalarReference reference;
    bool gliding;
    int32_t shippedBlocks = 0, referenceBlocks = 0;

    Contenders(int32_t bands, bool glide)
        : settings(peakingBandSettings(bands)),
          instance(makeBenchInstance(settings)),
          reference(makeBenchReference(settings)),
          gliding(glide) {}
    ~Contenders() { discardInstance(instance); }

    void runShipped(StereoBuffers& io) {
        if (gliding)
            for (int32_t i = 0; i < instance->bandCount(); ++i)
                nudgeGain(instance->band(i), settings[i], shippedBlocks);
        processDoubleReplacing(&instance->effect, io.inputs, io.outputs, kBlockFrames);
        ++shippedBlocks;
    }
    void runReference(StereoBuffers& io) {
        if (gliding)
            for (size_t i = 0; i < reference.bands.size(); ++i)
                nudgeGain(&reference.bands[i], settings[i], referenceBlocks);
        reference.process(io.inputs, io.outputs, kBlockFrames);
        ++referenceBlocks;
    }
};

bool sameBits(const double* a, const double* b, size_t count) {
    return std::memcmp(a, b, sizeof(double) * count) == 0;
}

bool sameHistories(const Contenders& c) {
    for (size_t i = 0; i < c.reference.bands.size(); ++i) {
        const EqBand &shipped = *c.instance->band(static_cast<int32_t>(i)),
                     &ref = c.reference.bands[i];
        if (!sameBits(&shipped.historyLeft.x1, &ref.historyLeft.x1, 8) ||
            !sameBits(&shipped.a1, &ref.a1, 5))
            return false;
    }
    return true;
}

// A few blocks of each from the same start, compared bit for bit.
bool agree(int32_t bands, bool gliding) {
    Contenders c(bands, gliding);
    StereoBuffers shipped, reference;
    for (int32_t block = 0; block < 6; ++block) {
        c.runShipped(shipped);
        c.runReference(reference);
        for (int ch = 0; ch < 2; ++ch)
            if (!sameBits(shipped.outputs[ch], reference.outputs[ch], kBlockFrames)) return false;
    }
    return sameHistories(c);
}

}  // namespace

AudioPathTiming timeAudioPath(int32_t bands, bool gliding, const BenchOptions& options) {
    Contenders c(bands, gliding);
    StereoBuffers io;
    int32_t trials = options.quick ? 3 : 7;
    int32_t repeats = (options.quick ? 40000 : 200000) / (bands * kBlockFrames / 8 + 64);
    if (repeats < 4) repeats = 4;
    c.runShipped(io);
    c.runReference(io);  // both primed
    double scale = 1e9 / (static_cast<double>(bands) * kBlockFrames);
    AudioPathTiming t{};
    t.shipped = scale * fastestSecondsPerCall(trials, repeats, [&] { c.runShipped(io); });
    t.reference = scale * fastestSecondsPerCall(trials, repeats, [&] { c.runReference(io); });
    return t;
}

void runAudioPathSuite(const BenchOptions& options) {
    std::printf(
        "Audio path: ns per band per stereo frame, %d-frame blocks, peaking bands,\n"
        "shipped = processDoubleReplacing (%s kernels), scalar = straightforward loop\n\n",
        kBlockFrames, instructionSetName(fastestInstructionSet()));
    std::printf("%6s  %-8s %10s %10s %8s  %s\n", "bands", "case", "scalar", "shipped", "speedup",
                "same bits");
    for (bool gliding : {false, true}) {
        for (int32_t bands : kBandCounts) {
            AudioPathTiming t = timeAudioPath(bands, gliding, options);
            std::printf("%6d  %-8s %10.3f %10.3f %7.2fx  %s\n", bands,
                        gliding ? "gliding" : "steady", t.reference, t.shipped,
                        t.reference / t.shipped, agree(bands, gliding) ? "yes" : "NO");
            std::fflush(stdout);
        }
    }
    std::printf("\n");
}
