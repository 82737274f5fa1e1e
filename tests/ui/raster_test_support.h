// Helpers shared by the raster library's tests: reading bitmap pixels and
// finding what was drawn.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <memory>

#include "contracts/mura.h"
#include "host/raster/mura_drawing.h"

using BitmapPtr = std::unique_ptr<MuraBitmap>;
using FontPtr = std::unique_ptr<MuraFont>;

constexpr int kOpaqueBitmap = 1;
constexpr int kAlphaBitmap = 0;
constexpr int kBlend = 0;
constexpr int kReplace = 1;

inline BitmapPtr makeBitmap(int width, int height, int kind = kOpaqueBitmap) {
    return BitmapPtr(MURA_CreateBitmap(kind, width, height));
}

inline uint32_t pixelAt(MuraBitmap* bitmap, int x, int y) {
    return bitmap->pixels()[y * bitmap->rowSpan() + x];
}

struct PixelColour {
    int x;
    int y;
    uint32_t colour;
};

// Each listed pixel holds its colour.
inline void expectPixels(MuraBitmap* bitmap, std::initializer_list<PixelColour> expected) {
    for (const PixelColour& pixel : expected)
        EXPECT_EQ(pixelAt(bitmap, pixel.x, pixel.y), pixel.colour) << pixel.x << "," << pixel.y;
}

inline int channel(uint32_t pixel, int shift) { return (pixel >> shift) & 0xff; }

// Pixels that differ from `background`.
inline int countPixelsOtherThan(MuraBitmap* bitmap, uint32_t background) {
    int count = 0;
    for (int y = 0; y < bitmap->height(); ++y)
        for (int x = 0; x < bitmap->width(); ++x) count += pixelAt(bitmap, x, y) != background;
    return count;
}

// The first and last columns and rows (inclusive) of the pixels that differ
// from `background`; left > right when there are none.
inline RECT boundsOfPixelsOtherThan(MuraBitmap* bitmap, uint32_t background) {
    RECT bounds{bitmap->width(), bitmap->height(), -1, -1};
    for (int y = 0; y < bitmap->height(); ++y) {
        for (int x = 0; x < bitmap->width(); ++x) {
            if (pixelAt(bitmap, x, y) == background) continue;
            bounds.left = x < bounds.left ? x : bounds.left;
            bounds.top = y < bounds.top ? y : bounds.top;
            bounds.right = x > bounds.right ? x : bounds.right;
            bounds.bottom = y > bounds.bottom ? y : bounds.bottom;
        }
    }
    return bounds;
}
