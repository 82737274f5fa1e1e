#include "engine/audio_processing.h"

#include <cmath>
#include <cstring>

#include "engine/band_cascade_run.h"
#include "engine/output_gain.h"
#include "plugin/eq_instance.h"
#include "plugin/ui_layer.h"

namespace {

static_assert(kGlideChunkFrames == 8, "frames between redesigns while gliding");
constexpr double kUnityTolerance = 5e-9;

// A band at unity gain that has never run would only add rounding; it is left
// out until it has been run once (after that its history must decay).
bool isIdleAtUnity(const EqBand& band) {
    return !band.primed && std::fabs(band.gain - 1.0) < kUnityTolerance &&
           !ignoresGain(band.type);
}

bool glideReached(const EqBand& band) {
    return band.glideFrequency == band.frequency && band.glideGain == band.gain &&
           band.glideBandwidth == band.bandwidth;
}

// Moves a band from its glide values to its design within the block,
// redesigning for the values reached at the end of every chunk.
struct BandGlide {
    struct Increments {
        double frequency, gain, bandwidth;
    };
    Increments begin(const EqBand& band, int32_t frames) const {
        return {(band.frequency - band.glideFrequency) / frames,
                (band.gain - band.glideGain) / frames,
                (band.bandwidth - band.glideBandwidth) / frames};
    }
    void advance(EqBand& band, const Increments& step, int32_t chunk) const {
        band.glideType = band.type;
        band.glideFrequency += step.frequency * chunk;
        band.glideGain += step.gain * chunk;
        band.glideBandwidth += step.bandwidth * chunk;
        if (!glideReached(band))
            designBand(&band, band.type, false, band.glideFrequency, band.glideGain,
                       band.glideBandwidth);
    }
};

// Runs every band that takes part (runs of steady bands and of gliding bands
// each filtered together); false when none did.
bool runBands(EqInstance& instance, double** inputs, double** outputs, int32_t frames) {
    BandRun<BandGlide> run(inputs, outputs, frames);
    bool anyRun = false;
    for (int32_t index = 0; index < instance.bandCount(); ++index) {
        EqBand& band = *instance.band(index);
        if (!band.enabled || isIdleAtUnity(band)) continue;
        run.add(band, !glideReached(band));
        anyRun = true;
    }
    run.finish();
    return anyRun;
}

void copyInputs(double** inputs, double** outputs, int32_t frames) {
    if (frames <= 0) return;
    for (int channel = 0; channel < 2; ++channel)
        std::memmove(outputs[channel], inputs[channel], sizeof(double) * frames);
}

bool editorOpen(const EqInstance& instance) {
    return instance.editorWindow.load(std::memory_order_relaxed) != nullptr;
}

}  // namespace

void processDoubleReplacing(AEffect* effect, double** inputs, double** outputs,
                            int32_t sampleFrames) {
    EqInstance* instance = instanceOf(effect);
    if (!instance) return;
    if (editorOpen(*instance) && sampleFrames >= 1)
        captureSpectrum(instance->inputAnalyzer, inputs[0], inputs[1], sampleFrames);
    {
        MutexLock lock(instance->mutex);
        if (!runBands(*instance, inputs, outputs, sampleFrames))
            copyInputs(inputs, outputs, sampleFrames);
        applyOutputGain(outputs, sampleFrames, instance->outputGain,
                        instance->currentOutputGain);
    }
    if (editorOpen(*instance)) {
        if (sampleFrames >= 1)
            captureSpectrum(instance->outputAnalyzer, outputs[0], outputs[1], sampleFrames);
        instance->spectrumTick.store(kobal::GetTickCount(), std::memory_order_relaxed);
    }
}

void processSinglePrecision(AEffect*, float**, float**, int32_t) {}

void resetBandStates(EqInstance* instance) {
    MutexLock lock(instance->mutex);
    for (int32_t index = 0; index < instance->bandCount(); ++index) {
        EqBand* band = instance->band(index);
        restartBand(band);
        adoptSampleRate(band, instance->sampleRate);
    }
    instance->currentOutputGain = instance->outputGain;
    resetSpectrumAnalyzer(instance->inputAnalyzer);
    resetSpectrumAnalyzer(instance->outputAnalyzer);
    instance->gestureParam = -1;
    instance->gestureWindow = nullptr;
}
