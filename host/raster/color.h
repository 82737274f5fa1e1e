// 0xAARRGGBB colours as Cairo sources.
#pragma once

#include <cairo.h>

#include <cstdint>

inline double colorChannel(uint32_t color, int shift) {
    return ((color >> shift) & 0xff) / 255.0;
}

// Sets `color` as the source with the given opacity; the colour's own alpha
// byte is not used.
inline void setSourceRgb(cairo_t* cr, uint32_t color, double opacity = 1.0) {
    cairo_set_source_rgba(cr, colorChannel(color, 16), colorChannel(color, 8),
                          colorChannel(color, 0), opacity);
}

// Sets `color` as the source, its alpha byte included.
inline void setSourceArgb(cairo_t* cr, uint32_t color) {
    setSourceRgb(cr, color, colorChannel(color, 24));
}
