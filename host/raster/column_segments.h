// The segments drawn lately at each pixel column, by their exact ends, with
// their coverage alongside: a curve repainted as it was finds its segments
// here one column after the next, reading memory in order, before the
// look-up by shape (segment_coverage.h) with its scattered reads is needed.
// Small masks only; per drawing thread.
#pragma once

#include <cstdint>

struct PlacedCoverage;

// The coverage drawn before for the segment between these 24.8 fixed-point
// ends, placed in pixels; false if it is not at hand.
bool recallColumnSegment(int32_t x1, int32_t y1, int32_t x2, int32_t y2, PlacedCoverage& coverage);
// Keeps `coverage` (if small enough) for the segment between these ends.
void keepColumnSegment(int32_t x1, int32_t y1, int32_t x2, int32_t y2,
                       const PlacedCoverage& coverage);
// Forgets every segment kept on the calling thread; the memory stays.
void forgetColumnSegments();
