// Copies between raster bitmaps, coverage masks, resizing and the device
// context a bitmap offers to BitBlt.
#include <cmath>

#include "host/raster/canvas.h"
#include "tests/ui/raster_test_support.h"

namespace {

// A 2 x 2 bitmap: red, green on top; blue, white below.
BitmapPtr fourColours() {
    BitmapPtr bitmap = makeBitmap(2, 2);
    for (auto [x, y, colour] : {PixelColour{0, 0, kRed}, PixelColour{1, 0, kGreen},
                                PixelColour{0, 1, kBlue}, PixelColour{1, 1, kWhite}})
        MURA_PutPixel(bitmap.get(), x, y, colour, 1.0, kReplace);
    return bitmap;
}

TEST(MuraBlit, PlacesTheSourceWithTheCallsAlphaAndItsTransparentPixelsByMode) {
    BitmapPtr target = makeBitmap(5, 5);
    MURA_Blit(target.get(), fourColours().get(), 2, 1, 1.0, kBlend);
    expectPixels(target.get(), {{2, 1, kRed}, {3, 1, kGreen}, {2, 2, kBlue}, {3, 2, kWhite}});
    EXPECT_EQ(inkOf(target.get()).count, 4);
    BitmapPtr half = makeBitmap(1, 1);
    MURA_Blit(half.get(), fourColours().get(), -1, -1, 0.5, kBlend);  // white over black
    EXPECT_NEAR(channel(pixelAt(half.get(), 0, 0), 8), 128, 1);

    BitmapPtr source = makeBitmap(2, 1, kAlphaBitmap);
    MURA_PutPixel(source.get(), 0, 0, kRed, 1.0, kBlend);  // pixel 1 stays transparent
    struct Case {
        int kind;
        double alpha;
        int mode;
        uint32_t under;
        uint32_t second;  // what the transparent source pixel leaves
    };
    for (const Case& c : {Case{kOpaqueBitmap, 1.0, kBlend, kBlue, kBlue},
                          Case{kOpaqueBitmap, 0.5, kReplace, kWhite, kBlack},
                          Case{kAlphaBitmap, 1.0, kReplace, kWhite, 0x00000000u}}) {
        BitmapPtr target = makeBitmap(3, 1, c.kind);
        MURA_Clear(target.get(), c.under);
        MURA_Blit(target.get(), source.get(), 0, 0, c.alpha, c.mode);
        expectPixels(target.get(), {{0, 0, kRed}, {1, 0, c.second}, {2, 0, c.under}});
    }
}

TEST(MuraBlit, ScaledAndRotatedBlitsMoveEachSourcePixelWhereTheGeometrySays) {
    BitmapPtr scaled = makeBitmap(10, 10);
    MURA_ScaledBlit(scaled.get(), fourColours().get(), 1, 1, 8, 8, 1.0, kBlend);
    // Quarter centres are untouched by the bilinear filter's blending.
    expectPixels(scaled.get(), {{2, 2, kRed},
                                {7, 2, kGreen},
                                {2, 7, kBlue},
                                {7, 7, kWhite},
                                {0, 0, kBlack},
                                {9, 9, kBlack}});
    EXPECT_EQ(inkOf(scaled.get()).bounds.right, 8);
    BitmapPtr corner = makeBitmap(4, 4);
    MURA_PutPixel(corner.get(), 0, 0, kRed, 1.0, kReplace);
    BitmapPtr halfTurn = makeBitmap(4, 4);
    MURA_Clear(halfTurn.get(), kBlue);
    MURA_RotatedBlit(halfTurn.get(), corner.get(), 0, 0, M_PI, 1.0, kBlend);
    expectPixels(halfTurn.get(), {{3, 3, kRed}, {0, 0, kBlack}});
    BitmapPtr row = makeBitmap(4, 4);
    MURA_FillRect(row.get(), 0, 0, 4, 1, kRed, 1.0, kReplace);
    BitmapPtr quarterTurn = makeBitmap(4, 4);
    MURA_RotatedBlit(quarterTurn.get(), row.get(), 0, 0, M_PI / 2, 1.0, kBlend);
    EXPECT_EQ(inkOf(quarterTurn.get()).count, 4);
    EXPECT_EQ(inkOf(quarterTurn.get()).bounds, (RECT{3, 0, 3, 3}));  // the right column
}

TEST(MuraCopy, MakesTheTargetAnExactCopySizeIncluded) {
    BitmapPtr source = fourColours();
    BitmapPtr target = makeBitmap(7, 3);
    MURA_Copy(target.get(), source.get());
    MURA_Copy(target.get(), target.get());  // onto itself: nothing changes
    ASSERT_EQ(target->width(), 2);
    ASSERT_EQ(target->height(), 2);
    expectPixels(target.get(), {{0, 0, kRed}, {1, 0, kGreen}, {0, 1, kBlue}, {1, 1, kWhite}});
}

TEST(MuraDrawGlyph, CoverageSetsTheOpacityOfEachPixel) {
    const uint8_t coverage[] = {255, 0, 128, 0, 255, 0};  // two rows of three
    BitmapPtr bitmap = makeBitmap(5, 4);
    MURA_DrawGlyph(bitmap.get(), coverage, 1, 1, 3, 2, kWhite, 1.0, kBlend);
    expectPixels(bitmap.get(), {{1, 1, kWhite}, {2, 1, kBlack}, {2, 2, kWhite}});
    EXPECT_NEAR(channel(pixelAt(bitmap.get(), 3, 1), 0), 128, 1);
    EXPECT_EQ(inkOf(bitmap.get()).count, 3);
}

TEST(MuraBitmapResize, KeepsThePixelsThatFitBlackensNewOnesAndEmptiesOnImpossibleSizes) {
    BitmapPtr bitmap = makeBitmap(3, 3);
    MURA_Clear(bitmap.get(), kWhite);
    bitmap->resize(5, 4);
    ASSERT_EQ(bitmap->height(), 4);
    EXPECT_GE(bitmap->rowSpan(), 5);
    EXPECT_EQ(inkOf(bitmap.get(), kBlack).bounds, (RECT{0, 0, 2, 2}));
    EXPECT_EQ(inkOf(bitmap.get(), kWhite).count, 5 * 4 - 9);
    bitmap->resize(40000, 5);  // larger than any image the library makes
    EXPECT_EQ(bitmap->width(), 0);
    MURA_FillRect(bitmap.get(), 0, 0, 10, 10, kRed, 1.0, kBlend);
    bitmap->resize(2, 2);
    EXPECT_EQ(inkOf(bitmap.get()).count, 0);
    bitmap->pixels()[1 * bitmap->rowSpan() + 1] = kGreen;  // written directly
    bitmap->markDirty();
    MURA_FillRect(bitmap.get(), 0, 0, 1, 1, kRed, 1.0, kBlend);
    expectPixels(bitmap.get(), {{1, 1, kGreen}, {0, 0, kRed}});
}

TEST(MuraBitmapDeviceContext, IsACanvasThatBitBltCanCopyFromUntilItsBitmapGoes) {
    BitmapPtr bitmap = fourColours();
    HDC dc = bitmap->deviceContext();
    bitmap->resize(50, 30);  // the graph resizes its bitmap on every paint
    EXPECT_EQ(bitmap->deviceContext(), dc);
    ASSERT_NE(canvasOf(dc), nullptr);
    EXPECT_EQ(canvasOf(dc)->width(), 50);
    Canvas window(4, 4);
    window.copyFrom(*canvasOf(dc), 0, 0, 2, 2, 1, 1);
    EXPECT_EQ(window.pixel(1, 1), kRed);
    EXPECT_EQ(window.pixel(2, 2), kWhite);
    bitmap.reset();
    EXPECT_EQ(canvasOf(dc), nullptr);
}

}  // namespace
