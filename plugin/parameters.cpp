#include "plugin/parameters.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "plugin/eq_instance.h"
#include "plugin/host_imports.h"
#include "plugin/ui_layer.h"

namespace {

constexpr double kMinFrequency = 20.0;
constexpr double kMaxFrequency = 24000.0;
constexpr double kMaxGain = 64.0;
constexpr double kMaxBandwidth = 4.0;

double normalizedFrequency(const EqBand& band) {
    if (band.logScaleAutomation) return logFrequencyToNormalized(band.frequency);
    return band.frequency / kMaxFrequency;
}

double normalizedOf(const EqBand& band, int32_t field) {
    switch (field) {
        case FrequencyField: return normalizedFrequency(band);
        case GainField: return 0.25 * band.gain;
        default: return 0.25 * band.bandwidth;
    }
}

void storeNormalized(EqBand& band, int32_t field, double v) {
    switch (field) {
        case GainField: band.gain = std::min(4.0 * v, kMaxGain); break;
        case BandwidthField: band.bandwidth = 4.0 * v < 0.0 ? 0.0 : std::min(4.0 * v, kMaxBandwidth); break;
        default: band.frequency = frequencyFromNormalized(band, v); break;
    }
}

void sendToHost(EqInstance* instance, int32_t opcode, int32_t index, float opt) {
    callHost(&instance->effect, opcode, index, 0, nullptr, opt);
}

}  // namespace

EqBand* bandOfParameter(const EqInstance* instance, int32_t p) {
    if (p < 0) return nullptr;
    return instance->band(p / kParametersPerBand);
}

double logFrequencyToNormalized(double frequency) {
    return std::log((frequency - 20.0) * kInverseFrequencySpan * 400.0 + 1.0) * kInverseLn401;
}

double frequencyFromNormalized(const EqBand& band, double v) {
    double x = band.logScaleAutomation ? (std::exp(v * kLn401) - 1.0) * 23980.0 * 0.0025 + 20.0
                                       : v * kMaxFrequency;
    if (x < kMinFrequency) return kMinFrequency;
    if (x > kMaxFrequency) return kMaxFrequency;
    return x;
}

float paramValue(EqInstance* instance, int32_t p) {
    MutexLock lock(instance->mutex);
    const EqBand* band = bandOfParameter(instance, p);
    if (!band) return 0.0f;
    return static_cast<float>(normalizedOf(*band, p % kParametersPerBand));
}

float getParameter(AEffect* effect, int32_t index) {
    EqInstance* instance = instanceOf(effect);
    if (!instance || index < 0) return 0.0f;
    return paramValue(instance, index);
}

void setParameter(AEffect* effect, int32_t index, float value) {
    EqInstance* instance = instanceOf(effect);
    if (!instance || index < 0) return;
    MutexLock lock(instance->mutex);
    EqBand* band = bandOfParameter(instance, index);
    if (instance->suspendSetParameter || !band) return;
    storeNormalized(*band, index % kParametersPerBand, value);
    designBand(band, kKeepBandType, false, 0.0, 0.0, 0.0);
    if (instance->editorWindow.load()) instance->refreshRequested = 1;
}

void touchParameter(EqInstance* instance, int32_t p) {
    if (!processHostCallback) return;
    if (p == instance->gestureParam && p >= 0) {
        sendToHost(instance, audioMasterAutomate, p, getParameter(&instance->effect, p));
        instance->gestureWindow = kobal::GetFocus();
        return;
    }
    if (instance->gestureParam >= 0) {
        sendToHost(instance, audioMasterEndEdit, instance->gestureParam, 0.0f);
    }
    instance->gestureParam = p;
    if (p < 0) {
        instance->gestureWindow = nullptr;
        sendToHost(instance, audioMasterAutomate, -1, 0.0f);
        return;
    }
    instance->gestureWindow = kobal::GetFocus();
    sendToHost(instance, audioMasterBeginEdit, p, 0.0f);
    sendToHost(instance, audioMasterAutomate, p, paramValue(instance, p));
}

void reportParameter(EqInstance* instance, int32_t p, bool end) {
    if (!processHostCallback) return;
    if (end) {
        sendToHost(instance, audioMasterEndEdit, p, 0.0f);
    } else {
        sendToHost(instance, audioMasterAutomate, p, paramValue(instance, p));
    }
}

double ampToDb(double x) { return std::max(-150.0, std::log(x) * 8.685889638065037); }

namespace {

const char* const kNoteNames[] = {"A", "A#", "B", "C", "C#", "D", "D#", "E", "F", "F#", "G", "G#"};

struct NoteChoice {
    int index;       // into kNoteNames
    int correction;  // octave numbers change between B and C
    int octaveCarry;
};

NoteChoice chooseNote(double cents) {
    if (cents < 50.0) return {0, 1, 0};
    if (cents >= 1150.0) return {0, 1, 1};
    for (int k = 1; k <= 11; ++k) {
        if (50.0 + 100.0 * (k - 1) <= cents && cents <= 50.0 + 100.0 * k) {
            return {k, k <= 2 ? 1 : 0, 0};
        }
    }
    return {0, 1, 0};
}

}  // namespace

void noteName(char* out, double frequency) {
    out[0] = '\0';
    double x = 1.4426950408889634 * (std::log(frequency) - 6.0867747269123065) + 4.0;
    double o = std::floor(x);
    if (!(o >= 0.0) || !(o < 1e9)) return;  // no note below the lowest octave or beyond any
    NoteChoice note = chooseNote((x - o) * 1200.0);
    int offset = midiOctaveOffset ? *midiOctaveOffset : 0;
    int octave = static_cast<int>(o + note.octaveCarry) + offset - note.correction;
    std::snprintf(out, 16, "%s%d", kNoteNames[note.index], octave);
}
