// One timed case of the audio path: the shipped block callback and the
// scalar loop over the same band set, in ns per band per stereo frame.
#pragma once

#include <cstdint>

#include "bench/benchmark_suites.h"

struct AudioPathTiming {
    double shipped, reference;
};

// `gliding`: every band's gain changes before every block.
AudioPathTiming timeAudioPath(int32_t bands, bool gliding, const BenchOptions& options);
