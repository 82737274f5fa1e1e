// Copies between raster bitmaps, and translucent pixels read back from a canvas.
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
    const uint32_t colours[] = {kRed, kGreen, kBlue, kWhite};
    for (int i = 0; i < 4; ++i) MURA_PutPixel(bitmap.get(), i % 2, i / 2, colours[i], 1, kReplace);
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

// Cairo stores premultiplied pixels; reading rounds back to the nearest value.
TEST(CanvasPixels, TranslucentPixelsReadUnpremultipliedAndRounded) {
    const std::pair<uint32_t, uint32_t> storedAndRead[] = {
        {0x80000001, 0x80000002},  // 1 × 255 / 128 = 1.99
        {0x80404040, 0x80808080},  // 64 × 255 / 128 = 127.5
        {0x0301027f, 0x0355aaff},  // 85, 170, then clamped at 255
        {0x00000000, 0x00000000},
    };
    Canvas canvas(1, 1);
    for (auto [stored, read] : storedAndRead) {
        cairo_surface_flush(canvas.surface());
        *reinterpret_cast<uint32_t*>(cairo_image_surface_get_data(canvas.surface())) = stored;
        cairo_surface_mark_dirty(canvas.surface());
        EXPECT_EQ(canvas.pixel(0, 0), read) << std::hex << stored;
    }
}

}  // namespace
