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

// One band at a time, for keeping each band's share: prepareBandResponses
// once for the graph (false when its buffer cannot grow), then bandResponse
// adds the band into `columns` as sumBandResponses does and answers the
// width it reaches (the graph's width when it reaches half its sample rate
// beyond the last column).
bool prepareBandResponses(int width, bool withPhase);
struct EqBand;
int bandResponse(const EqBand& band, const GraphAxes& axes, const ResponseColumns& columns);
