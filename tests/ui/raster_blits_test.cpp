// Copies between raster bitmaps, coverage masks, resizing and the device
// context a bitmap offers to BitBlt.
#include <gtest/gtest.h>

#include <cmath>

#include "host/raster/canvas.h"
#include "tests/ui/raster_test_support.h"

namespace {

constexpr uint32_t kBlack = 0xff000000;
constexpr uint32_t kRed = 0xffff0000;
constexpr uint32_t kGreen = 0xff00ff00;
constexpr uint32_t kBlue = 0xff0000ff;
constexpr uint32_t kWhite = 0xffffffff;

// A 2 x 2 bitmap: red, green on top; blue, white below.
BitmapPtr fourColours() {
    BitmapPtr bitmap = makeBitmap(2, 2);
    MURA_PutPixel(bitmap.get(), 0, 0, kRed, 1.0, kReplace);
    MURA_PutPixel(bitmap.get(), 1, 0, kGreen, 1.0, kReplace);
    MURA_PutPixel(bitmap.get(), 0, 1, kBlue, 1.0, kReplace);
    MURA_PutPixel(bitmap.get(), 1, 1, kWhite, 1.0, kReplace);
    return bitmap;
}

TEST(MuraBlit, PlacesTheSourceAtItsPositionBlendedWithTheCallsAlpha) {
    BitmapPtr source = fourColours();
    BitmapPtr target = makeBitmap(5, 5);
    MURA_Blit(target.get(), source.get(), 2, 1, 1.0, kBlend);
    expectPixels(target.get(), {{2, 1, kRed}, {3, 1, kGreen}, {2, 2, kBlue}, {3, 2, kWhite}});
    EXPECT_EQ(countPixelsOtherThan(target.get(), kBlack), 4);
    BitmapPtr white = makeBitmap(1, 1);
    MURA_Clear(white.get(), kWhite);
    BitmapPtr blended = makeBitmap(1, 1);
    MURA_Blit(blended.get(), white.get(), 0, 0, 0.5, kBlend);
    EXPECT_NEAR(channel(pixelAt(blended.get(), 0, 0), 8), 128, 1);
}

TEST(MuraBlit, TransparentSourcePixelsLeaveTheTargetWhenBlendingAndReplaceItOtherwise) {
    BitmapPtr source = makeBitmap(2, 1, kAlphaBitmap);
    MURA_PutPixel(source.get(), 0, 0, kRed, 1.0, kBlend);  // pixel 1 stays transparent
    BitmapPtr target = makeBitmap(2, 1);
    MURA_Clear(target.get(), kBlue);
    MURA_Blit(target.get(), source.get(), 0, 0, 1.0, kBlend);
    expectPixels(target.get(), {{0, 0, kRed}, {1, 0, kBlue}});

    BitmapPtr opaque = makeBitmap(3, 1);
    MURA_Clear(opaque.get(), kWhite);
    MURA_Blit(opaque.get(), source.get(), 0, 0, 0.5, kReplace);
    expectPixels(opaque.get(), {{0, 0, kRed}, {1, 0, kBlack}, {2, 0, kWhite}});

    BitmapPtr withAlpha = makeBitmap(3, 1, kAlphaBitmap);
    MURA_Clear(withAlpha.get(), kWhite);
    MURA_Blit(withAlpha.get(), source.get(), 0, 0, 1.0, kReplace);
    expectPixels(withAlpha.get(), {{0, 0, kRed}, {1, 0, 0x00000000u}, {2, 0, kWhite}});
}

TEST(MuraScaledBlit, StretchesEachSourcePixelOverItsShareOfTheTarget) {
    BitmapPtr source = fourColours();
    BitmapPtr target = makeBitmap(10, 10);
    MURA_ScaledBlit(target.get(), source.get(), 1, 1, 8, 8, 1.0, kBlend);
    // Quarter centres are untouched by the bilinear filter's blending.
    expectPixels(target.get(), {{2, 2, kRed}, {7, 2, kGreen}, {2, 7, kBlue}, {7, 7, kWhite},
        {0, 0, kBlack}, {9, 9, kBlack}});
    EXPECT_EQ(boundsOfPixelsOtherThan(target.get(), kBlack).right, 8);
}

TEST(MuraRotatedBlit, HalfTurnSwapsOppositeCornersAndQuarterTurnMovesTheTopRowToTheRightColumn) {
    BitmapPtr source = makeBitmap(4, 4);
    MURA_PutPixel(source.get(), 0, 0, kRed, 1.0, kReplace);
    BitmapPtr target = makeBitmap(4, 4);
    MURA_Clear(target.get(), kBlue);
    MURA_RotatedBlit(target.get(), source.get(), 0, 0, M_PI, 1.0, kBlend);
    expectPixels(target.get(), {{3, 3, kRed}, {0, 0, kBlack}});
    BitmapPtr row = makeBitmap(4, 4);
    MURA_FillRect(row.get(), 0, 0, 4, 1, kRed, 1.0, kReplace);
    BitmapPtr turned = makeBitmap(4, 4);
    MURA_RotatedBlit(turned.get(), row.get(), 0, 0, M_PI / 2, 1.0, kBlend);
    for (int y = 0; y < 4; ++y) EXPECT_EQ(pixelAt(turned.get(), 3, y), kRed) << y;
    EXPECT_EQ(countPixelsOtherThan(turned.get(), kBlack), 4);
}

TEST(MuraCopy, MakesTheTargetAnExactCopySizeIncluded) {
    BitmapPtr source = fourColours();
    BitmapPtr target = makeBitmap(7, 3);
    MURA_Copy(target.get(), source.get());
    ASSERT_EQ(target->width(), 2);
    ASSERT_EQ(target->height(), 2);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 2; ++x)
            EXPECT_EQ(pixelAt(target.get(), x, y), pixelAt(source.get(), x, y));
    MURA_Copy(target.get(), target.get());  // onto itself: nothing changes
    EXPECT_EQ(pixelAt(target.get(), 1, 0), kGreen);
}

