// The per-band filter kernel: one band's biquad run over a stretch of both
// channels with its stored coefficients, Direct Form I, updating its history.
// Inputs and outputs may be the same arrays.
//
// This scalar kernel is the reference: any faster variant takes the same
// arguments and must produce the same bits, history included.
#pragma once

#include <cstdint>

struct EqBand;

using BandKernel = void (*)(EqBand& band, const double* inLeft, const double* inRight,
                            double* outLeft, double* outRight, int32_t frames);

void runBandKernelScalar(EqBand& band, const double* inLeft, const double* inRight,
                         double* outLeft, double* outRight, int32_t frames);
