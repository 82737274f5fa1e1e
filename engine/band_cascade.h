// The fast filter kernels: a run of steady bands filtered as one pipelined
// cascade, and a stereo kernel for a single band (a gliding chunk), in the
// widest instruction set the processor offers. Both give exactly the bits of
// runBandKernelScalar run band after band, histories included.
#pragma once

#include <cstdint>

#include "engine/biquad_kernel.h"

enum class InstructionSet : int32_t { Sse2, Avx2, Avx512 };

// Runs `count` bands in order over the block: the first reads the inputs,
// each later one the output of the one before. Inputs may be the outputs.
using CascadeKernel = void (*)(EqBand* const* bands, int32_t count, const double* inLeft,
                               const double* inRight, double* outLeft, double* outRight,
                               int32_t frames);

struct BandKernels {
    CascadeKernel runCascade;  // consecutive steady bands
    BandKernel runBand;        // one band, both channels at once
};

// Whether this processor (and its operating system) runs the set.
bool instructionSetAvailable(InstructionSet set);
// The kernels of one set; call them only when the set is available.
const BandKernels& bandKernelsFor(InstructionSet set);
// The widest available set, chosen once.
InstructionSet fastestInstructionSet();
const BandKernels& fastestBandKernels();
const char* instructionSetName(InstructionSet set);
