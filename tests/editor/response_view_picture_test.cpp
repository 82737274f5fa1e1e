// A picture of the whole open editor with shaped bands, the phase curve and
// live spectra, written to the screenshot directory for a person to look at.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <numbers>
#include <vector>

#include "engine/audio_processing.h"
#include "host/ui/input_injection.h"
#include "host/ui/screenshot.h"
#include "plugin/ui_layer.h"
#include "tests/editor/response_view_fixture.h"

namespace {

class ResponseViewPictureTest : public ResponseViewTest {
protected:
    // A second of a chord with some noise, through the equalizer.
    void processSomeAudio() {
        constexpr int kFrames = 4096;
        std::vector<double> left(kFrames), right(kFrames), outLeft(kFrames), outRight(kFrames);
        uint32_t noise = 12345;
        for (int i = 0; i < kFrames; ++i) {
            noise = noise * 1664525u + 1013904223u;
            const double t = i / 44100.0;
            left[i] = 0.3 * std::sin(2 * std::numbers::pi * 220 * t) +
                      0.1 * std::sin(2 * std::numbers::pi * 3300 * t) +
                      0.05 * (static_cast<double>(noise) / 4294967296.0 - 0.5);
            right[i] = left[i];
        }
        double* inputs[] = {left.data(), right.data()};
        double* outputs[] = {outLeft.data(), outRight.data()};
        processDoubleReplacing(&instance->effect, inputs, outputs, kFrames);
    }
};

TEST_F(ResponseViewPictureTest, EditorWithShapedBandsPhaseAndSpectraIsSaved) {
    openEditorIn(kHostWidth, kHostHeight);
    view = control(1023);
    setBand(0, LowShelf, 120.0, 2.0, 1.0);
    setBand(1, Band, 400.0, 0.4, 1.5);
    setBand(2, Band, 2500.0, 2.5, 0.7);
    setBand(3, HighPass, 9000.0, 1.0, 1.0, false);
    instance->viewFlags |= kViewShowPhase;
    instance->selectedBand = 2;
    processSomeAudio();
    processSomeAudio();
    RECT client{};
    kobal::GetClientRect(view, &client);
    const int x = static_cast<int>(std::log(2480.0 / 23980.0 * 400.0 + 1.0) * client.right /
                                   5.993961427306569);
    const int y = client.bottom - static_cast<int>((std::log10(2.5) * 20.0 + 12.0) *
                                                   client.bottom / 24.0);
    kobal_layer::moveMouse(screenPoint(x, y));  // the readout of band 3
    ASSERT_EQ(instance->hoverBand, 2);
    kobal::InvalidateRect(view, nullptr, 1);
    const std::filesystem::path directory = OMBRO_TEST_OUTPUT_DIR;
    std::filesystem::create_directories(directory);
    const std::filesystem::path file = directory / "response_view_editor.png";
    ASSERT_TRUE(kobal_layer::saveScreenshot(hostWindow, file.string()));
    EXPECT_NE(instance->spectrumDrawnTick, 0u);  // the spectra were drawn
}

}  // namespace