TEST(MuraDrawGlyph, CoverageSetsTheOpacityOfEachPixel) {
    const uint8_t coverage[] = {255, 0, 128,  //
                                0, 255, 0};
    BitmapPtr bitmap = makeBitmap(5, 4);
    MURA_DrawGlyph(bitmap.get(), coverage, 1, 1, 3, 2, kWhite, 1.0, kBlend);
    expectPixels(bitmap.get(), {{1, 1, kWhite}, {2, 1, kBlack}});
    EXPECT_NEAR(channel(pixelAt(bitmap.get(), 3, 1), 0), 128, 1);
    EXPECT_EQ(pixelAt(bitmap.get(), 2, 2), kWhite);
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kBlack), 3);
}

TEST(MuraBitmapResize, KeepsThePixelsThatFitBlackensNewOnesAndEmptiesOnImpossibleSizes) {
    BitmapPtr bitmap = makeBitmap(3, 3);
    MURA_Clear(bitmap.get(), kWhite);
    bitmap->resize(5, 4);
    ASSERT_EQ(bitmap->width(), 5);
    ASSERT_EQ(bitmap->height(), 4);
    EXPECT_GE(bitmap->rowSpan(), 5);
    expectPixels(bitmap.get(), {{2, 2, kWhite}, {3, 0, kBlack}, {0, 3, kBlack}, {4, 3, kBlack}});
    bitmap->resize(2, 1);
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kWhite), 0);
    BitmapPtr emptied = makeBitmap(3, 3);
    emptied->resize(-2, 5);
    EXPECT_EQ(emptied->width(), 0);
    emptied->resize(40000, 5);  // larger than any image the library makes
    EXPECT_EQ(emptied->width(), 0);
    MURA_FillRect(emptied.get(), 0, 0, 10, 10, kRed, 1.0, kBlend);
    MURA_LineInt(emptied.get(), 0, 0, 10, 10, kRed, 1.0, kBlend, 0);
    emptied->resize(2, 2);
    ASSERT_EQ(emptied->width(), 2);
    EXPECT_EQ(countPixelsOtherThan(emptied.get(), kBlack), 0);
}

TEST(MuraBitmapPixels, DirectWritesShowAfterMarkDirty) {
    BitmapPtr bitmap = makeBitmap(4, 4);
    bitmap->pixels()[1 * bitmap->rowSpan() + 2] = kGreen;
    bitmap->markDirty();
    MURA_FillRect(bitmap.get(), 0, 0, 1, 1, kRed, 1.0, kBlend);
    expectPixels(bitmap.get(), {{2, 1, kGreen}, {0, 0, kRed}});
}

TEST(MuraBitmapDeviceContext, IsACanvasThatBitBltCanCopyFromUntilItsBitmapGoes) {
    BitmapPtr bitmap = fourColours();
    HDC dc = bitmap->deviceContext();
    Canvas* canvas = canvasOf(dc);
    ASSERT_NE(canvas, nullptr);
    EXPECT_EQ(canvas->pixel(1, 0), kGreen);
    bitmap->resize(50, 30);  // the graph resizes its bitmap on every paint
    EXPECT_EQ(bitmap->deviceContext(), dc);
    EXPECT_EQ(canvasOf(dc)->width(), 50);

    Canvas window(4, 4);
    window.copyFrom(*canvasOf(dc), 0, 0, 2, 2, 1, 1);
    EXPECT_EQ(window.pixel(1, 1), kRed);
    EXPECT_EQ(window.pixel(2, 2), kWhite);
    BitmapPtr shortLived = makeBitmap(2, 2);
    HDC forgotten = shortLived->deviceContext();
    shortLived.reset();
    EXPECT_EQ(canvasOf(forgotten), nullptr);
}

}  // namespace
