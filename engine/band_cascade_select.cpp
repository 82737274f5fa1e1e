// The run-time choice of instruction set for the filter kernels.
#include "engine/band_cascade.h"
#include "engine/band_cascade_variants.h"

namespace {

constexpr BandKernels kKernels[] = {
    {runCascadeSse2, runBandStereo},
    {runCascadeAvx2, runBandStereo},
    {runCascadeAvx512, runBandStereo},
};
constexpr const char* kNames[] = {"SSE2", "AVX2", "AVX-512"};

InstructionSet widestAvailable() {
    if (instructionSetAvailable(InstructionSet::Avx512)) return InstructionSet::Avx512;
    if (instructionSetAvailable(InstructionSet::Avx2)) return InstructionSet::Avx2;
    return InstructionSet::Sse2;
}

// Chosen while the library loads, so the audio thread only reads it.
const InstructionSet kFastest = widestAvailable();

}  // namespace

bool instructionSetAvailable(InstructionSet set) {
    __builtin_cpu_init();
    switch (set) {
        case InstructionSet::Sse2: return true;
        case InstructionSet::Avx2: return __builtin_cpu_supports("avx2");
        case InstructionSet::Avx512: return __builtin_cpu_supports("avx512f");
    }
    return false;
}

const BandKernels& bandKernelsFor(InstructionSet set) {
    return kKernels[static_cast<int32_t>(set)];
}

InstructionSet fastestInstructionSet() { return kFastest; }

const BandKernels& fastestBandKernels() { return bandKernelsFor(kFastest); }

const char* instructionSetName(InstructionSet set) { return kNames[static_cast<int32_t>(set)]; }
