// The raster library's shapes: exact pixels for integer shapes, opacity and
// modes, and calls with bad arguments.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "host/raster/mura_functions.h"
#include "tests/ui/raster_test_support.h"

namespace {

constexpr uint32_t kBlack = 0xff000000;
constexpr uint32_t kRed = 0xffff0000;
constexpr uint32_t kBlue = 0xff0000ff;
constexpr uint32_t kWhite = 0xffffffff;

TEST(MuraFunctionLookup, AnswersEachRasterNameWithItsOwnFunctionAndNothingElse) {
    for (const char* name : kMuraFunctionNames) EXPECT_NE(findMuraFunction(name), nullptr) << name;
    EXPECT_EQ(findMuraFunction("MURA_Frobnicate"), nullptr);
    EXPECT_EQ(findMuraFunction("mura_fillrect"), nullptr);
    EXPECT_EQ(findMuraFunction(""), nullptr);
    EXPECT_EQ(findMuraFunction(nullptr), nullptr);
    for (size_t i = 0; i < std::size(kMuraFunctionNames); ++i)
        for (size_t k = i + 1; k < std::size(kMuraFunctionNames); ++k)
            EXPECT_NE(findMuraFunction(kMuraFunctionNames[i]),
                      findMuraFunction(kMuraFunctionNames[k]))
                << kMuraFunctionNames[i] << " " << kMuraFunctionNames[k];
    auto fillRect = reinterpret_cast<MURA_FillRectProc>(findMuraFunction("MURA_FillRect"));
    BitmapPtr bitmap = makeBitmap(4, 4);
    fillRect(bitmap.get(), 1, 1, 2, 2, kRed, 1.0, kBlend);
    expectPixels(bitmap.get(), {{1, 1, kRed}, {0, 0, kBlack}});
}

TEST(MuraBitmapKinds, OpaqueStartsBlackAlphaStartsTransparentAndImpossibleSizesAreRefused) {
    BitmapPtr opaque = makeBitmap(3, 2, kOpaqueBitmap);
    BitmapPtr withAlpha = makeBitmap(3, 2, kAlphaBitmap);
    ASSERT_EQ(opaque->width(), 3);
    ASSERT_EQ(opaque->height(), 2);
    EXPECT_GE(opaque->rowSpan(), 3);
    EXPECT_EQ(countPixelsOtherThan(opaque.get(), kBlack), 0);
    EXPECT_EQ(countPixelsOtherThan(withAlpha.get(), 0x00000000), 0);
    EXPECT_EQ(MURA_CreateBitmap(1, -1, 10), nullptr);
    EXPECT_EQ(MURA_CreateBitmap(1, 10, 40000), nullptr);
    BitmapPtr empty = makeBitmap(0, 0);
    ASSERT_NE(empty, nullptr);
    MURA_FillRect(empty.get(), 0, 0, 5, 5, kRed, 1.0, kBlend);  // nothing to draw on
    EXPECT_EQ(empty->width(), 0);
}

TEST(MuraFillRect, CoversExactlyItsPixelsClipsAtTheEdgesAndIgnoresEmptySizes) {
    BitmapPtr bitmap = makeBitmap(10, 8);
    MURA_FillRect(bitmap.get(), 2, 3, 4, 2, 0xff123456, 1.0, kBlend);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 10; ++x) {
            const bool inside = x >= 2 && x < 6 && y >= 3 && y < 5;
            EXPECT_EQ(pixelAt(bitmap.get(), x, y), inside ? 0xff123456 : kBlack) << x << "," << y;
        }
    BitmapPtr edges = makeBitmap(4, 4);
    MURA_FillRect(edges.get(), -2, -2, 4, 4, kRed, 1.0, kBlend);
    EXPECT_EQ(countPixelsOtherThan(edges.get(), kBlack), 4);
    MURA_FillRect(edges.get(), 0, 0, 0, 4, kBlue, 1.0, kBlend);
    MURA_FillRect(edges.get(), 0, 0, 4, -1, kBlue, 1.0, kBlend);
    EXPECT_EQ(pixelAt(edges.get(), 3, 3), kBlack);
}

