// Copies between raster bitmaps and the device context a bitmap offers to
// BitBlt.
#include <cmath>
#include <functional>
#include <vector>

#include "host/raster/canvas.h"
#include "tests/ui/raster_test_support.h"

namespace {

constexpr uint32_t kGreen = 0xff00ff00;

// A 2 x 2 bitmap: red, green on top; blue, white below.
BitmapPtr fourColours() {
    BitmapPtr bitmap = makeBitmap(2, 2);
    MURA_FillRect(bitmap.get(), 0, 0, 1, 1, kRed, 1.0, kReplace);
    MURA_FillRect(bitmap.get(), 1, 0, 1, 1, kGreen, 1.0, kReplace);
    MURA_FillRect(bitmap.get(), 0, 1, 1, 1, kBlue, 1.0, kReplace);
    MURA_FillRect(bitmap.get(), 1, 1, 1, 1, kWhite, 1.0, kReplace);
    return bitmap;
}

struct PixelColour {
    int x;
    int y;
    uint32_t colour;  // each channel within 1
};

TEST(MuraBlit, CopiesPlaceScaleTurnAndBlendTheSourcesPixels) {
    struct Case {
        const char* blit;
        std::function<void(MuraBitmap*, MuraBitmap*)> draw;
        std::vector<PixelColour> expected;
    };
    const Case cases[] = {
        {"blit",
         [](auto t, auto s) { MURA_Blit(t, s, 1, 1, 1.0, kBlend); },
         {{1, 1, kRed}, {2, 1, kGreen}, {2, 2, kWhite}, {3, 3, kBlack}}},
        {"half-opaque blit",
         [](auto t, auto s) { MURA_Blit(t, s, 1, 1, 0.5, kBlend); },
         {{1, 1, 0xff800000}, {2, 2, 0xff808080}}},
        // Quarter centres are untouched by the bilinear filter's blending.
        {"scaled",
         [](auto t, auto s) { MURA_ScaledBlit(t, s, 1, 1, 8, 8, 1.0, kBlend); },
         {{2, 2, kRed}, {7, 2, kGreen}, {2, 7, kBlue}, {7, 7, kWhite}, {9, 9, kBlack}}},
        {"half turn",
         [](auto t, auto s) { MURA_RotatedBlit(t, s, 0, 0, M_PI, 1.0, kBlend); },
         {{1, 1, kRed}, {0, 1, kGreen}, {0, 0, kWhite}, {2, 2, kBlack}}},
    };
    for (const Case& c : cases) {
        BitmapPtr target = makeBitmap(10, 10);
        c.draw(target.get(), fourColours().get());
        for (const PixelColour& pixel : c.expected)
            for (int shift : {24, 16, 8, 0})
                EXPECT_NEAR(channel(pixelAt(target.get(), pixel.x, pixel.y), shift),
                            channel(pixel.colour, shift), 1)
                    << c.blit << " at " << pixel.x << "," << pixel.y;
    }
}

TEST(MuraBlit, TransparentSourcePixelsLeaveTheTargetWhenBlendingAndReplaceItOtherwise) {
    BitmapPtr source = makeBitmap(2, 1, kAlphaBitmap);
    MURA_PutPixel(source.get(), 0, 0, kRed, 1.0, kBlend);  // pixel 1 stays transparent
    struct Case {
        int kind;
        int mode;
        uint32_t under;
        uint32_t second;  // what the transparent source pixel leaves
    };
    for (const Case& c :
         {Case{kOpaqueBitmap, kBlend, kBlue, kBlue}, Case{kOpaqueBitmap, kReplace, kWhite, kBlack},
          Case{kAlphaBitmap, kReplace, kWhite, 0x00000000u}}) {
        BitmapPtr target = makeBitmap(3, 1, c.kind);
        MURA_Clear(target.get(), c.under);
        MURA_Blit(target.get(), source.get(), 0, 0, 1.0, c.mode);
        EXPECT_EQ(pixelAt(target.get(), 0, 0), kRed);
        EXPECT_EQ(pixelAt(target.get(), 1, 0), c.second);
        EXPECT_EQ(pixelAt(target.get(), 2, 0), c.under);
    }
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
    EXPECT_EQ(window.pixel(3, 3), 0u);  // resizing blackened new pixels: outside the copy
    bitmap.reset();
    EXPECT_EQ(canvasOf(dc), nullptr);
}

}  // namespace
