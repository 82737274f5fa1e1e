// The curve segments written straight into the pixels against Cairo itself:
// thousands of random antialiased one-pixel segments, drawn both ways onto
// the same random background, must leave the very same bytes; shapes drawn
// again elsewhere or in place (their coverage remembered) too.
#include <cairo.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <random>

#include "host/raster/canvas_bitmap.h"
#include "host/raster/segment_raster.h"
#include "tests/ui/raster_test_support.h"

namespace {

constexpr int kWidth = 96;
constexpr int kHeight = 360;
constexpr double kOpacities[] = {1.0, 0.999, 0.996, 0.9, 0.5, 0.35, 0.01, 0.003, 0.001};

// The reference: the stroke as Cairo draws it.
void strokeWithCairo(MuraBitmap* bitmap, const std::array<double, 4>& ends, uint32_t color,
                     double opacity, int mode) {
    cairo_t* cr = cairo_create(canvasBitmapOf(bitmap)->canvas().surface());
    cairo_set_operator(cr, mode == kReplace ? CAIRO_OPERATOR_SOURCE : CAIRO_OPERATOR_OVER);
    cairo_set_source_rgba(cr, (color >> 16 & 0xff) / 255.0, (color >> 8 & 0xff) / 255.0,
                          (color & 0xff) / 255.0, mode == kReplace ? 1.0 : opacity);
    cairo_set_line_width(cr, 1.0);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_move_to(cr, ends[0] + 0.5, ends[1] + 0.5);
    cairo_line_to(cr, ends[2] + 0.5, ends[3] + 0.5);
    cairo_stroke(cr);
    cairo_destroy(cr);
}

// A column step of a curve (x to x +- 1) most of the time, any short segment
// otherwise; fractional heights, rises from none to hundreds of pixels,
// starting near and across every edge of the bitmap.
void randomSegment(std::mt19937& random, std::array<double, 4>& ends) {
    std::uniform_real_distribution<double> unit(0, 1);
    const int x = static_cast<int>(unit(random) * (kWidth + 8)) - 4;
    const float y = static_cast<float>(unit(random) * (kHeight + 16) - 8);
    const double rise = (unit(random) < 0.5 ? -1 : 1) * std::pow(unit(random), 3) * 420;
    const double run = unit(random) < 0.85 ? (unit(random) < 0.5 ? -1 : 1) : unit(random) * 8 - 4;
    ends = {static_cast<double>(x), y, static_cast<float>(x + run), static_cast<float>(y + rise)};
}

TEST(ExactSegmentStroke, LeavesTheBytesCairoLeavesForThousandsOfRandomSegments) {
    std::mt19937 random(10);
    int drawnExactly = 0, handedToCairo = 0;
    for (int mode : {kBlend, kReplace}) {
        for (int round = 0; round < 4; ++round) {
            BitmapPtr exact = makeBitmap(kWidth, kHeight), cairo = makeBitmap(kWidth, kHeight);
            for (int band = 0; band < kHeight; band += 24) {  // a background worth blending over
                const uint32_t shade = random() | 0xff000000u;
                MURA_FillRect(exact.get(), 0, band, kWidth, 24, shade, 1.0, kBlend);
                MURA_FillRect(cairo.get(), 0, band, kWidth, 24, shade, 1.0, kBlend);
            }
            std::array<double, 4> ends{};
            for (int i = 0; i < 600; ++i) {
                if (i % 4 == 3) {  // the last shape again, whole pixels away or in place
                    const bool inPlace = i % 8 == 7;
                    const int dx = inPlace ? 0 : static_cast<int>(random() % 9) - 4,
                              dy = inPlace ? 0 : static_cast<int>(random() % 41) - 20;
                    for (int k = 0; k < 4; ++k) ends[k] += k % 2 == 0 ? dx : dy;
                } else {
                    randomSegment(random, ends);
                }
                const uint32_t color = random();
                const double opacity = kOpacities[random() % std::size(kOpacities)];
                strokeWithCairo(cairo.get(), ends, color, opacity, mode);
                const bool exactly =
                    strokeSegmentExactly(canvasBitmapOf(exact.get()), ends[0], ends[1], ends[2],
                                         ends[3], color, opacity, mode);
                if (!exactly) strokeWithCairo(exact.get(), ends, color, opacity, mode);
                (exactly ? drawnExactly : handedToCairo)++;
                ASSERT_EQ(std::memcmp(exact->pixels(), cairo->pixels(),
                                      sizeof(uint32_t) * exact->rowSpan() * kHeight),
                          0)
                    << "mode " << mode << " segment (" << ends[0] << ", " << ends[1] << ") - ("
                    << ends[2] << ", " << ends[3] << ") colour " << std::hex << color << std::dec
                    << " opacity " << opacity;
            }
        }
    }
    EXPECT_GT(drawnExactly, 3000);  // the test proves the exact path, not Cairo against itself
    EXPECT_GT(handedToCairo, 100);  // and the hand-over at the edges
}

TEST(ExactSegmentStroke, HandsCairoWhatItDoesNotReproduceAndDrawsNothingThen) {
    struct Case {
        const char* name;
        int kind;
        std::array<double, 4> ends;
    };
    const Case cases[] = {
        {"bitmap with alpha", kAlphaBitmap, {10, 10.3, 11, 14.6}},
        {"end on the edge column", kOpaqueBitmap, {0, 10.3, 1, 14.6}},
        {"end within a pixel of the bottom", kOpaqueBitmap, {10, 46.5, 11, 30.2}},
        {"not a number", kOpaqueBitmap, {10, std::nan(""), 11, 14.6}},
        {"both ends at one point", kOpaqueBitmap, {10, 10.3, 10, 10.3}},
    };
    for (const Case& c : cases) {
        BitmapPtr bitmap = makeBitmap(kWidth, 48, c.kind);
        MURA_FillRect(bitmap.get(), 0, 0, kWidth, 48, 0xff204060, 1.0, kBlend);
        const uint32_t before = pixelAt(bitmap.get(), 10, 12);
        EXPECT_FALSE(strokeSegmentExactly(canvasBitmapOf(bitmap.get()), c.ends[0], c.ends[1],
                                          c.ends[2], c.ends[3], 0xffffffff, 1.0, kBlend))
            << c.name;
        EXPECT_EQ(inkOf(bitmap.get(), before).count, 0) << c.name;
    }
}

}  // namespace