// Fully opaque fills of whole pixels are written straight into the bitmap;
// they must give the very pixels that Cairo's path fill of the same pixels
// gives (a trapezoid with pixel corners), on both kinds of bitmap, in both
// modes, over what was there and past the edges. Fills that are not fully
// opaque take Cairo's path and are compared the same way.
TEST(MuraFillRect, WholePixelFillsMatchTheCairoPathFillBitForBit) {
    struct FillCase {
        int kind;
        uint32_t colour;
        double alpha;
        int mode;
    };
    std::vector<FillCase> cases;
    for (int v = 0; v < 256; v += 5)
        for (int kind : {kOpaqueBitmap, kAlphaBitmap})
            for (int mode : {kBlend, kReplace})
                for (double alpha : {1.0, 1.5, 0.6})
                    cases.push_back({kind, 0xff000000u | v << 16 | (255 - v) << 8 | (v * 7 & 255),
                                     alpha, mode});
    cases.push_back({kAlphaBitmap, 0x80406080u, 1.0, kBlend});  // the colour's own alpha
    for (const FillCase& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.kind << " " << std::hex << c.colour << " "
                                          << c.alpha << " " << c.mode);
        BitmapPtr direct = makeBitmap(12, 10, c.kind);
        BitmapPtr traced = makeBitmap(12, 10, c.kind);
        for (MuraBitmap* bitmap : {direct.get(), traced.get()})
            MURA_FillRect(bitmap, 0, 0, 12, 10, 0x7f3366cc, 0.7, kBlend);  // something there
        MURA_FillRect(direct.get(), -2, 3, 9, 20, c.colour, c.alpha, c.mode);
        MURA_LineInt(direct.get(), 9, 1, 9, 4, c.colour, c.alpha, c.mode, 0);
        MURA_FillTrapezoid(traced.get(), -2, 6, 3, -2, 6, 22, c.colour, c.alpha, c.mode);
        MURA_FillTrapezoid(traced.get(), 9, 9, 1, 9, 9, 4, c.colour, c.alpha, c.mode);
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 12; ++x)
                ASSERT_EQ(pixelAt(direct.get(), x, y), pixelAt(traced.get(), x, y)) << x << "," << y;
    }
}

TEST(MuraOpacity, BlendsWithTheCallsAlphaOnOpaqueBitmaps) {
    BitmapPtr bitmap = makeBitmap(2, 2);
    MURA_FillRect(bitmap.get(), 0, 0, 2, 2, kBlue, 1.0, kBlend);
    MURA_FillRect(bitmap.get(), 0, 0, 1, 1, kRed, 0.25, kBlend);
    const uint32_t mixed = pixelAt(bitmap.get(), 0, 0);
    // red 255 * 0.25 over blue 255 * 0.75
    EXPECT_NEAR(channel(mixed, 16), 64, 1);
    EXPECT_EQ(channel(mixed, 8), 0);
    EXPECT_NEAR(channel(mixed, 0), 191, 1);
    EXPECT_EQ(channel(mixed, 24), 255);
}

TEST(MuraOpacity, OpaqueBitmapsIgnoreTheColoursAlphaByteAndClampTheCallsAlpha) {
    BitmapPtr bitmap = makeBitmap(2, 1);
    MURA_FillRect(bitmap.get(), 0, 0, 2, 1, kWhite, 1.0, kBlend);
    // The graph clears itself with colour 0x00000000: that must paint black.
    MURA_FillRect(bitmap.get(), 0, 0, 1, 1, 0x00000000, 1.0, kBlend);
    EXPECT_EQ(pixelAt(bitmap.get(), 0, 0), kBlack);
    MURA_FillRect(bitmap.get(), 1, 0, 1, 1, 0x00ff8000, 1.0, kBlend);
    EXPECT_EQ(pixelAt(bitmap.get(), 1, 0), 0xffff8000);
    BitmapPtr clamped = makeBitmap(3, 1);
    MURA_FillRect(clamped.get(), 0, 0, 1, 1, kRed, 7.0, kBlend);
    MURA_FillRect(clamped.get(), 1, 0, 1, 1, kRed, -1.0, kBlend);
    MURA_FillRect(clamped.get(), 2, 0, 1, 1, kRed, std::nan(""), kBlend);
    expectPixels(clamped.get(), {{0, 0, kRed}, {1, 0, kBlack}, {2, 0, kBlack}});
}

