// The fast filter kernels: runs of bands filtered as one pipelined cascade,
// steady or gliding, and a stereo kernel for a single band, in the widest
// instruction set the processor offers. All give exactly the bits of
// runBandKernelScalar run band after band (chunk after chunk while gliding),
// histories included.
#pragma once

#include <cstdint>

#include "engine/biquad_kernel.h"
#include "engine/eq_band.h"

enum class InstructionSet : int32_t { Sse2, Avx2, Avx512 };

// The coefficients a band's design gave for one chunk of a glide.
struct ChunkCoefficients {
    double a1, a2, b0, b1, b2;
};

inline ChunkCoefficients coefficientsOf(const EqBand& band) {
    return {band.a1, band.a2, band.b0, band.b1, band.b2};
}

// Frames per chunk of a glide: a gliding band changes coefficients this often.
constexpr int32_t kGlideChunkFrames = 8;

// Runs `count` steady bands in order over the block: the first reads the
// inputs, each later one the output of the one before. Inputs may be the
// outputs.
using CascadeKernel = void (*)(EqBand* const* bands, int32_t count, const double* inLeft,
                               const double* inRight, double* outLeft, double* outRight,
                               int32_t frames);

// The same for gliding bands: band i filters chunk c (kGlideChunkFrames
// frames from the start of the block) with designs[i * designStride + c]; its
// own coefficients are not read.
using GlideCascadeKernel = void (*)(EqBand* const* bands, int32_t count,
                                    const ChunkCoefficients* designs, int32_t designStride,
                                    const double* inLeft, const double* inRight, double* outLeft,
                                    double* outRight, int32_t frames);

struct BandKernels {
    CascadeKernel runCascade;            // consecutive steady bands
    GlideCascadeKernel runGlideCascade;  // consecutive gliding bands
    BandKernel runBand;                  // one band, both channels at once
};

// Whether this processor (and its operating system) runs the set.
bool instructionSetAvailable(InstructionSet set);
// The kernels of one set; call them only when the set is available.
const BandKernels& bandKernelsFor(InstructionSet set);
// The widest available set, chosen once when the library loads.
InstructionSet fastestInstructionSet();
// The kernels the audio path uses: the fastest set's, unless a test chose
// another with useInstructionSet (false, and no change, if it is unavailable).
const BandKernels& activeBandKernels();
bool useInstructionSet(InstructionSet set);
const char* instructionSetName(InstructionSet set);

// How the AVX-512 kernels run two to four steady bands: in one 512-bit
// register, or in two 256-bit ones, whose steps overlap better where the
// processor splits a 512-bit operation into two halves. Chosen when the
// library loads from the processor's vendor (two halves where that is how
// its cores work, one register elsewhere); a test may choose the other.
enum class ShortRunShape : int32_t { OneWideRegister, TwoNarrowRegisters };
ShortRunShape shortRunShape();
void useShortRunShape(ShortRunShape shape);
