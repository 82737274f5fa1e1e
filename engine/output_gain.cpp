#include "engine/output_gain.h"

namespace {

constexpr double kSilentGain = 1e-6;  // a steady gain at or below this mutes

void scale(double* samples, int32_t frames, double factor) {
    for (int32_t i = 0; i < frames; ++i) samples[i] *= factor;
}

// The factor grows by `step` before each sample, so the last one gets the target.
void ramp(double* samples, int32_t frames, double start, double step) {
    double factor = start;
    for (int32_t i = 0; i < frames; ++i) {
        factor += step;
        samples[i] *= factor;
    }
}

}  // namespace

void applyOutputGain(double* const outputs[2], int32_t frames, double target, double& current) {
    if (target == 1.0) {
        current = 1.0;
        return;
    }
    if (target == current) {
        double factor = target <= kSilentGain ? 0.0 : target;
        for (int channel = 0; channel < 2; ++channel) scale(outputs[channel], frames, factor);
        return;
    }
    if (frames > 0) {
        double step = (target - current) / frames;
        for (int channel = 0; channel < 2; ++channel) ramp(outputs[channel], frames, current, step);
    }
    current = target;
}