TEST(MuraOpacity, AlphaBitmapsMultiplyTheColoursAlphaByteAndReplaceModeIgnoresWhatWasThere) {
    BitmapPtr bitmap = makeBitmap(1, 1, kAlphaBitmap);
    MURA_FillRect(bitmap.get(), 0, 0, 1, 1, 0x80ffffff, 0.5, kBlend);
    // opacity 128/255 * 0.5 = 0.251; stored premultiplied
    const uint32_t stored = pixelAt(bitmap.get(), 0, 0);
    EXPECT_NEAR(channel(stored, 24), 64, 1);
    EXPECT_NEAR(channel(stored, 16), 64, 1);
    BitmapPtr opaque = makeBitmap(1, 1);
    MURA_FillRect(opaque.get(), 0, 0, 1, 1, kWhite, 1.0, kBlend);
    MURA_FillRect(opaque.get(), 0, 0, 1, 1, 0xff204060, 0.3, kReplace);
    EXPECT_EQ(pixelAt(opaque.get(), 0, 0), 0xff204060);

    BitmapPtr replacedAlpha = makeBitmap(1, 1, kAlphaBitmap);
    MURA_FillRect(replacedAlpha.get(), 0, 0, 1, 1, kWhite, 1.0, kBlend);
    MURA_FillRect(replacedAlpha.get(), 0, 0, 1, 1, 0xff0000ff, 0.5, kReplace);
    const uint32_t replaced = pixelAt(replacedAlpha.get(), 0, 0);
    EXPECT_NEAR(channel(replaced, 24), 128, 1);
    EXPECT_EQ(channel(replaced, 16), 0);
    EXPECT_NEAR(channel(replaced, 0), 128, 1);
}

TEST(MuraLineInt, VerticalLineCoversBothEndsAndNothingElse) {
    for (auto [from, to] : {std::pair{2, 7}, std::pair{7, 2}, std::pair{4, 4}}) {
        BitmapPtr bitmap = makeBitmap(5, 10);
        MURA_LineInt(bitmap.get(), 3, from, 3, to, kWhite, 1.0, kBlend, 0);
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 5; ++x) {
                const bool covered = x == 3 && y >= std::min(from, to) && y <= std::max(from, to);
                EXPECT_EQ(pixelAt(bitmap.get(), x, y), covered ? kWhite : kBlack)
                    << from << "->" << to << " at " << x << "," << y;
            }
    }
}

TEST(MuraLineInt, HorizontalAndDiagonalLinesSetOnePixelPerStepOfTheLongerAxis) {
    BitmapPtr bitmap = makeBitmap(10, 3);
    MURA_LineInt(bitmap.get(), 8, 1, 1, 1, kWhite, 1.0, kBlend, 0);
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kBlack), 8);
    expectPixels(bitmap.get(), {{1, 1, kWhite}, {8, 1, kWhite}});
    BitmapPtr diagonal = makeBitmap(12, 12);
    MURA_LineInt(diagonal.get(), 1, 2, 10, 5, kWhite, 1.0, kBlend, 0);
    EXPECT_EQ(countPixelsOtherThan(diagonal.get(), kBlack), 10);
    expectPixels(diagonal.get(), {{1, 2, kWhite}, {10, 5, kWhite}});
    for (int x = 1; x <= 10; ++x) {
        // the ideal row at this column, y = 2 + (x - 1) / 3
        const int row = static_cast<int>(std::lround(2 + (x - 1) / 3.0));
        EXPECT_EQ(pixelAt(diagonal.get(), x, row), kWhite) << x;
    }
}

TEST(MuraLineInt, AntialiasedLineStaysNearItsPath) {
    BitmapPtr bitmap = makeBitmap(20, 20);
    MURA_LineInt(bitmap.get(), 2, 2, 17, 12, kWhite, 1.0, kBlend, 1);
    const RECT bounds = boundsOfPixelsOtherThan(bitmap.get(), kBlack);
    EXPECT_GE(bounds.left, 1);
    EXPECT_LE(bounds.right, 18);
    EXPECT_GE(bounds.top, 1);
    EXPECT_LE(bounds.bottom, 13);
    // Partly covered pixels along the diagonal are grey.
    bool partial = false;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x) {
            const int level = channel(pixelAt(bitmap.get(), x, y), 16);
            partial = partial || (level > 0 && level < 255);
        }
    EXPECT_TRUE(partial);
}

