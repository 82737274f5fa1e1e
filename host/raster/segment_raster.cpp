#include "host/raster/segment_raster.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>

#include "host/raster/canvas_bitmap.h"
#include "host/raster/mura_paint.h"
#include "host/raster/segment_coverage.h"
#include "host/raster/segment_outline.h"

namespace {

// A colour channel times the opacity as Cairo keeps it: 16 bits, premultiplied.
uint16_t colorShort(double value) { return static_cast<uint16_t>(value * 65535.0 + 0.5); }

// The 8-bit premultiplied pixel of the source Cairo composites.
uint32_t sourcePixel(uint32_t color, double opacity) {
    const auto channel = [&](int shift) {
        return colorShort(((color >> shift) & 0xff) / 255.0 * opacity) >> 8;
    };
    return static_cast<uint32_t>(colorShort(opacity) >> 8) << 24 |
           static_cast<uint32_t>(channel(16)) << 16 | static_cast<uint32_t>(channel(8)) << 8 |
           channel(0);
}

// x * a / 255 on two channels at once (bits 0-7 and 16-23), rounded with
// Cairo's bias of 0x7f.
uint32_t multiplyPair(uint32_t x, uint8_t a) {
    const uint32_t t = (x & 0x00ff00ff) * a + 0x007f007f;
    return ((t + ((t >> 8) & 0x00ff00ff)) >> 8) & 0x00ff00ff;
}

// Saturating sum on two channels at once.
uint32_t addPair(uint32_t x, uint32_t y) {
    uint32_t t = x + y;
    t |= 0x01000100 - ((t >> 8) & 0x00ff00ff);
    return t & 0x00ff00ff;
}

// The blend of source-like operations: source where covered, the old pixel
// elsewhere, mixed by the coverage.
uint32_t lerpPixel(uint32_t source, uint8_t coverage, uint32_t old) {
    const uint8_t rest = static_cast<uint8_t>(255 - coverage);
    return addPair(multiplyPair(source, coverage), multiplyPair(old, rest)) |
           addPair(multiplyPair(source >> 8, coverage), multiplyPair(old >> 8, rest)) << 8;
}

// x * a / 255 rounded to nearest, as the compositing library does.
uint32_t multiply(uint32_t x, uint32_t a) {
    const uint32_t t = x * a + 0x80;
    return (t + (t >> 8)) >> 8;
}

// The translucent source, scaled by the coverage, over the old pixel.
uint32_t overPixel(uint32_t source, uint8_t coverage, uint32_t old) {
    const uint32_t inverse = 255 - multiply(source >> 24, coverage);
    uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const uint32_t sum =
            multiply(source >> shift & 0xff, coverage) + multiply(old >> shift & 0xff, inverse);
        result |= std::min<uint32_t>(sum, 255) << shift;
    }
    return result;
}

bool insideBitmap(const PlacedCoverage& mask, const CanvasBitmap& bitmap) {
    return mask.left >= 0 && mask.top >= 0 && mask.left + mask.width <= bitmap.width() &&
           mask.top + mask.height <= bitmap.height();
}

template <typename Blend>
void blendMask(const PlacedCoverage& mask, uint32_t* pixels, int rowSpan, uint32_t source,
               Blend blend) {
    for (int row = 0; row < mask.height; ++row) {
        const uint8_t* coverage = mask.alpha + static_cast<size_t>(row) * mask.width;
        uint32_t* out = pixels + static_cast<size_t>(mask.top + row) * rowSpan + mask.left;
        for (int x = 0; x < mask.width; ++x)
            if (coverage[x] != 0) out[x] = blend(source, coverage[x], out[x]);
    }
}

}  // namespace

bool strokeSegmentExactly(CanvasBitmap* bitmap, double x1, double y1, double x2, double y2,
                          uint32_t color, double alpha, int mode) {
    if (bitmap == nullptr || !bitmap->isOpaque() || bitmap->width() <= 0 || bitmap->height() <= 0)
        return false;
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(x2) || !std::isfinite(y2))
        return false;
    const bool replace = mode == kMuraModeReplace;
    const double opacity = replace ? 1.0 : clampedOpacity(alpha);
    const uint16_t opacityShort = colorShort(opacity);
    if (opacityShort <= 0x00ff) return !replace;  // nothing to draw over; a clear replace: Cairo
    // Ends at least a pixel inside, so that the stroke can only be whole.
    const double right = bitmap->width() - 2.0, bottom = bitmap->height() - 2.0;
    if (std::min(x1, x2) < 1.0 || std::min(y1, y2) < 1.0 || std::max(x1, x2) > right ||
        std::max(y1, y2) > bottom)
        return false;
    PlacedCoverage mask;
    if (!segmentCoverage(fixedFromDouble(x1 + 0.5), fixedFromDouble(y1 + 0.5),
                         fixedFromDouble(x2 + 0.5), fixedFromDouble(y2 + 0.5), mask) ||
        !insideBitmap(mask, *bitmap))
        return false;
    uint32_t* pixels = bitmap->pixels();  // flushes pending Cairo drawing first
    // Cairo composites differently into a surface it knows to be clear; such
    // a surface has every pixel zero, so one drawn pixel shows it is not.
    if (pixels[0] == 0) return false;
    const uint32_t source = sourcePixel(color, opacity);
    if (replace || opacityShort >= 0xff00)
        blendMask(mask, pixels, bitmap->rowSpan(), source, lerpPixel);
    else
        blendMask(mask, pixels, bitmap->rowSpan(), source, overPixel);
    cairo_surface_mark_dirty_rectangle(bitmap->canvas().surface(), mask.left, mask.top, mask.width,
                                       mask.height);
    return true;
}
