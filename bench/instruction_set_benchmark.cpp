// The steady cascade alone on each instruction set the processor runs,
// against the scalar reference kernel run band after band.
#include <cstdio>
#include <random>
#include <vector>

#include "bench/bench_bands.h"
#include "bench/benchmark_suites.h"
#include "bench/stopwatch.h"
#include "engine/band_cascade.h"
#include "engine/biquad_kernel.h"

namespace {

constexpr int32_t kFrames = 512;
constexpr int32_t kBandCounts[] = {1, 8, 16, 32};
constexpr InstructionSet kSets[] = {InstructionSet::Sse2, InstructionSet::Avx2,
                                    InstructionSet::Avx512};

struct KernelBench {
    std::vector<EqBand> bands;
    std::vector<EqBand*> pointers;
    std::vector<double> samples[2], output[2];

    explicit KernelBench(int32_t count) {
        ScalarReference reference = makeBenchReference(peakingBandSettings(count));
        bands = reference.bands;
        for (EqBand& band : bands) pointers.push_back(&band);
        std::mt19937 random(3);
        std::uniform_real_distribution<double> noise(-1.0, 1.0);
        for (auto& channel : samples) {
            channel.resize(kFrames);
            for (double& s : channel) s = noise(random);
        }
        output[0] = samples[0];
        output[1] = samples[1];
    }
    // The same noise every block, like a host's fresh input.
    void runScalar() {
        const double *left = samples[0].data(), *right = samples[1].data();
        for (EqBand* band : pointers) {
            runBandKernelScalar(*band, left, right, output[0].data(), output[1].data(), kFrames);
            left = output[0].data();
            right = output[1].data();
        }
    }
    void runCascade(CascadeKernel kernel) {
        kernel(pointers.data(), static_cast<int32_t>(pointers.size()), samples[0].data(),
               samples[1].data(), output[0].data(), output[1].data(), kFrames);
    }
};

}  // namespace

void runInstructionSetSuite(const BenchOptions& options) {
    std::printf(
        "Steady cascade by instruction set: ns per band per stereo frame "
        "(speedup over runBandKernelScalar)\n\n%6s %16s",
        "bands", "scalar kernel");
    for (InstructionSet set : kSets) std::printf(" %16s", instructionSetName(set));
    std::printf("\n");
    int32_t trials = options.quick ? 3 : 7;
    for (int32_t count : kBandCounts) {
        KernelBench bench(count);
        int32_t repeats = (options.quick ? 20000 : 100000) / (count * kFrames / 16) + 4;
        double scale = 1e9 / (static_cast<double>(count) * kFrames);
        double scalar = scale * fastestSecondsPerCall(trials, repeats, [&] { bench.runScalar(); });
        std::printf("%6d %16.3f", count, scalar);
        for (InstructionSet set : kSets) {
            if (!instructionSetAvailable(set)) {
                std::printf(" %16s", "n/a");
                continue;
            }
            CascadeKernel kernel = bandKernelsFor(set).runCascade;
            double t =
                scale * fastestSecondsPerCall(trials, repeats, [&] { bench.runCascade(kernel); });
            char cell[32];
            std::snprintf(cell, sizeof cell, "%.3f (%.1fx)", t, scalar / t);
            std::printf(" %16s", cell);
        }
        std::printf("\n");
        std::fflush(stdout);
    }
    std::printf("\n");
}