TEST(MuraLine, FloatLinesRoundToPixelsAndAntialiasedRowsAreSolid) {
    BitmapPtr bitmap = makeBitmap(10, 10);
    MURA_Line(bitmap.get(), 1.2f, 4.4f, 7.8f, 4.4f, kWhite, 1.0, kBlend, 0);
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kBlack), 8);  // columns 1..8 of row 4
    EXPECT_EQ(pixelAt(bitmap.get(), 8, 4), kWhite);
    BitmapPtr smooth = makeBitmap(10, 10);
    MURA_Line(smooth.get(), 2.0f, 5.0f, 7.0f, 5.0f, kWhite, 1.0, kBlend, 1);
    for (int x = 3; x <= 6; ++x) EXPECT_EQ(pixelAt(smooth.get(), x, 5), kWhite) << x;
    // The round caps cover most of the end pixels.
    EXPECT_GT(channel(pixelAt(smooth.get(), 2, 5), 16), 200);
    EXPECT_GT(channel(pixelAt(smooth.get(), 7, 5), 16), 200);
    expectPixels(smooth.get(), {{4, 4, kBlack}, {4, 6, kBlack}});
}

TEST(MuraCircles, FilledCircleCoversPixelsWithinItsRadius) {
    BitmapPtr bitmap = makeBitmap(30, 30);
    MURA_FillCircle(bitmap.get(), 15, 15, 6.0f, kWhite, 1.0, kBlend, 0);
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x) {
            const double distance = std::hypot(x - 15, y - 15);
            if (distance < 5.7) {
                EXPECT_EQ(pixelAt(bitmap.get(), x, y), kWhite) << x << "," << y;
            } else if (distance > 6.3) {
                EXPECT_EQ(pixelAt(bitmap.get(), x, y), kBlack) << x << "," << y;
            }
        }
}

TEST(MuraCircles, OutlineLiesOnTheRadiusAndBadRadiiDrawNothing) {
    BitmapPtr bitmap = makeBitmap(30, 30);
    MURA_Circle(bitmap.get(), 15, 15, 6.0f, kWhite, 1.0, kBlend, 1);
    expectPixels(bitmap.get(), {{15, 15, kBlack}, {12, 15, kBlack}});
    for (auto [x, y] : {std::pair{21, 15}, std::pair{9, 15}, std::pair{15, 21}, std::pair{15, 9}})
        EXPECT_GT(channel(pixelAt(bitmap.get(), x, y), 16), 100) << x << "," << y;
    const RECT bounds = boundsOfPixelsOtherThan(bitmap.get(), kBlack);
    EXPECT_GE(bounds.left, 8);
    EXPECT_LE(bounds.right, 22);
    BitmapPtr none = makeBitmap(10, 10);
    MURA_FillCircle(none.get(), 5, 5, -3.0f, kWhite, 1.0, kBlend, 1);
    MURA_Circle(none.get(), 5, 5, std::nanf(""), kWhite, 1.0, kBlend, 1);
    EXPECT_EQ(countPixelsOtherThan(none.get(), kBlack), 0);
}

TEST(MuraArc, QuarterArcStaysInItsQuadrant) {
    BitmapPtr bitmap = makeBitmap(30, 30);
    // From pointing right to pointing down (clockwise on screen).
    MURA_Arc(bitmap.get(), 15, 15, 8.0f, 0.0f, static_cast<float>(M_PI / 2), kWhite, 1.0, kBlend,
             0);
    const RECT bounds = boundsOfPixelsOtherThan(bitmap.get(), kBlack);
    EXPECT_GE(bounds.left, 14);
    EXPECT_GE(bounds.top, 14);
    EXPECT_LE(bounds.right, 24);
    EXPECT_LE(bounds.bottom, 24);
    expectPixels(bitmap.get(), {{23, 15, kWhite}, {15, 23, kWhite}});
}

