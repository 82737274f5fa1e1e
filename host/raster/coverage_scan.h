// The antialiased coverage of a small polygon exactly as Cairo's default
// scan converter computes it: 15 sample rows per pixel with exact horizontal
// positions on each, the non-zero winding rule, a pixel row taken whole with
// exact areas where no edge starts, ends or crosses another in it, and areas
// mapped to 0..255 the same way. For the segments of segment_raster.h, whose
// outline is scanned over its whole extent (no clip).
#pragma once

#include <cstdint>
#include <vector>

#include "host/raster/segment_outline.h"

// Coverage bytes over the polygon's pixel extent, row by row.
struct CoverageMask {
    int left = 0, top = 0, width = 0, height = 0;
    std::vector<uint8_t> alpha;
};

// False, with the mask unspecified, where the result would depend on what this
// scan does not follow (the order Cairo's edge list keeps edges that meet on
// one cell at the start of a row taken whole, rows of vertical edges only).
bool scanCoverage(const SegmentOutline& outline, CoverageMask& mask);
