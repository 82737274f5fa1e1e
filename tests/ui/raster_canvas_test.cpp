// Canvases: the windowing layer's drawing, copies, device contexts and PNG
// output read back with Cairo.
#include <gtest/gtest.h>

#include <cairo.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "host/raster/canvas.h"

namespace {

constexpr uint32_t kRed = 0xffff0000;
constexpr uint32_t kWhite = 0xffffffff;

int inkedPixels(const Canvas& canvas) {
    int count = 0;
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x) count += canvas.pixel(x, y) != 0;
    return count;
}

std::string scratchPngPath(const char* name) {
    return (std::filesystem::temp_directory_path() / name).string();
}

TEST(CanvasDrawing, FillsFramesAndLinesCoverWholePixelsReadUnpremultiplied) {
    Canvas canvas(10, 10);
    EXPECT_EQ(inkedPixels(canvas), 0);
    canvas.fillRect(1, 1, 3, 2, kRed);
    EXPECT_EQ(inkedPixels(canvas), 6);
    EXPECT_EQ(canvas.pixel(3, 2), kRed);
    canvas.frameRect(5, 5, 4, 4, kWhite);
    EXPECT_EQ(inkedPixels(canvas), 6 + 12);
    EXPECT_EQ(canvas.pixel(6, 6), 0u);
    EXPECT_EQ(canvas.pixel(-1, 0), 0u);
    EXPECT_EQ(canvas.pixel(10, 0), 0u);
    Canvas translucent(1, 1);
    translucent.fillRect(0, 0, 1, 1, 0x80ff0000);
    const uint32_t mixed = translucent.pixel(0, 0);
    EXPECT_EQ(mixed >> 24, 0x80u);
    EXPECT_NEAR(static_cast<int>(mixed >> 16 & 0xff), 255, 1);
    Canvas lined(10, 10);
    lined.line(2, 4, 7, 4, kWhite);
    for (int x = 2; x <= 7; ++x) EXPECT_EQ(lined.pixel(x, 4), kWhite) << x;
    EXPECT_EQ(lined.pixel(5, 3), 0u);
    EXPECT_EQ(lined.pixel(5, 5), 0u);
}

TEST(CanvasDrawing, TextLandsInsideItsRectangle) {
    Canvas canvas(120, 40);
    canvas.text("Add band", RECT{10, 5, 110, 35}, DT_CENTER | DT_VCENTER | DT_SINGLELINE, kWhite,
                -11);
    int left = 120;
    int right = -1;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 120; ++x)
            if (canvas.pixel(x, y) != 0) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
    ASSERT_LT(left, right);
    EXPECT_GE(left, 10);
    EXPECT_LE(right, 109);
    EXPECT_NEAR((left + right + 1) / 2.0, 60, 2);
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
    Canvas canvas(3, 3);
    HDC dc = canvas.deviceContext();
    canvas.fillRect(0, 0, 3, 3, kRed);
    canvas.resize(5, 2);
    EXPECT_EQ(canvas.width(), 5);
    EXPECT_EQ(canvas.height(), 2);
    EXPECT_EQ(canvas.pixel(2, 1), kRed);
    EXPECT_EQ(canvas.pixel(4, 1), 0u);
    EXPECT_EQ(canvas.deviceContext(), dc);
    canvas.resize(-4, 0);
    EXPECT_EQ(canvas.width(), 0);
    EXPECT_EQ(canvas.pixel(0, 0), 0u);
}

TEST(CanvasDeviceContexts, LeadBackToTheirCanvasOnly) {
    Canvas first(2, 2);
    Canvas second(2, 2);
    EXPECT_EQ(canvasOf(first.deviceContext()), &first);
    EXPECT_EQ(canvasOf(second.deviceContext()), &second);
    EXPECT_EQ(first.deviceContext()->canvas, &first);
    EXPECT_EQ(canvasOf(nullptr), nullptr);
    KobalDeviceContext stranger;
    EXPECT_EQ(canvasOf(&stranger), nullptr);
    HDC gone = nullptr;
    {
        Canvas shortLived(1, 1);
        gone = shortLived.deviceContext();
    }
    EXPECT_EQ(canvasOf(gone), nullptr);
}

TEST(CanvasPng, WrittenImageReadsBackPixelForPixelAndUnwritablePathsFail) {
    Canvas canvas(7, 5);
    canvas.fillRect(0, 0, 7, 5, 0xff102030);
    canvas.fillRect(2, 1, 3, 2, kRed);
    canvas.fillRect(6, 4, 1, 1, 0x80ffffff);
    const std::string path = scratchPngPath("ombro_raster_canvas.png");
    ASSERT_TRUE(canvas.writePng(path));

    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    ASSERT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
    Canvas decoded(cairo_image_surface_get_width(image), cairo_image_surface_get_height(image));
    cairo_t* cr = cairo_create(decoded.surface());
    cairo_set_source_surface(cr, image, 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
    cairo_surface_destroy(image);
    std::remove(path.c_str());

    ASSERT_EQ(decoded.width(), 7);
    ASSERT_EQ(decoded.height(), 5);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 7; ++x)
            EXPECT_EQ(decoded.pixel(x, y), canvas.pixel(x, y)) << x << "," << y;
    EXPECT_FALSE(canvas.writePng("/nonexistent-directory/ombro.png"));
}

}  // namespace
