// The raster library's shapes: exact pixels for integer shapes, opacity and
// modes, and calls with bad arguments.
#include <cmath>
#include <functional>
#include <vector>

#include "host/raster/mura_functions.h"
#include "tests/ui/raster_test_support.h"

namespace {

TEST(MuraFunctionLookup, AnswersEachRasterNameWithItsOwnFunctionAndNothingElse) {
    std::vector<void*> found;
    for (const char* name : kMuraFunctionNames) {
        found.push_back(findMuraFunction(name));
        EXPECT_NE(found.back(), nullptr) << name;
        EXPECT_EQ(std::count(found.begin(), found.end(), found.back()), 1) << name;
    }
    for (const char* unknown :
         {"MURA_Frobnicate", "mura_fillrect", "", static_cast<const char*>(nullptr)})
        EXPECT_EQ(findMuraFunction(unknown), nullptr);
    auto fillRect = reinterpret_cast<MURA_FillRectProc>(findMuraFunction("MURA_FillRect"));
    BitmapPtr bitmap = makeBitmap(4, 4);
    fillRect(bitmap.get(), 1, 1, 2, 2, kRed, 1.0, kBlend);
    expectPixels(bitmap.get(), {{1, 1, kRed}, {0, 0, kBlack}});
}

using Draw = std::function<void(MuraBitmap*)>;

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
        {"empty fills",
         [](auto b) {
             MURA_FillRect(b, 0, 0, 0, 4, kWhite, 1, kBlend);
             MURA_FillRect(b, 0, 0, 4, -1, kWhite, 1, kBlend);
         },
         0,
         {}},
        {"vertical line",
         [](auto b) { MURA_LineInt(b, 3, 7, 3, 2, kWhite, 1, kBlend, 0); },
         6,
         {3, 2, 3, 7}},
        {"one-pixel line",
         [](auto b) { MURA_LineInt(b, 4, 4, 4, 4, kWhite, 1, kBlend, 0); },
         1,
         {4, 4, 4, 4}},
        {"horizontal line",
         [](auto b) { MURA_LineInt(b, 8, 1, 1, 1, kWhite, 1, kBlend, 0); },
         8,
         {1, 1, 8, 1}},
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
        {"thin bordered box",
         [](auto b) { MURA_BorderedRect(b, 1, 1, 4, 2, kBlue, kWhite, 1, kBlend); },
         8,
         {1, 1, 4, 2}},
        {"square",
         [&](auto b) { MURA_FillConvexPolygon(b, square, 4, kWhite, 1, kBlend); },
         100,
         {3, 3, 12, 12}},
        {"two-point polygon",
         [&](auto b) { MURA_FillConvexPolygon(b, square, 2, kWhite, 1, kBlend); },
         0,
         {}},
        {"trapezoid",
         [](auto b) { MURA_FillTrapezoid(b, 2, 6, 3, 2, 6, 8, kWhite, 1, kBlend); },
         30,
         {2, 3, 6, 8}},
        {"pixels",
         [](auto b) {
             for (int x : {-1, 2, 16}) MURA_PutPixel(b, x, 1, kWhite, 1, kBlend);
         },
         1,
         {2, 1, 2, 1}},
        {"bad radii",
         [](auto b) {
             MURA_FillCircle(b, 5, 5, -3.0f, kWhite, 1, kBlend, 1);
             MURA_Circle(b, 5, 5, std::nanf(""), kWhite, 1, kBlend, 1);
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
        Draw draw;
        uint32_t expected;  // each channel within 1
    };
    const auto fill = [](uint32_t colour, double alpha, int mode = kBlend) {
        return [=](MuraBitmap* b) { MURA_FillRect(b, 0, 0, 1, 1, colour, alpha, mode); };
    };
    const auto over = [](uint32_t first, Draw then) {
        return [=](MuraBitmap* b) {
            MURA_Clear(b, first);
            then(b);
        };
    };
    const Case cases[] = {
        {kOpaqueBitmap, over(kBlue, fill(kRed, 0.25)), 0xff4000bf},
        {kOpaqueBitmap, over(kWhite, fill(0x00000000, 1.0)), kBlack},
        {kOpaqueBitmap, fill(0x00ff8000, 1.0), 0xffff8000},
        {kOpaqueBitmap, fill(kRed, 7.0), kRed},
        {kOpaqueBitmap, fill(kRed, -1.0), kBlack},
        {kOpaqueBitmap, fill(kRed, std::nan("")), kBlack},
        {kOpaqueBitmap, over(kWhite, fill(0xff204060, 0.3, kReplace)), 0xff204060},
        {kOpaqueBitmap, over(kRed, [](auto b) { MURA_Clear(b, 0x00336699); }), 0xff336699},
        {kAlphaBitmap, fill(0x80ffffff, 0.5), 0x40404040},
        {kAlphaBitmap, over(kWhite, fill(0xff0000ff, 0.5, kReplace)), 0x80000080},
        {kAlphaBitmap, over(kRed, [](auto b) { MURA_Clear(b, 0x00000000); }), 0x00000000},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << std::hex << c.expected);
        BitmapPtr bitmap = makeBitmap(1, 1, c.kind);
        c.draw(bitmap.get());
        for (int shift : {24, 16, 8, 0})
            EXPECT_NEAR(channel(pixelAt(bitmap.get(), 0, 0), shift), channel(c.expected, shift), 1);
    }
}

