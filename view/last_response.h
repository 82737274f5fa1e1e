// The summed response as the paint last evaluated it, kept with what it was
// evaluated from: a repaint whose bands and axes are as they were (the
// spectra moving, a hover, a timer) takes the columns as they were instead of
// evaluating every band at every column again. The same inputs give the same
// bits, so the picture cannot tell.
#pragma once

#include "view/response_curve.h"

struct GraphSnapshot;

// sumBandResponses (response_curve.h), answered from the last evaluation
// when every input it reads is bit for bit the same: each band's coefficients,
// sample rate, frequency, gain, type and enabled flag, their order, the width,
// the gain range and whether the phase is asked for. Paint thread only.
int summedResponse(const GraphSnapshot& snapshot, const GraphAxes& axes,
                   const ResponseColumns& columns);
// Forgets the last evaluation (for timing the evaluation itself).
void forgetSummedResponse();
