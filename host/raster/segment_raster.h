// The antialiased one-pixel segment between pixel centres that the curves of
// a graph are drawn with, one call per column: written straight into the
// bitmap's pixels with the very outline, coverage and blending arithmetic
// Cairo's image backend uses for it (segment_outline.h, coverage_scan.h and
// the blends below), so the picture is byte for byte the one a Cairo stroke
// gives, at a fraction of the cost of a Cairo drawing call.
#pragma once

#include <cstdint>

class CanvasBitmap;

// Strokes (x1, y1)-(x2, y2), in pixel-centre coordinates, 1 px wide with
// round caps, with the call's colour, alpha and mode (see mura_paint.h), when
// the case is one reproduced here: an opaque bitmap whose pixels Cairo holds
// as drawn (not cleared), finite ends apart from each other and at least a
// pixel inside the bitmap. False, with nothing drawn, for anything else: the
// caller then strokes through Cairo.
bool strokeSegmentExactly(CanvasBitmap* bitmap, double x1, double y1, double x2, double y2,
                          uint32_t color, double alpha, int mode);