TEST(MuraCurves, FilledCircleCoversItsRadiusOutlineAndArcLieOnIt) {
    BitmapPtr disc = makeBitmap(30, 30);
    MURA_FillCircle(disc.get(), 15, 15, 6.0f, kWhite, 1.0, kBlend, 0);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x) {
            const double distance = std::hypot(x - 15, y - 15);
            const bool edge = distance >= 5.7 && distance <= 6.3;  // partly covered
            EXPECT_TRUE(edge || pixelAt(disc.get(), x, y) == (distance < 6 ? kWhite : kBlack))
                << x << "," << y;
        }
    BitmapPtr ring = makeBitmap(30, 30);
    MURA_Circle(ring.get(), 15, 15, 6.0f, kWhite, 1.0, kBlend, 1);
    expectPixels(ring.get(), {{15, 15, kBlack}, {12, 15, kBlack}});
    for (auto [x, y] : {std::pair{21, 15}, std::pair{9, 15}, std::pair{15, 21}, std::pair{15, 9}})
        EXPECT_GT(channel(pixelAt(ring.get(), x, y), 16), 100) << x << "," << y;
    EXPECT_GE(inkOf(ring.get()).bounds.left, 8);
    EXPECT_LE(inkOf(ring.get()).bounds.right, 22);
    BitmapPtr arc = makeBitmap(30, 30);  // from pointing right to pointing down
    MURA_Arc(arc.get(), 15, 15, 8.0f, 0.0f, static_cast<float>(M_PI / 2), kWhite, 1, kBlend, 0);
    const RECT bounds = inkOf(arc.get()).bounds;
    EXPECT_GE(std::min(bounds.left, bounds.top), 14);
    EXPECT_LE(std::max(bounds.right, bounds.bottom), 24);
    expectPixels(arc.get(), {{23, 15, kWhite}, {15, 23, kWhite}});
}

TEST(MuraShapes, TriangleCoversItsInsideOnly) {
    BitmapPtr bitmap = makeBitmap(20, 20);
    MURA_FillTriangle(bitmap.get(), 2, 2, 16, 2, 2, 16, kWhite, 1.0, kBlend);
    expectPixels(bitmap.get(), {{4, 4, kWhite}, {8, 8, kWhite}, {12, 12, kBlack}});
    // Corners are pixel centres: rows of about 15, 14, ... 1 pixels.
    EXPECT_NEAR(inkOf(bitmap.get()).count, 15 * 16 / 2, 8);
}

TEST(MuraBadArguments, ImpossibleSizesAreRefusedAndNullBitmapsAndFontsIgnored) {
    EXPECT_EQ(MURA_CreateBitmap(1, -1, 10), nullptr);
    EXPECT_EQ(MURA_CreateBitmap(1, 10, 40000), nullptr);
    BitmapPtr empty = makeBitmap(0, 0);
    ASSERT_NE(empty, nullptr);
    MURA_FillRect(empty.get(), 0, 0, 5, 5, kRed, 1.0, kBlend);  // nothing to draw on
    MURA_FillRect(nullptr, 0, 0, 5, 5, kRed, 1.0, kBlend);
    MURA_LineInt(nullptr, 0, 0, 5, 5, kRed, 1.0, kBlend, 1);
    MURA_FillCircle(nullptr, 5, 5, 3, kRed, 1.0, kBlend, 1);
    MURA_Clear(nullptr, kRed);
    MURA_Blit(nullptr, nullptr, 0, 0, 1.0, kBlend);
    MURA_Copy(nullptr, nullptr);
    MURA_DrawText(nullptr, nullptr, "text", 0, 0, kRed);
    int width = -1;
    int height = -1;
    MURA_MeasureText(nullptr, "text", &width, &height);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);
    BitmapPtr bitmap = makeBitmap(4, 4);
    MURA_Blit(bitmap.get(), nullptr, 0, 0, 1.0, kBlend);
    MURA_DrawGlyph(bitmap.get(), nullptr, 0, 0, 2, 2, kRed, 1.0, kBlend);
    MURA_DrawText(bitmap.get(), nullptr, "text", 0, 0, kRed);
    FontPtr font(MURA_CreateFont());
    EXPECT_EQ(font->drawText(bitmap.get(), "text", -1, nullptr, 0), 0);
    MURA_DrawText(bitmap.get(), font.get(), nullptr, 0, 0, kRed);
    EXPECT_EQ(inkOf(bitmap.get()).count, 0);
}

}  // namespace
