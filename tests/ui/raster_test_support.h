// Helpers of the raster library's tests: bitmaps, their pixels, what was drawn.
#pragma once

#include <algorithm>
#include <memory>

#include "contracts/mura.h"
#include "host/raster/mura_drawing.h"
#include "tests/ui/ui_test_support.h"

using BitmapPtr = std::unique_ptr<MuraBitmap>;

constexpr int kOpaqueBitmap = 1;
constexpr int kAlphaBitmap = 0;
constexpr int kBlend = 0;
constexpr int kReplace = 1;
constexpr uint32_t kBlack = 0xff000000;
constexpr uint32_t kRed = 0xffff0000;
constexpr uint32_t kBlue = 0xff0000ff;
constexpr uint32_t kWhite = 0xffffffff;

inline BitmapPtr makeBitmap(int width, int height, int kind = kOpaqueBitmap) {
    return BitmapPtr(MURA_CreateBitmap(kind, width, height));
}

inline uint32_t pixelAt(MuraBitmap* bitmap, int x, int y) {
    return bitmap->pixels()[y * bitmap->rowSpan() + x];
}

inline int channel(uint32_t pixel, int shift) { return (pixel >> shift) & 0xff; }

// The pixels other than `background`: how many, and their inclusive bounds.
struct Ink {
    int count = 0;
    RECT bounds{1 << 20, 1 << 20, -1, -1};
};

inline Ink inkOf(MuraBitmap* bitmap, uint32_t background = kBlack) {
    Ink ink;
    for (int y = 0; y < bitmap->height(); ++y)
        for (int x = 0; x < bitmap->width(); ++x) {
            if (pixelAt(bitmap, x, y) == background) continue;
            ++ink.count;
            ink.bounds =
                RECT{std::min<int>(x, ink.bounds.left), std::min<int>(y, ink.bounds.top),
                     std::max<int>(x, ink.bounds.right), std::max<int>(y, ink.bounds.bottom)};
        }
    return ink;
}
