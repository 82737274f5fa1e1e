// Float samples to integer PCM: rounded, optionally with TPDF dither, and
// held to full scale with a count of what had to be clipped.
#pragma once

#include <cstdint>

struct ClippingCount {
    int64_t samples = 0;
    double peak = 0.0;  // the largest magnitude met, 1.0 = full scale

    void note(double sample);
};

class SampleQuantizer {
public:
    // `bits` 8..32; with `dither`, triangular noise of one step either way is
    // added before rounding (the same sequence on every run).
    SampleQuantizer(int bits, bool dither);

    // The sample as a 32-bit integer with its value in the top `bits` bits,
    // the way libsndfile takes integers for every PCM width.
    int32_t quantize(double sample, ClippingCount& clipping);

private:
    double nextDither();

    int bits_;
    double scale_;
    bool dither_;
    uint64_t seed_ = 0x9E3779B97F4A7C15ULL;
};
