// The raster library's shapes: exact pixels for integer shapes, opacity and
// modes, and calls with bad arguments.
#include <cmath>
#include <functional>
#include <vector>

#include "host/raster/mura_functions.h"
#include "tests/ui/raster_test_support.h"

namespace {

using Draw = std::function<void(MuraBitmap*)>;

TEST(MuraFunctionLookup, AnswersEachRasterNameWithItsOwnFunctionAndNothingElse) {
    std::vector<void*> found;
    for (const char* name : kMuraFunctionNames) {
        found.push_back(findMuraFunction(name));
        EXPECT_NE(found.back(), nullptr) << name;
        EXPECT_EQ(std::count(found.begin(), found.end(), found.back()), 1) << name;
    }
    EXPECT_EQ(findMuraFunction("mura_fillrect"), nullptr);
    EXPECT_EQ(findMuraFunction(nullptr), nullptr);
}

TEST(MuraShapes, IntegerShapesCoverExactlyTheirPixelsAndClipAtTheEdges) {
    const int square[] = {3, 3, 13, 3, 13, 13, 3, 13};
    struct Case {
        const char* shape;
        Draw draw;
        int count;
        RECT bounds;  // inclusive
    };
    const Case cases[] = {
        {"fill", [](auto b) { MURA_FillRect(b, 2, 3, 4, 2, kWhite, 1, kBlend); }, 8, {2, 3, 5, 4}},
        {"fill past the edges",
         [](auto b) { MURA_FillRect(b, -2, -2, 4, 4, kWhite, 1, kBlend); },
         4,
         {0, 0, 1, 1}},
        {"vertical line",
         [](auto b) { MURA_LineInt(b, 3, 7, 3, 2, kWhite, 1, kBlend, 0); },
         6,
         {3, 2, 3, 7}},
        {"diagonal line",
         [](auto b) { MURA_LineInt(b, 1, 2, 10, 5, kWhite, 1, kBlend, 0); },
         10,
         {1, 2, 10, 5}},
        {"float line",
         [](auto b) { MURA_Line(b, 1.2f, 4.4f, 7.8f, 4.4f, kWhite, 1, kBlend, 0); },
         8,
         {1, 4, 8, 4}},
        {"outline",
         [](auto b) { MURA_DrawRect(b, 1, 2, 6, 5, kWhite, 1, kBlend); },
         18,
         {1, 2, 6, 6}},
        {"square",
         [&](auto b) { MURA_FillConvexPolygon(b, square, 4, kWhite, 1, kBlend); },
         100,
         {3, 3, 12, 12}},
        {"trapezoid",
         [](auto b) { MURA_FillTrapezoid(b, 2, 6, 3, 2, 6, 8, kWhite, 1, kBlend); },
         30,
         {2, 3, 6, 8}},
        {"nothing: no width, two points, a bad radius",
         [&](auto b) {
             MURA_FillRect(b, 0, 0, 0, 4, kWhite, 1, kBlend);
             MURA_FillConvexPolygon(b, square, 2, kWhite, 1, kBlend);
             MURA_FillCircle(b, 5, 5, -3.0f, kWhite, 1, kBlend, 1);
         },
         0,
         {}},
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

// Fully opaque fills of whole pixels are written straight into the bitmap;
// they must give the very pixels that Cairo's path fill of the same pixels
// gives (a trapezoid with pixel corners), on both kinds of bitmap, in both
// modes, over what was there and past the edges. Fills that are not fully
// opaque take Cairo's path and are compared the same way.
TEST(MuraFillRect, WholePixelFillsMatchTheCairoPathFillBitForBit) {
    for (int v = 0; v < 256; v += 5)
        for (int kind : {kOpaqueBitmap, kAlphaBitmap})
            for (int mode : {kBlend, kReplace})
                for (double alpha : {1.0, 1.5, 0.6}) {
                    uint32_t colour = 0xff000000u | v << 16 | (255 - v) << 8 | (v * 7 & 255);
                    if (v == 255) colour = 0x80406080u;  // the colour's own alpha
                    SCOPED_TRACE(::testing::Message() << kind << " " << std::hex << colour << " "
                                                      << alpha << " " << mode);
                    BitmapPtr direct = makeBitmap(12, 10, kind);
                    BitmapPtr traced = makeBitmap(12, 10, kind);
                    for (MuraBitmap* bitmap : {direct.get(), traced.get()})
                        MURA_FillRect(bitmap, 0, 0, 12, 10, 0x7f3366cc, 0.7, kBlend);
                    MURA_FillRect(direct.get(), -2, 3, 9, 20, colour, alpha, mode);
                    MURA_LineInt(direct.get(), 9, 1, 9, 4, colour, alpha, mode, 0);
                    MURA_FillTrapezoid(traced.get(), -2, 6, 3, -2, 6, 22, colour, alpha, mode);
                    MURA_FillTrapezoid(traced.get(), 9, 9, 1, 9, 9, 4, colour, alpha, mode);
                    for (int y = 0; y < 10; ++y)
                        for (int x = 0; x < 12; ++x)
                            ASSERT_EQ(pixelAt(direct.get(), x, y), pixelAt(traced.get(), x, y))
                                << x << "," << y;
                }
}

// Opaque bitmaps ignore the colour's alpha byte (the graph clears itself with
// 0x00000000) and clamp the call's alpha; bitmaps with alpha multiply both and
// store premultiplied pixels; replace mode ignores what was there.
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

TEST(MuraShapes, FilledCircleCoversThePixelsWithinItsRadius) {
    BitmapPtr disc = makeBitmap(30, 30);
    MURA_FillCircle(disc.get(), 15, 15, 6.0f, kWhite, 1.0, kBlend, 0);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x) {
            const double distance = std::hypot(x - 15, y - 15);
            const bool edge = distance >= 5.7 && distance <= 6.3;  // partly covered
            EXPECT_TRUE(edge || pixelAt(disc.get(), x, y) == (distance < 6 ? kWhite : kBlack))
                << x << "," << y;
        }
}

TEST(MuraBadArguments, ImpossibleSizesAreRefusedAndNullBitmapsAndFontsIgnored) {
    EXPECT_EQ(MURA_CreateBitmap(1, -1, 10), nullptr);
    EXPECT_EQ(MURA_CreateBitmap(1, 10, 40000), nullptr);
    MURA_FillRect(nullptr, 0, 0, 5, 5, kRed, 1.0, kBlend);
    MURA_Blit(nullptr, nullptr, 0, 0, 1.0, kBlend);
    BitmapPtr bitmap = makeBitmap(4, 4);
    MURA_Blit(bitmap.get(), nullptr, 0, 0, 1.0, kBlend);
    MURA_DrawText(bitmap.get(), nullptr, "text", 0, 0, kRed);
    FontPtr font(MURA_CreateFont());
    EXPECT_EQ(font->drawText(bitmap.get(), "text", -1, nullptr, 0), 0);
    MURA_DrawText(bitmap.get(), font.get(), nullptr, 0, 0, kRed);
    EXPECT_EQ(inkOf(bitmap.get()).count, 0);
}

}  // namespace
