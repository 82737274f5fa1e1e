// "ombro-host render-editor": a picture of the open editor with the graph,
// the band panel and the live spectra.
#include <gtest/gtest.h>

#include <cairo.h>
#include <unistd.h>

#include <cmath>
#include <functional>
#include <numbers>
#include <string>

#include "tests/host/program_runner.h"
#include "tests/host/sound_fixtures.h"

namespace {

// Renders the editor with `arguments` and returns how many pixels of the top
// 400 rows `wanted(column, red, green, blue)` counts, or -1 without a picture.
int renderAndCount(std::vector<std::string> arguments,
                   const std::function<int(int, int, int, int)>& wanted, int* width = nullptr) {
    std::string path = temporaryPath("editor.png");
    arguments.insert(arguments.begin(), {"render-editor", path});
    if (runHostProgram(arguments).exitCode != 0) return -1;
    cairo_surface_t* picture = cairo_image_surface_create_from_png(path.c_str());
    unlink(path.c_str());
    int found = cairo_surface_status(picture) == CAIRO_STATUS_SUCCESS ? 0 : -1;
    if (width) *width = found < 0 ? 0 : cairo_image_surface_get_width(picture);
    for (int y = 0; found >= 0 && y < std::min(400, cairo_image_surface_get_height(picture)); ++y) {
        const auto* row = reinterpret_cast<const uint32_t*>(
            cairo_image_surface_get_data(picture) + y * cairo_image_surface_get_stride(picture));
        for (int x = 0; x < cairo_image_surface_get_width(picture); ++x)
            found += wanted(x, row[x] >> 16 & 0xFF, row[x] >> 8 & 0xFF, row[x] & 0xFF);
    }
    cairo_surface_destroy(picture);
    return found;
}

TEST(RenderEditorProgram, WritesThePictureOfTheWholeEditor) {
    int width = 0;
    // The raised band fills the graph with the response colour.
    int filled = renderAndCount({"--size", "900x600", "--set", "7=0.6"},
                                [](int, int r, int g, int b) { return r == 0 && g == 0x60 && b == 0x60; },
                                &width);
    EXPECT_EQ(width, 900);
    EXPECT_GT(filled, 500);
}

TEST(RenderEditorProgram, SpectraShowTheUsersAudioUpToTheChosenTime) {
    // Two seconds of 1 kHz, then two of 8 kHz.
    std::string audio = temporaryPath("two_tones.wav");
    writeSound(audio, 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 4 * kTestSampleRate, [](int frame, int) {
        double frequency = frame < 2 * kTestSampleRate ? 1000.0 : 8000.0;
        return 0.3 * std::sin(2.0 * std::numbers::pi * frequency * frame / kTestSampleRate);
    });
    // The mean column of the spectra's yellow.
    auto peakColumn = [&](std::vector<std::string> arguments) {
        long sum = 0;
        int count = renderAndCount(arguments, [&](int x, int r, int g, int b) {
            bool yellow = r > 120 && g > 120 && b < r / 2;
            sum += yellow ? x : 0;
            return yellow;
        });
        return count > 0 ? static_cast<int>(sum / count) : -1;
    };
    int early = peakColumn({"--audio", audio, "--at", "1.5"});
    int whole = peakColumn({"--audio", audio});
    unlink(audio.c_str());
    // On the logarithmic axis 1 kHz lies near the middle, 8 kHz three octaves on.
    EXPECT_GT(early, 400);
    EXPECT_LT(early, 520);
    EXPECT_GT(whole - early, 250);
}

}  // namespace