TEST(MuraRectangles, OutlinesAndBorderedRectsCoverTheirPixels) {
    BitmapPtr bitmap = makeBitmap(10, 10);
    MURA_DrawRect(bitmap.get(), 1, 2, 6, 5, kWhite, 1.0, kBlend);
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kBlack), 2 * 6 + 2 * 3);
    expectPixels(bitmap.get(), {{1, 2, kWhite}, {6, 6, kWhite}, {3, 4, kBlack}});
    BitmapPtr bordered = makeBitmap(10, 10);
    // The readout box passes colours with a cleared top byte.
    MURA_BorderedRect(bordered.get(), 2, 2, 5, 4, 0x00ffffe1, 0x00000000, 1.0, kBlend);
    MURA_FillRect(bordered.get(), 0, 0, 1, 1, kRed, 1.0, kBlend);
    expectPixels(bordered.get(), {{2, 2, kBlack}, {6, 5, kBlack}, {3, 3, 0xffffffe1},
        {5, 4, 0xffffffe1}});
    EXPECT_EQ(countPixelsOtherThan(bordered.get(), kBlack), 1 + 3 * 2);
    BitmapPtr thin = makeBitmap(6, 6);
    MURA_BorderedRect(thin.get(), 1, 1, 4, 2, kBlue, kWhite, 1.0, kBlend);
    EXPECT_EQ(countPixelsOtherThan(thin.get(), kBlack), 8);
    EXPECT_EQ(countPixelsOtherThan(thin.get(), kWhite), 36 - 8);
}

TEST(MuraClearAndPutPixel, SetEveryPixelOrOneAndIgnoreOutsideOnes) {
    BitmapPtr opaque = makeBitmap(4, 3);
    MURA_FillRect(opaque.get(), 0, 0, 2, 2, kRed, 1.0, kBlend);
    MURA_Clear(opaque.get(), 0x00336699);
    EXPECT_EQ(countPixelsOtherThan(opaque.get(), 0xff336699), 0);

    BitmapPtr withAlpha = makeBitmap(4, 3, kAlphaBitmap);
    MURA_Clear(withAlpha.get(), kRed);
    MURA_Clear(withAlpha.get(), 0x00000000);
    EXPECT_EQ(countPixelsOtherThan(withAlpha.get(), 0x00000000), 0);
    BitmapPtr single = makeBitmap(4, 4);
    MURA_PutPixel(single.get(), 2, 1, kRed, 1.0, kBlend);
    MURA_PutPixel(single.get(), -1, 1, kRed, 1.0, kBlend);
    MURA_PutPixel(single.get(), 4, 4, kRed, 1.0, kBlend);
    EXPECT_EQ(pixelAt(single.get(), 2, 1), kRed);
    EXPECT_EQ(countPixelsOtherThan(single.get(), kBlack), 1);
}

TEST(MuraFilledShapes, TriangleCoversItsInsideOnly) {
    BitmapPtr bitmap = makeBitmap(20, 20);
    MURA_FillTriangle(bitmap.get(), 2, 2, 16, 2, 2, 16, kWhite, 1.0, kBlend);
    expectPixels(bitmap.get(), {{4, 4, kWhite}, {8, 8, kWhite}, {12, 12, kBlack},
        {17, 17, kBlack}});
    // Corners are pixel centres: rows of about 15, 14, ... 1 pixels.
    EXPECT_NEAR(countPixelsOtherThan(bitmap.get(), kBlack), 15 * 16 / 2, 8);
}

TEST(MuraFilledShapes, TrapezoidsCoverTheirRowsInclusivelyAndWidenTowardsTheLongerRow) {
    BitmapPtr bitmap = makeBitmap(12, 12);
    MURA_FillTrapezoid(bitmap.get(), 2, 6, 3, 2, 6, 8, kWhite, 1.0, kBlend);
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kBlack), 5 * 6);
    EXPECT_EQ(boundsOfPixelsOtherThan(bitmap.get(), kBlack).right, 6);
    EXPECT_EQ(boundsOfPixelsOtherThan(bitmap.get(), kBlack).bottom, 8);
    BitmapPtr widening = makeBitmap(20, 12);
    MURA_FillTrapezoid(widening.get(), 8, 10, 1, 2, 16, 10, kWhite, 1.0, kBlend);
    int topRow = 0;
    int bottomRow = 0;
    for (int x = 0; x < 20; ++x) {
        topRow += pixelAt(widening.get(), x, 1) == kWhite;
        bottomRow += pixelAt(widening.get(), x, 10) == kWhite;
    }
    EXPECT_LE(topRow, 4);
    EXPECT_GE(bottomRow, 13);
}

