// "ombro-host render-editor": a picture of the open editor with the graph,
// the band panel and the live spectra.
#include <gtest/gtest.h>

#include <cairo.h>
#include <unistd.h>

#include <cmath>
#include <numbers>
#include <string>

#include "tests/host/program_runner.h"
#include "tests/host/sound_fixtures.h"

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
    // The column with the most pixels of the spectra's yellow within the rows.
    int yellowestColumn(int top, int bottom) const {
        int best = -1, bestCount = 0;
        for (int x = 0; x < width(); ++x) {
            int found = 0;
            for (int y = top; y < bottom; ++y) {
                uint32_t rgb = pixel(x, y);
                int red = (rgb >> 16) & 0xFF, green = (rgb >> 8) & 0xFF, blue = rgb & 0xFF;
                found += red > 120 && green > 120 && blue < red / 2;
            }
            if (found > bestCount) best = x, bestCount = found;
        }
        return best;
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

TEST(RenderEditorProgram, SpectraShowTheUsersAudioUpToTheChosenTime) {
    // Two seconds of 1 kHz, then two of 8 kHz.
    std::string audio = temporaryPath("two_tones.wav");
    writeSound(audio, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 4 * kTestSampleRate, [](int frame, int) {
        double frequency = frame < 2 * kTestSampleRate ? 1000.0 : 8000.0;
        return 0.3 * std::sin(2.0 * std::numbers::pi * frequency * frame / kTestSampleRate);
    });
    std::string early = temporaryPath("early.png");
    std::string whole = temporaryPath("whole.png");
    ASSERT_EQ(runHostProgram({"render-editor", early, "--audio", audio, "--at", "1.5"}).exitCode, 0);
    ASSERT_EQ(runHostProgram({"render-editor", whole, "--audio", audio}).exitCode, 0);
    int earlyPeak = Picture(early).yellowestColumn(20, 400);
    int wholePeak = Picture(whole).yellowestColumn(20, 400);
    // On the logarithmic axis 1 kHz lies near the middle, 8 kHz three octaves on.
    EXPECT_GT(earlyPeak, 400);
    EXPECT_LT(earlyPeak, 520);
    EXPECT_GT(wholePeak - earlyPeak, 250);
    unlink(early.c_str());
    unlink(whole.c_str());
}

TEST(RenderEditorProgram, RefusesABadSizeAndAnUnwritablePath) {
    EXPECT_EQ(runHostProgram({"render-editor", temporaryPath("x.png"), "--size", "0x10"}).exitCode, 2);
    EXPECT_EQ(runHostProgram({"render-editor", "/nonexistent-dir/editor.png"}).exitCode, 1);
}

}  // namespace
