#include "bench/bench_bands.h"

#include <cmath>

#include "engine/band_list.h"
#include "plugin/eq_instance.h"
#include "plugin/instance.h"

std::vector<BandSetting> peakingBandSettings(int32_t count) {
    std::vector<BandSetting> settings;
    for (int32_t i = 0; i < count; ++i) {
        double position = (i + 0.5) / count;
        double decibels = (i % 2 ? 1.0 : -1.0) * (2.0 + 7.0 * position);
        settings.push_back({40.0 * std::pow(400.0, position), std::pow(10.0, decibels / 20),
                            0.4 + 1.2 * position});
    }
    return settings;
}

EqInstance* makeBenchInstance(const std::vector<BandSetting>& settings) {
    EqInstance* instance = allocateInstance(nullptr);
    for (const BandSetting& s : settings)
        appendBand(instance, createDesignedBand(Band, s.frequency, s.gain, s.bandwidth,
                                                instance->sampleRate));
    return instance;
}

ScalarReference makeBenchReference(const std::vector<BandSetting>& settings) {
    ScalarReference reference;
    for (const BandSetting& s : settings) {
        EqBand* band = createDesignedBand(Band, s.frequency, s.gain, s.bandwidth, kBenchSampleRate);
        reference.bands.push_back(*band);
        delete band;
    }
    return reference;
}

void nudgeGain(EqBand* band, const BandSetting& setting, int32_t block) {
    double gain = block % 2 ? setting.gain * 1.05 : setting.gain;
    designBand(band, band->type, false, setting.frequency, gain, setting.bandwidth);
}
