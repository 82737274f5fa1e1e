// Creating band records and moving them between sample rates.
#include "engine/eq_band.h"

#include <new>

EqBand* newEqBand() {
    EqBand* band = new (std::nothrow) EqBand{};
    if (!band) return nullptr;
    band->type = Band;
    band->frequency = 1000.0;
    band->gain = 1.0;
    band->bandwidth = 1.0;
    band->sampleRate = 1.0;
    band->enabled = 1;
    band->logScaleAutomation = 1;
    band->glideType = Band;
    band->glideFrequency = 1000.0;
    band->glideGain = 1.0;
    band->glideBandwidth = 1.0;
    return band;
}

void adoptSampleRate(EqBand* band, double sampleRate) {
    if (band->sampleRate == sampleRate) return;
    band->sampleRate = sampleRate;
    designBand(band, kKeepBandType, true, 0.0, 0.0, 0.0);
}

EqBand* createDesignedBand(int32_t type, double frequency, double gain, double bandwidth,
                           double sampleRate) {
    EqBand* band = newEqBand();
    if (!band) return nullptr;
    designBand(band, type, true, frequency, gain, bandwidth);
    adoptSampleRate(band, sampleRate);
    return band;
}

void restartBand(EqBand* band) {
    band->historyLeft = {};
    band->historyRight = {};
    band->primed = 0;
    band->glideType = band->type;
    band->glideFrequency = band->frequency;
    band->glideGain = band->gain;
    band->glideBandwidth = band->bandwidth;
}
