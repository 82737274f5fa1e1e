#include "engine/biquad_kernel.h"

#include "engine/eq_band.h"
#include "engine/sample_flush.h"

namespace {

void runChannel(const EqBand& band, BiquadHistory& history, const double* in, double* out,
                int32_t frames) {
    double x1 = history.x1, x2 = history.x2, y1 = history.y1, y2 = history.y2;
    for (int32_t i = 0; i < frames; ++i) {
        double x = in[i];
        double y = band.b0 * x + band.b1 * x1 + band.b2 * x2 - band.a1 * y1 - band.a2 * y2;
        x2 = x1;
        x1 = x;
        y2 = y1;
        y = flushTiny(y);
        y1 = y;
        out[i] = y;
    }
    history = {x1, x2, y1, y2};
}

}  // namespace

void runBandKernelScalar(EqBand& band, const double* inLeft, const double* inRight,
                         double* outLeft, double* outRight, int32_t frames) {
    runChannel(band, band.historyLeft, inLeft, outLeft, frames);
    runChannel(band, band.historyRight, inRight, outRight, frames);
}
