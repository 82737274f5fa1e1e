// The run-time choice of instruction set for the filter kernels.
#include "engine/band_cascade.h"

#include <atomic>

#include "engine/band_cascade_stereo.h"
#include "engine/band_cascade_variants.h"

namespace {

constexpr BandKernels kKernels[] = {
    {runCascadeSse2, runGlideCascadeSse2, runBandStereo},
    {runCascadeAvx2, runGlideCascadeAvx2, runBandStereo},
    {runCascadeAvx512, runGlideCascadeAvx512, runBandStereo},
};
constexpr const char* kNames[] = {"SSE2", "AVX2", "AVX-512"};

InstructionSet widestAvailable() {
    if (instructionSetAvailable(InstructionSet::Avx512)) return InstructionSet::Avx512;
    if (instructionSetAvailable(InstructionSet::Avx2)) return InstructionSet::Avx2;
    return InstructionSet::Sse2;
}

// Chosen while the library loads, so the audio thread only reads it (before
// that, the zero of static storage stands for SSE2).
const InstructionSet kFastest = widestAvailable();
std::atomic<const BandKernels*> chosenByTest{nullptr};

// Measured on the one vendor's cores, whose 512-bit operations take two
// passes; modelled (llvm-mca) for the other's, where one register is quicker.
ShortRunShape shapeForThisProcessor() {
    __builtin_cpu_init();
    return __builtin_cpu_is("amd") ? ShortRunShape::TwoNarrowRegisters
                                   : ShortRunShape::OneWideRegister;
}
std::atomic<ShortRunShape> chosenShape{shapeForThisProcessor()};

}  // namespace

bool instructionSetAvailable(InstructionSet set) {
    __builtin_cpu_init();
    switch (set) {
        case InstructionSet::Sse2:
            return true;
        case InstructionSet::Avx2:
            return __builtin_cpu_supports("avx2");
        case InstructionSet::Avx512:
            return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq");
    }
    return false;
}

const BandKernels& bandKernelsFor(InstructionSet set) {
    return kKernels[static_cast<int32_t>(set)];
}

InstructionSet fastestInstructionSet() { return kFastest; }

const BandKernels& activeBandKernels() {
    const BandKernels* chosen = chosenByTest.load(std::memory_order_relaxed);
    return chosen ? *chosen : bandKernelsFor(kFastest);
}

bool useInstructionSet(InstructionSet set) {
    if (!instructionSetAvailable(set)) return false;
    chosenByTest.store(&bandKernelsFor(set), std::memory_order_relaxed);
    return true;
}

const char* instructionSetName(InstructionSet set) { return kNames[static_cast<int32_t>(set)]; }

ShortRunShape shortRunShape() { return chosenShape.load(std::memory_order_relaxed); }

void useShortRunShape(ShortRunShape shape) { chosenShape.store(shape, std::memory_order_relaxed); }
