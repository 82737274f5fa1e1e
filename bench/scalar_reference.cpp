#include "bench/scalar_reference.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace {

constexpr int32_t kGlideChunk = 8;

// Zero when the biased exponent plus one (modulo 2048) is below 970: tiny,
// denormal and non-finite results. Written on the bits, as the product does,
// so the compiler can make it a well-predicted branch.
double flushed(double y) {
    uint64_t exponent = std::bit_cast<uint64_t>(y) >> 52;
    return ((exponent + 1) & 0x7FF) < 970 ? 0.0 : y;
}

void filterChannel(const EqBand& band, BiquadHistory& history, const double* in, double* out,
                   int32_t frames) {
    const double b0 = band.b0, b1 = band.b1, b2 = band.b2, a1 = band.a1, a2 = band.a2;
    double x1 = history.x1, x2 = history.x2, y1 = history.y1, y2 = history.y2;
    for (int32_t i = 0; i < frames; ++i) {
        double x = in[i];
        double y = flushed(b0 * x + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2);
        x2 = x1;
        x1 = x;
        y2 = y1;
        y1 = y;
        out[i] = y;
    }
    history = {x1, x2, y1, y2};
}

void filterBand(EqBand& band, const double* const in[2], double* const out[2], int32_t offset,
                int32_t frames) {
    filterChannel(band, band.historyLeft, in[0] + offset, out[0] + offset, frames);
    filterChannel(band, band.historyRight, in[1] + offset, out[1] + offset, frames);
}

bool steady(const EqBand& b) {
    return b.glideFrequency == b.frequency && b.glideGain == b.gain &&
           b.glideBandwidth == b.bandwidth;
}

bool skipped(const EqBand& b) {
    bool passFilter = b.type >= LowPass && b.type <= BandPass;
    return !b.enabled || (!b.primed && std::fabs(b.gain - 1.0) < 5e-9 && !passFilter);
}

void glide(EqBand& b, const double* const in[2], double* const out[2], int32_t frames) {
    double stepF = (b.frequency - b.glideFrequency) / frames;
    double stepG = (b.gain - b.glideGain) / frames;
    double stepW = (b.bandwidth - b.glideBandwidth) / frames;
    for (int32_t done = 0; done < frames; done += kGlideChunk) {
        int32_t chunk = frames - done < kGlideChunk ? frames - done : kGlideChunk;
        b.glideType = b.type;
        b.glideFrequency += stepF * chunk;
        b.glideGain += stepG * chunk;
        b.glideBandwidth += stepW * chunk;
        if (!steady(b))
            designBand(&b, b.type, false, b.glideFrequency, b.glideGain, b.glideBandwidth);
        filterBand(b, in, out, done, chunk);
    }
}

}  // namespace

void ScalarReference::process(double* const inputs[2], double* const outputs[2], int32_t frames) {
    const double* in[2] = {inputs[0], inputs[1]};
    bool anyRun = false;
    for (EqBand& band : bands) {
        if (skipped(band)) continue;
        if (steady(band))
            filterBand(band, in, outputs, 0, frames);
        else
            glide(band, in, outputs, frames);
        band.primed = 1;
        anyRun = true;
        in[0] = outputs[0];
        in[1] = outputs[1];
    }
    if (!anyRun)
        for (int c = 0; c < 2; ++c) std::memmove(outputs[c], inputs[c], sizeof(double) * frames);
}
