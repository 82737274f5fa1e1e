// One MURA_* drawing call's Cairo context on a bitmap: the colour, opacity,
// mode and antialiasing of the call already set.
//
// Opacity: the call's alpha (clamped to 0..1), times the colour's alpha byte
// on bitmaps with alpha. Mode 1 replaces the covered pixels with the colour
// at that opacity (on opaque bitmaps: with the colour itself); any other mode
// blends over them.
#pragma once

#include <cairo.h>

#include <cstdint>

#include "host/raster/canvas_bitmap.h"

constexpr int kMuraModeReplace = 1;

double clampedOpacity(double alpha);

class MuraPaint {
public:
    // A paint with no source set, for blits.
    MuraPaint(MuraBitmap* bitmap, int mode, bool antialias);
    // A paint with `color` as its source.
    MuraPaint(MuraBitmap* bitmap, uint32_t color, double alpha, int mode, bool antialias);
    ~MuraPaint();
    MuraPaint(const MuraPaint&) = delete;
    MuraPaint& operator=(const MuraPaint&) = delete;

    explicit operator bool() const { return cr_ != nullptr; }
    cairo_t* cr() const { return cr_; }
    CanvasBitmap* bitmap() const { return bitmap_; }
    // The opacity for sources that bring their own colours (blits, glyphs).
    double opacity() const { return opacity_; }

private:
    CanvasBitmap* bitmap_ = nullptr;
    cairo_t* cr_ = nullptr;
    double opacity_ = 1.0;
};
