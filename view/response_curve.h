// The summed response of the enabled bands, evaluated in closed form per
// column from each band's coefficients: magnitude as a fraction of the gain
// range and, on request, the phase in radians.
#pragma once

#include "view/graph_axes.h"

struct GraphSnapshot;

struct ResponseColumns {
    double* magnitude;  // width entries, dB / gainRange, summed over the bands
    double* phase;      // width entries of summed radians, or null
};

// Adds every enabled band of the snapshot into `columns` (which the caller
// zeroed) and returns the drawn width: the column where the last band to
// reach half its sample rate stopped, or the full width. The terms that
// depend only on the column and the sample rate (its frequency, sine and
// cosines) are computed once per rate and shared by the bands, with the same
// arithmetic as evaluating each band on its own.
int sumBandResponses(const GraphSnapshot& snapshot, const GraphAxes& axes,
                     const ResponseColumns& columns);
