// The antialiased coverage of a polygon exactly as Cairo's default scan
// converter computes it: 15 sample rows per pixel with exact horizontal
// areas on each, the non-zero winding rule, whole pixel rows stepped at
// once where no edge starts, ends or crosses another, and areas mapped to
// 0..255 the same way. Used for the segments of segment_raster.h, whose
// outlines are small, so the polygon's whole extent is scanned (no clip).
#pragma once

#include <cstdint>
#include <vector>

#include "host/raster/segment_outline.h"

// Coverage bytes over the polygon's pixel extent, row by row.
struct CoverageMask {
    int left = 0, top = 0, width = 0, height = 0;
    std::vector<uint8_t> alpha;
};

// False, with the mask unspecified, if the polygon is too large for the
// scan's fixed tables.
bool scanCoverage(const SegmentOutline& outline, CoverageMask& mask);
