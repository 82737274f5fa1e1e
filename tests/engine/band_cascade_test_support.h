// Random material for the fast-kernel tests: band records of every type (and
// some wild coefficient sets), stereo signals laced with the values the flush
// rule exists for, and bit-for-bit comparisons of samples and band records.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "engine/band_cascade.h"
#include "engine/eq_band.h"

using Random = std::mt19937_64;

// The sets this processor runs, as test parameters named after the set.
std::vector<InstructionSet> runnableInstructionSets();
std::string instructionSetTestName(const testing::TestParamInfo<InstructionSet>& info);

// Bands designed from random values of every type (unknown codes too) with a
// random history; now and then one with arbitrary, unstable coefficients, so
// that its output overflows and the non-finite branch of the flush is taken.
std::vector<EqBand> randomBands(Random& random, int32_t count);

// Noise with NaNs, infinities, denormals, values just around 2^-54, signed
// zeros, huge values, and a stretch of silence in which histories decay.
std::vector<double> laced(Random& random, int32_t frames);

struct StereoSignal {
    std::vector<double> left, right;
    StereoSignal(Random& random, int32_t frames)
        : left(laced(random, frames)), right(laced(random, frames)) {}
};

// The bands and the two output channels after a kernel ran.
struct Outcome {
    std::vector<EqBand> bands;
    std::vector<double> left, right;
};

// The bands with output buffers of junk, as a host's would be.
Outcome startFrom(const std::vector<EqBand>& bands, int32_t frames);
std::vector<EqBand*> pointersTo(std::vector<EqBand>& bands);

void expectSameBits(const std::vector<double>& actual, const std::vector<double>& expected,
                    const char* what);
// Coefficients, design, both histories and the glide state, bit for bit.
void expectSameBands(const std::vector<EqBand>& actual, const std::vector<EqBand>& expected);
void expectSameOutcome(const Outcome& actual, const Outcome& expected);
