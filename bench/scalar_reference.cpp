#include "bench/scalar_reference.h"

#include <cmath>
#include <cstring>

namespace {

constexpr int32_t kGlideChunk = 8;

double flushed(double y) {
    return std::fabs(y) < 0x1p-54 || !std::isfinite(y) ? 0.0 : y;
}

void filterChannel(const EqBand& band, BiquadHistory& h, const double* in, double* out,
                   int32_t frames) {
    for (int32_t i = 0; i < frames; ++i) {
        double x = in[i];
        double y = band.b0 * x + band.b1 * h.x1 + band.b2 * h.x2 - band.a1 * h.y1 - band.a2 * h.y2;
        h.x2 = h.x1;
        h.x1 = x;
        h.y2 = h.y1;
        h.y1 = flushed(y);
        out[i] = h.y1;
    }
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

void ScalarReference::process(double* const inputs[2], double* const outputs[2],
                              int32_t frames) {
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
