// The raster library's shapes: exact pixels, opacity and modes.
#include <cmath>
#include <functional>

#include "tests/ui/raster_test_support.h"

namespace {

using Draw = std::function<void(MuraBitmap*)>;

TEST(MuraShapes, IntegerShapesCoverExactlyTheirPixelsAndClipAtTheEdges) {
    const int square[] = {3, 3, 13, 3, 13, 13, 3, 13};
    struct Case {
        const char* shape;
        int count;
        RECT bounds;  // inclusive
        Draw draw;
    };
    const Case cases[] = {
        {"fill", 8, {2, 3, 5, 4}, [](auto b) { MURA_FillRect(b, 2, 3, 4, 2, kWhite, 1, kBlend); }},
        {"clipped fill", 4, {0, 0, 1, 1},
         [](auto b) { MURA_FillRect(b, -2, -2, 4, 4, kWhite, 1, kBlend); }},
        {"upward line", 6, {3, 2, 3, 7},
         [](auto b) { MURA_LineInt(b, 3, 7, 3, 2, kWhite, 1, kBlend, 0); }},
        {"diagonal line", 10, {1, 2, 10, 5},
         [](auto b) { MURA_LineInt(b, 1, 2, 10, 5, kWhite, 1, kBlend, 0); }},
        {"float line", 8, {1, 4, 8, 4},
         [](auto b) { MURA_Line(b, 1.2f, 4.4f, 7.8f, 4.4f, kWhite, 1, kBlend, 0); }},
        {"outline", 18, {1, 2, 6, 6},
         [](auto b) { MURA_DrawRect(b, 1, 2, 6, 5, kWhite, 1, kBlend); }},
        {"square", 100, {3, 3, 12, 12},
         [&](auto b) { MURA_FillConvexPolygon(b, square, 4, kWhite, 1, kBlend); }},
        {"trapezoid", 30, {2, 3, 6, 8},
         [](auto b) { MURA_FillTrapezoid(b, 2, 6, 3, 2, 6, 8, kWhite, 1, kBlend); }},
        {"nothing: no width, two points, no bitmap, a bad radius", 0, {}, [&](auto b) {
             MURA_FillRect(b, 0, 0, 0, 4, kWhite, 1, kBlend);
             MURA_FillConvexPolygon(b, square, 2, kWhite, 1, kBlend);
             MURA_FillRect(nullptr, 0, 0, 4, 4, kWhite, 1, kBlend);
             MURA_FillCircle(b, 5, 5, -3.0f, kWhite, 1, kBlend, 1);
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.shape);
        BitmapPtr bitmap = makeBitmap(16, 16);
        c.draw(bitmap.get());
        const Ink ink = inkOf(bitmap.get());
        EXPECT_EQ(ink.count, c.count);
        EXPECT_EQ(inkOf(bitmap.get(), kWhite).count, 16 * 16 - c.count);  // all ink is white
        EXPECT_EQ(c.count > 0 ? ink.bounds : RECT{}, c.bounds);
    }
    BitmapPtr diagonal = makeBitmap(12, 12);
    MURA_LineInt(diagonal.get(), 1, 2, 10, 5, kWhite, 1.0, kBlend, 0);
    for (int x = 1; x <= 10; ++x)  // the ideal row at this column is 2 + (x - 1) / 3
        EXPECT_EQ(pixelAt(diagonal.get(), x, std::lround(2 + (x - 1) / 3.0)), kWhite) << x;
}

// Opaque bitmaps ignore the colour's alpha byte (the graph clears with 0) and
// clamp the call's; others multiply both, premultiplied; replace ignores what was there.
TEST(MuraOpacity, ColourAndCallAlphaMixByBitmapKindAndMode) {
    struct Case {
        int kind;
        uint32_t under;  // cleared to first
        uint32_t colour;
        double alpha;
        int mode;
        uint32_t expected;  // each channel within 1
    };
    const Case cases[] = {
        {kOpaqueBitmap, kBlue, kRed, 0.25, kBlend, 0xff4000bf},
        {kOpaqueBitmap, kWhite, 0x00000000, 1.0, kBlend, kBlack},
        {kOpaqueBitmap, kBlack, 0x00ff8000, 1.0, kBlend, 0xffff8000},
        {kOpaqueBitmap, kBlack, kRed, 7.0, kBlend, kRed},
        {kOpaqueBitmap, kBlack, kRed, -1.0, kBlend, kBlack},
        {kOpaqueBitmap, kBlack, kRed, std::nan(""), kBlend, kBlack},
        {kOpaqueBitmap, kWhite, 0xff204060, 0.3, kReplace, 0xff204060},
        {kAlphaBitmap, 0x00000000, 0x80ffffff, 0.5, kBlend, 0x40404040},
        {kAlphaBitmap, kWhite, 0xff0000ff, 0.5, kReplace, 0x80000080},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << std::hex << c.expected);
        BitmapPtr bitmap = makeBitmap(1, 1, c.kind);
        MURA_Clear(bitmap.get(), c.under);
        MURA_FillRect(bitmap.get(), 0, 0, 1, 1, c.colour, c.alpha, c.mode);
        for (int shift : {24, 16, 8, 0})
            EXPECT_NEAR(channel(pixelAt(bitmap.get(), 0, 0), shift), channel(c.expected, shift), 1);
    }
}

}  // namespace
