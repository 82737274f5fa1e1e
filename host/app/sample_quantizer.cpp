#include "host/app/sample_quantizer.h"

#include <cmath>

void ClippingCount::note(double sample) {
    double magnitude = std::fabs(sample);
    if (magnitude > peak) peak = magnitude;
}

SampleQuantizer::SampleQuantizer(int bits, bool dither)
    : bits_(bits), scale_(std::ldexp(1.0, bits - 1)), dither_(dither) {}

double SampleQuantizer::nextDither() {
    auto uniform = [this] {
        seed_ = seed_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<double>(seed_ >> 11) / 9007199254740992.0;  // [0, 1)
    };
    double first = uniform();
    return first - uniform();  // triangular over (-1, 1) steps
}

int32_t SampleQuantizer::quantize(double sample, ClippingCount& clipping) {
    clipping.note(sample);
    double steps = std::nearbyint(sample * scale_ + (dither_ ? nextDither() : 0.0));
    if (std::isnan(steps)) steps = 0.0;
    double highest = scale_ - 1.0;
    if (steps > highest || steps < -scale_) {
        ++clipping.samples;
        steps = steps > highest ? highest : -scale_;
    }
    int64_t value = static_cast<int64_t>(steps);
    return static_cast<int32_t>(static_cast<uint64_t>(value) << (32 - bits_));
}
