// Canvases: the windowing layer's drawing, copies, device contexts and pixels
// read back unpremultiplied.
#include "host/raster/canvas.h"
#include "tests/ui/ui_test_support.h"

namespace {

constexpr uint32_t kRed = 0xffff0000;
constexpr uint32_t kWhite = 0xffffffff;

TEST(CanvasDrawing, FillsFramesAndLinesCoverWholePixels) {
    Canvas canvas(10, 10);
    canvas.fillRect(1, 1, 3, 2, kRed);
    canvas.frameRect(5, 5, 4, 4, kWhite);
    canvas.line(0, 8, 3, 8, kWhite);
    int inked = 0;
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x) inked += canvas.pixel(x, y) != 0;
    EXPECT_EQ(inked, 6 + 12 + 4);
    EXPECT_EQ(canvas.pixel(3, 2), kRed);
    EXPECT_EQ(canvas.pixel(6, 6), 0u);
    for (int x = 0; x <= 3; ++x) EXPECT_EQ(canvas.pixel(x, 8), kWhite) << x;
    EXPECT_EQ(canvas.pixel(10, 0), 0u);
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

TEST(CanvasCopies, CopyReplacesTheTargetRectangleAndResizeKeepsPixelsAndTheDeviceContext) {
    Canvas source(4, 4);
    source.fillRect(0, 0, 4, 4, 0x40ffffff);
    source.fillRect(1, 1, 1, 1, kRed);
    Canvas target(6, 6);
    target.fillRect(0, 0, 6, 6, kWhite);
    target.copyFrom(source, 1, 1, 2, 2, 3, 3);
    EXPECT_EQ(target.pixel(3, 3), kRed);
    EXPECT_EQ(target.pixel(4, 4) >> 24, 0x40u);  // replaced, not blended
    EXPECT_EQ(target.pixel(2, 2), kWhite);
    EXPECT_EQ(target.pixel(5, 5), kWhite);
    HDC dc = target.deviceContext();
    target.resize(8, 2);
    EXPECT_EQ(target.pixel(3, 1), kWhite);
    EXPECT_EQ(target.pixel(7, 1), 0u);
    EXPECT_EQ(canvasOf(dc), &target);
    KobalDeviceContext stranger;
    EXPECT_EQ(canvasOf(&stranger), nullptr);
}

}  // namespace
