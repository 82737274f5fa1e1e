// The band sets the benchmarks run: peaking bands spread over the spectrum,
// built once into a plug-in instance and once into the scalar reference.
#pragma once

#include <cstdint>
#include <vector>

#include "bench/scalar_reference.h"

struct EqInstance;

struct BandSetting {
    double frequency, gain, bandwidth;
};

constexpr double kBenchSampleRate = 44100.0;

std::vector<BandSetting> peakingBandSettings(int32_t count);

// An instance from the plug-in's own allocation with these bands; free it
// with discardInstance.
EqInstance* makeBenchInstance(const std::vector<BandSetting>& settings);
ScalarReference makeBenchReference(const std::vector<BandSetting>& settings);

// Gives band `index` a new gain (without snap, as an edit does), so that the
// next block glides. `block` alternates between two gains.
void nudgeGain(EqBand* band, const BandSetting& setting, int32_t block);
