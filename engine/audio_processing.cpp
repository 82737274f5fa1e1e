#include "engine/audio_processing.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "engine/biquad_kernel.h"
#include "engine/output_gain.h"
#include "plugin/eq_instance.h"
#include "plugin/ui_layer.h"

namespace {

constexpr int32_t kGlideChunk = 8;  // frames between redesigns while gliding
constexpr double kUnityTolerance = 5e-9;

// Where a band reads and writes: the first band to run reads the host inputs,
// every later one works on the outputs in place.
struct BlockIo {
    const double* in[2];
    double* out[2];

    void runKernel(EqBand& band, int32_t offset, int32_t frames) const {
        runBandKernelScalar(band, in[0] + offset, in[1] + offset, out[0] + offset,
                            out[1] + offset, frames);
    }
};

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

// Moves the band from its glide values to its design within the block,
// redesigning for the values reached at the end of every chunk.
void glideBand(EqBand& band, const BlockIo& io, int32_t frames) {
    if (frames <= 0) return;
    double frequencyStep = (band.frequency - band.glideFrequency) / frames;
    double gainStep = (band.gain - band.glideGain) / frames;
    double bandwidthStep = (band.bandwidth - band.glideBandwidth) / frames;
    for (int32_t done = 0; done < frames;) {
        int32_t chunk = std::min(frames - done, kGlideChunk);
        band.glideType = band.type;
        band.glideFrequency += frequencyStep * chunk;
        band.glideGain += gainStep * chunk;
        band.glideBandwidth += bandwidthStep * chunk;
        if (!glideReached(band))
            designBand(&band, band.type, false, band.glideFrequency, band.glideGain,
                       band.glideBandwidth);
        io.runKernel(band, done, chunk);
        band.primed = 1;
        done += chunk;
    }
}

// Runs every band that takes part; false when none did.
bool runBands(EqInstance& instance, double** inputs, double** outputs, int32_t frames) {
    BlockIo io{{inputs[0], inputs[1]}, {outputs[0], outputs[1]}};
    bool anyRun = false;
    for (int32_t index = 0; index < instance.bandCount(); ++index) {
        EqBand& band = *instance.band(index);
        if (!band.enabled || isIdleAtUnity(band)) continue;
        if (glideReached(band)) {
            io.runKernel(band, 0, frames);
            band.primed = 1;
        } else {
            glideBand(band, io, frames);
        }
        anyRun = true;
        io.in[0] = outputs[0];
        io.in[1] = outputs[1];
    }
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
