// The straightforward audio path the benchmark compares against: every band
// in series, each channel on its own, one sample after the other, with the
// same skip and glide rules and the same design calls as the plug-in.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/eq_band.h"

struct ScalarReference {
    std::vector<EqBand> bands;

    // Output gain 1.0 throughout: the output stage leaves the samples alone.
    void process(double* const inputs[2], double* const outputs[2], int32_t frames);
};
