// The audio path on each instruction set the processor runs (the shipped
// plug-in picks the widest), against the scalar loop.
#include <cstdio>

#include "bench/audio_path_timing.h"
#include "bench/benchmark_suites.h"
#include "engine/band_cascade.h"

namespace {

struct Case {
    int32_t bands;
    bool gliding;
};

constexpr Case kCases[] = {{8, false}, {16, false}, {8, true}, {16, true}};
constexpr InstructionSet kSets[] = {InstructionSet::Sse2, InstructionSet::Avx2,
                                    InstructionSet::Avx512};

}  // namespace

void runInstructionSetSuite(const BenchOptions& options) {
    std::printf(
        "Audio path by instruction set: ns per band per stereo frame (speedup over the "
        "scalar loop)\n\n%-8s",
        "set");
    for (const Case& c : kCases)
        std::printf(" %10s %-4d", c.gliding ? "gliding" : "steady", c.bands);
    std::printf("\n");
    for (InstructionSet set : kSets) {
        std::printf("%-8s", instructionSetName(set));
        if (!useInstructionSet(set)) {
            std::printf(" not available on this processor\n");
            continue;
        }
        for (const Case& c : kCases) {
            AudioPathTiming t = timeAudioPath(c.bands, c.gliding, options);
            char cell[32];
            std::snprintf(cell, sizeof cell, "%.3f (%.1fx)", t.shipped, t.reference / t.shipped);
            std::printf(" %15s", cell);
            std::fflush(stdout);
        }
        std::printf("\n");
    }
    useInstructionSet(fastestInstructionSet());
    std::printf("\n");
}
