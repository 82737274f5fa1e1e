// "ombro-host render-editor": a picture of the open editor with the graph,
// the band panel and the live spectra.
#include <gtest/gtest.h>

#include <cairo.h>
#include <unistd.h>

#include <string>

#include "tests/host/program_runner.h"

namespace {

struct Picture {
    cairo_surface_t* surface;
    explicit Picture(const std::string& path) : surface(cairo_image_surface_create_from_png(path.c_str())) {}
    ~Picture() { cairo_surface_destroy(surface); }
    bool valid() const { return cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS; }
    int width() const { return cairo_image_surface_get_width(surface); }
    int height() const { return cairo_image_surface_get_height(surface); }
    uint32_t pixel(int x, int y) const {
        const unsigned char* row = cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
        return reinterpret_cast<const uint32_t*>(row)[x] & 0xFFFFFF;
    }
    // Pixels of exactly this colour within the rectangle.
    int count(uint32_t rgb, int left, int top, int right, int bottom) const {
        int found = 0;
        for (int y = top; y < bottom; ++y)
            for (int x = left; x < right; ++x) found += pixel(x, y) == rgb;
        return found;
    }
};

TEST(RenderEditorProgram, WritesThePictureOfTheWholeEditor) {
    std::string path = temporaryPath("editor.png");
    ProgramResult run = runHostProgram({"render-editor", path, "--size", "900x600", "--set", "7=0.6"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    Picture picture(path);
    ASSERT_TRUE(picture.valid());
    EXPECT_EQ(picture.width(), 900);
    EXPECT_EQ(picture.height(), 600);
    // The raised band fills the graph with the response colour.
    EXPECT_GT(picture.count(0x006060, 0, 0, 900, 400), 500);
    unlink(path.c_str());
}

TEST(RenderEditorProgram, RefusesABadSizeAndAnUnwritablePath) {
    EXPECT_EQ(runHostProgram({"render-editor", temporaryPath("x.png"), "--size", "0x10"}).exitCode, 2);
    EXPECT_EQ(runHostProgram({"render-editor", "/nonexistent-dir/editor.png"}).exitCode, 1);
}

}  // namespace