TEST(MuraFilledShapes, ConvexPolygonNeedsThreePoints) {
    BitmapPtr bitmap = makeBitmap(20, 20);
    const int square[] = {3, 3, 13, 3, 13, 13, 3, 13};
    MURA_FillConvexPolygon(bitmap.get(), square, 2, kWhite, 1.0, kBlend);
    MURA_FillConvexPolygon(bitmap.get(), nullptr, 4, kWhite, 1.0, kBlend);
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kBlack), 0);
    MURA_FillConvexPolygon(bitmap.get(), square, 4, kWhite, 1.0, kBlend);
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kBlack), 10 * 10);
    EXPECT_EQ(pixelAt(bitmap.get(), 8, 8), kWhite);
}

TEST(MuraBadArguments, NullBitmapsAndFontsAreIgnored) {
    const int points[] = {0, 0, 5, 0, 0, 5};
    const uint8_t coverage[4] = {255, 255, 255, 255};
    RECT rect{0, 0, 10, 10};
    int width = -1;
    int height = -1;
    MURA_PutPixel(nullptr, 0, 0, kRed, 1.0, kBlend);
    MURA_LineInt(nullptr, 0, 0, 5, 5, kRed, 1.0, kBlend, 1);
    MURA_Line(nullptr, 0, 0, 5, 5, kRed, 1.0, kBlend, 1);
    MURA_Circle(nullptr, 5, 5, 3, kRed, 1.0, kBlend, 1);
    MURA_FillCircle(nullptr, 5, 5, 3, kRed, 1.0, kBlend, 1);
    MURA_Arc(nullptr, 5, 5, 3, 0, 1, kRed, 1.0, kBlend, 1);
    MURA_FillRect(nullptr, 0, 0, 5, 5, kRed, 1.0, kBlend);
    MURA_DrawRect(nullptr, 0, 0, 5, 5, kRed, 1.0, kBlend);
    MURA_BorderedRect(nullptr, 0, 0, 5, 5, kRed, kBlue, 1.0, kBlend);
    MURA_Clear(nullptr, kRed);
    MURA_FillTriangle(nullptr, 0, 0, 5, 0, 0, 5, kRed, 1.0, kBlend);
    MURA_FillTrapezoid(nullptr, 0, 5, 0, 0, 5, 5, kRed, 1.0, kBlend);
    MURA_FillConvexPolygon(nullptr, points, 3, kRed, 1.0, kBlend);
    MURA_Blit(nullptr, nullptr, 0, 0, 1.0, kBlend);
    MURA_RotatedBlit(nullptr, nullptr, 0, 0, 1.0, 1.0, kBlend);
    MURA_ScaledBlit(nullptr, nullptr, 0, 0, 5, 5, 1.0, kBlend);
    MURA_Copy(nullptr, nullptr);
    MURA_DrawGlyph(nullptr, coverage, 0, 0, 2, 2, kRed, 1.0, kBlend);
    MURA_DrawText(nullptr, nullptr, "text", 0, 0, kRed);
    MURA_MeasureText(nullptr, "text", &width, &height);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);

    BitmapPtr bitmap = makeBitmap(4, 4);
    MURA_Blit(bitmap.get(), nullptr, 0, 0, 1.0, kBlend);
    MURA_Copy(bitmap.get(), nullptr);
    MURA_DrawGlyph(bitmap.get(), nullptr, 0, 0, 2, 2, kRed, 1.0, kBlend);
    MURA_DrawText(bitmap.get(), nullptr, "text", 0, 0, kRed);
    FontPtr font(MURA_CreateFont());
    EXPECT_EQ(font->drawText(bitmap.get(), "text", -1, nullptr, 0), 0);
    MURA_DrawText(bitmap.get(), font.get(), nullptr, 0, 0, kRed);
    EXPECT_EQ(font->drawText(nullptr, "text", -1, &rect, 0), font->lineHeight());
    EXPECT_EQ(rect.right, 10);  // measured only, the rectangle unchanged
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kBlack), 0);
}

}  // namespace
