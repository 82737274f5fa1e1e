// Pictures of the open editor in the screenshot directory, for a person to
// look at, each read back to see that it shows what the editor shows: as
// opened, without the tabs, with forty bands in a scrolling tab strip, and
// with shaped bands, the phase curve, live spectra and a readout.
#include <cairo.h>

#include <cmath>
#include <filesystem>
#include <numbers>
#include <string>
#include <vector>

#include "editor/editor_controls.h"
#include "engine/band_list.h"
#include "engine/eq_band.h"
#include "host/ui/input_injection.h"
#include "host/ui/screenshot.h"
#include "host/ui/tab_control.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_fixture.h"

namespace {

class EditorPicturesTest : public EditorTest {
protected:
    void TearDown() override {
        if (image) cairo_surface_destroy(image);
        EditorTest::TearDown();
    }
    // Writes the host window's picture and reads it back.
    void save(const char* name) {
        std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
        const std::string path = std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + name;
        ASSERT_TRUE(kobal_layer::saveScreenshot(hostWindow, path));
        if (image) cairo_surface_destroy(image);
        image = cairo_image_surface_create_from_png(path.c_str());
        ASSERT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
    }
    // The picture's colour at a client point of `window`.
    uint32_t at(HWND window, int x, int y) const {
        const POINT p = kobal_layer::screenPointOf(window, POINT{x, y});
        const POINT origin = kobal_layer::screenPointOf(hostWindow, POINT{0, 0});
        const int column = p.x - origin.x, row = p.y - origin.y;
        if (column < 0 || row < 0 || column >= cairo_image_surface_get_width(image) ||
            row >= cairo_image_surface_get_height(image))
            return 0xdeadbeef;
        const unsigned char* line =
            cairo_image_surface_get_data(image) + row * cairo_image_surface_get_stride(image);
        return reinterpret_cast<const uint32_t*>(line)[column] & 0xffffff;
    }
    RECT graphClient() const {
        RECT client{};
        kobal::GetClientRect(view, &client);
        return client;
    }
    cairo_surface_t* image = nullptr;
};

// Without the tabs the graph reaches down over where the strip was.
TEST_F(EditorPicturesTest, OpenEditorShowsItsGraphWithAndWithoutTabs) {
    openEditorIn(1000, 620);
    for (const char* name : {"editor_open.png", "editor_without_tabs.png"}) {
        SCOPED_TRACE(name);
        advanceClock(40);
        save(name);
        const RECT graph = graphClient();
        for (int y : {0, graph.bottom / 2, graph.bottom - 1})
            for (int x : {0, graph.right / 3, graph.right - 1})
                EXPECT_EQ(at(view, x, y), pixel(x, y) & 0xffffff) << x << "," << y;
        ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    }
}

// The strip shows its arrow buttons and is scrolled so that the current
// tab, band 38, is in view and stands out from its neighbour.
TEST_F(EditorPicturesTest, FortyBandsShowAScrollingTabStrip) {
    openEditorIn(1000, 620);
    for (int i = 4; i < 40; ++i)
        ASSERT_TRUE(appendBand(instance, createDesignedBand(Band, 20.0 * std::pow(1000.0, i / 40.0),
                                                            1.0, 1.0, instance->sampleRate)));
    instance->refreshRequested = 1;  // as after a state from the host
    advanceClock(40);
    HWND tabs = control(kBandTabs);
    ASSERT_TRUE(kobal_layer::clickTab(tabs, 37));
    advanceClock(40);
    EXPECT_EQ(kobal_layer::tabHeaderRect(tabs, 0).right, 0);  // scrolled away
    save("editor_40_bands.png");
    const RECT left = kobal_layer::tabScrollButtonRect(tabs, -1);
    ASSERT_GT(left.right, 0);
    // A triangle pointing left: a tall base on the right, a one-pixel tip.
    const int x = (left.left + left.right) / 2, y = (left.top + left.bottom) / 2;
    const uint32_t arrow = at(tabs, x, y);
    EXPECT_EQ(at(tabs, x + 2, y - 4), arrow);
    EXPECT_NE(at(tabs, x - 2, y - 4), arrow);
    EXPECT_NE(at(tabs, left.left + 3, left.top + 3), arrow);
    const RECT current = kobal_layer::tabHeaderRect(tabs, 37);
    const RECT before = kobal_layer::tabHeaderRect(tabs, 36);
    ASSERT_GT(current.right, 0);
    ASSERT_GT(before.right, 0);
    EXPECT_NE(at(tabs, current.left + 3, current.top + 3), at(tabs, before.left + 3, before.top + 3));
}

// The red disc of the selected band 3 and the readout box beside the pointer.
TEST_F(EditorPicturesTest, ShapedBandsPhaseSpectraAndReadoutAreShown) {
    openEditorIn(kHostWidth, kHostHeight);
    setBand(0, LowShelf, 120.0, 2.0, 1.0);
    setBand(1, Band, 400.0, 0.4, 1.5);
    setBand(2, Band, 2500.0, 2.5, 0.7);
    setBand(3, HighPass, 9000.0, 1.0, 1.0, false);
    instance->viewFlags |= kViewShowPhase;
    instance->selectedBand = 2;
    // A chord with some noise, through the equalizer.
    std::vector<double> chord(4096);
    uint32_t noise = 12345;
    for (size_t i = 0; i < chord.size(); ++i) {
        noise = noise * 1664525u + 1013904223u;
        const double t = 2.0 * std::numbers::pi * static_cast<double>(i) / 44100.0;
        chord[i] = 0.3 * std::sin(220 * t) + 0.1 * std::sin(3300 * t) +
                   0.05 * (static_cast<double>(noise) / 4294967296.0 - 0.5);
    }
    process(chord);
    process(chord);
    const RECT graph = graphClient();
    const int x = static_cast<int>(std::log(2480.0 / 23980.0 * 400.0 + 1.0) * graph.right /
                                   5.993961427306569);
    const int y = graph.bottom -
                  static_cast<int>((std::log10(2.5) * 20.0 + 12.0) * graph.bottom / 24.0);
    kobal_layer::moveMouse(screenPoint(x, y));
    ASSERT_EQ(instance->hoverBand, 2);
    kobal::InvalidateRect(view, nullptr, 1);
    save("response_view_editor.png");
    EXPECT_NE(instance->spectrumDrawnTick, 0u);
    int red = 0, readout = 0;
    const uint32_t readoutBackground = kobal::GetSysColor(8) & 0xffffff;
    for (int dy = -6; dy <= 6; ++dy)
        for (int dx = -6; dx <= 6; ++dx) red += at(view, x + dx, y + dy) == 0xff2222;
    for (int dy = 10; dy < 20; ++dy)
        for (int dx = 32; dx < 80; ++dx) readout += at(view, x + dx, y + dy) == readoutBackground;
    EXPECT_GT(red, 50);
    EXPECT_GT(readout, 150);
}

}  // namespace
