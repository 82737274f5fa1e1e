// The outline Cairo's stroker gives a one-pixel-wide segment with round caps
// (default tolerance, identity transformation), as the edges of the polygon
// it hands to its scan converter: the two sides half a pixel away from the
// segment and a fan of pen vertices around each end, in 24.8 fixed point and
// in the order Cairo emits them. The antialiased curve segments drawn by the
// raster library are built from it (see segment_raster.h).
#pragma once

#include <cstdint>

// An edge of the outline, oriented downwards (top.y < bottom.y); `dir` is +1
// when the outline runs downwards along it, -1 when upwards.
struct OutlineEdge {
    int32_t topX, topY, bottomX, bottomY;
    int dir;
};

struct SegmentOutline {
    static constexpr int kMaxEdges = 40;
    OutlineEdge edges[kMaxEdges];
    int count = 0;
};

// 24.8 fixed point from a double, rounding halves to even as Cairo does.
int32_t fixedFromDouble(double value);

// The outline of the stroke from (x1, y1) to (x2, y2), in 24.8 fixed point.
// False when the two ends are the same point (Cairo draws a dot for those:
// not supported here).
bool roundCappedOutline(int32_t x1, int32_t y1, int32_t x2, int32_t y2, SegmentOutline& outline);
