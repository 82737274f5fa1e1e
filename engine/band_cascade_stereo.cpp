#include "engine/band_cascade_stereo.h"

#include "engine/band_cascade_lanes_sse2.h"
#include "engine/band_cascade_pipeline.h"
#include "engine/eq_band.h"

namespace {

using Vector = Sse2Lanes::Vector;

Vector loadPair(const double* left, const double* right) {
    return _mm_loadh_pd(_mm_load_sd(left), right);
}

void storePair(double* left, double* right, Vector pair) {
    _mm_storel_pd(left, pair);
    _mm_storeh_pd(right, pair);
}

}  // namespace

void runBandStereoChunks(EqBand& band, const ChunkCoefficients* chunks, int32_t chunkFrames,
                         const double* inLeft, const double* inRight, double* outLeft,
                         double* outRight, int32_t frames) {
    BiquadHistory &left = band.historyLeft, &right = band.historyRight;
    Vector x1 = loadPair(&left.x1, &right.x1), x2 = loadPair(&left.x2, &right.x2);
    Vector y1 = loadPair(&left.y1, &right.y1), y2 = loadPair(&left.y2, &right.y2);
    for (int32_t start = 0; start < frames; start += chunkFrames, ++chunks) {
        const Vector b0 = _mm_set1_pd(chunks->b0), b1 = _mm_set1_pd(chunks->b1);
        const Vector b2 = _mm_set1_pd(chunks->b2), a1 = _mm_set1_pd(chunks->a1);
        const Vector a2 = _mm_set1_pd(chunks->a2);
        const int32_t end = frames - start < chunkFrames ? frames : start + chunkFrames;
        for (int32_t i = start; i < end; ++i) {
            Vector x = band_cascade::loadStereo(inLeft, inRight, i);
            Vector y = band_cascade::biquadSum<Sse2Lanes>(b0, b1, b2, a1, a2, x, x1, x2, y1, y2);
            if (Sse2Lanes::any(Sse2Lanes::strayBits(y))) [[unlikely]]  // off the y1 chain
                y = Sse2Lanes::flushTiny(y);
            x2 = x1;
            x1 = x;
            y2 = y1;
            y1 = y;
            band_cascade::storeStereo(outLeft, outRight, i, y);
        }
    }
    storePair(&left.x1, &right.x1, x1);
    storePair(&left.x2, &right.x2, x2);
    storePair(&left.y1, &right.y1, y1);
    storePair(&left.y2, &right.y2, y2);
}

void runBandStereo(EqBand& band, const double* inLeft, const double* inRight, double* outLeft,
                   double* outRight, int32_t frames) {
    ChunkCoefficients whole = coefficientsOf(band);
    runBandStereoChunks(band, &whole, frames > 0 ? frames : 1, inLeft, inRight, outLeft, outRight,
                        frames);
}
