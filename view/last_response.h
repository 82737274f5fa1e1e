// The summed response as the paint last evaluated it, kept band by band with
// what each band was evaluated from: a repaint evaluates again only the bands
// that changed (none while the spectra move or on a hover, one while it is
// dragged) and adds the kept shares of the others in the same order. The same
// inputs give the same bits, so the picture cannot tell.
#pragma once

#include "view/response_curve.h"

struct GraphSnapshot;

// sumBandResponses (response_curve.h), bit for bit, with each band's share
// taken from the last evaluation when every input it reads is bit for bit the
// same: the band's coefficients, sample rate, frequency, gain, type and
// enabled flag, its place in the list, the width, the gain range and whether
// the phase is asked for. Paint thread only.
int summedResponse(const GraphSnapshot& snapshot, const GraphAxes& axes,
                   const ResponseColumns& columns);
// Forgets the last evaluation (for timing the evaluation itself).
void forgetSummedResponse();
