// The summed response of the enabled bands, evaluated in closed form per
// column from each band's coefficients: magnitude as a fraction of the gain
// range and, on request, the phase in radians.
#pragma once

#include "view/graph_axes.h"

struct EqInstance;
struct EqBand;

struct ResponseColumns {
    double* magnitude;  // width entries, dB / gainRange, summed over the bands
    double* phase;      // width entries of summed radians, or null
};

// Adds every enabled band into `columns` (which the caller zeroed) and
// returns the drawn width: the column where the last band to reach half its
// sample rate stopped, or the full width. The caller holds the instance mutex.
int sumBandResponses(const EqInstance& instance, const GraphAxes& axes,
                     const ResponseColumns& columns);

// One band's contribution; `drawnWidth` is lowered when the band stops early.
void addBandResponse(const EqBand& band, const GraphAxes& axes, const ResponseColumns& columns,
                     int& drawnWidth);
