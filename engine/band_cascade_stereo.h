// The stereo kernel: one band with both channels in one SSE2 register. Its
// chunk form switches to the next set of coefficients every `chunkFrames`
// frames, for a gliding band, with the history kept in registers throughout.
#pragma once

#include <cstdint>

#include "engine/band_cascade.h"

void runBandStereo(EqBand& band, const double* inLeft, const double* inRight, double* outLeft,
                   double* outRight, int32_t frames);

// `chunks` holds one set per started chunk of the block; the band's own
// coefficients are not read, its history is.
void runBandStereoChunks(EqBand& band, const ChunkCoefficients* chunks, int32_t chunkFrames,
                         const double* inLeft, const double* inRight, double* outLeft,
                         double* outRight, int32_t frames);
