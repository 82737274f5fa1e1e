// Pictures of the open editor in the screenshot directory, for a person to
// look at, each read back to see that it shows what the editor shows.
#include <cairo.h>

#include <cmath>
#include <filesystem>
#include <memory>
#include <numbers>

#include "engine/band_list.h"
#include "host/ui/input_injection.h"
#include "host/ui/screenshot.h"
#include "host/ui/tab_control.h"
#include "tests/editor/editor_fixture.h"

namespace {

class EditorPicturesTest : public EditorTest {
protected:
    // Writes the host window's picture and reads it back.
    void save(const char* name) {
        std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
        const std::string path = std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + name;
        ASSERT_TRUE(kobal_layer::saveScreenshot(hostWindow, path));
        image.reset(cairo_image_surface_create_from_png(path.c_str()));
        ASSERT_EQ(cairo_surface_status(image.get()), CAIRO_STATUS_SUCCESS);
    }
    // The picture's colour at a client point of `window`.
    uint32_t at(HWND window, int x, int y) const {
        const POINT p = kobal_layer::screenPointOf(window, POINT{x, y});
        const POINT origin = kobal_layer::screenPointOf(hostWindow, POINT{0, 0});
        const int column = p.x - origin.x, row = p.y - origin.y;
        if (column < 0 || row < 0 || column >= cairo_image_surface_get_width(image.get()) ||
            row >= cairo_image_surface_get_height(image.get()))
            return 0xdeadbeef;
        const unsigned char* line = cairo_image_surface_get_data(image.get()) +
                                    row * cairo_image_surface_get_stride(image.get());
        return reinterpret_cast<const uint32_t*>(line)[column] & 0xffffff;
    }
    RECT graphClient() const {
        RECT client{};
        kobal::GetClientRect(view, &client);
        return client;
    }
    // The picture shows the graph as last painted, top to bottom.
    void expectGraphShown() const {
        const RECT graph = graphClient();
        for (int y : {0, graph.bottom / 2, graph.bottom - 1})
            for (int x : {0, graph.right / 3, graph.right - 1})
                EXPECT_EQ(at(view, x, y), pixel(x, y) & 0xffffff) << x << "," << y;
    }
    std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> image{nullptr,
                                                                       cairo_surface_destroy};
};

// As opened; then with shaped bands, phase, spectra and the readout of
// band 3 under the pointer (its red disc, the box beside it); then without
// the tabs, the graph reaching down over where the strip was.
TEST_F(EditorPicturesTest, OpenEditorWithShapedBandsAndWithoutTabs) {
    openEditorIn(1000, 620);
    advanceClock(40);
    save("editor_open.png");
    expectGraphShown();
    setBand(0, LowShelf, 120.0, 2.0, 1.0);
    setBand(1, Band, 400.0, 0.4, 1.5);
    setBand(2, Band, 2500.0, 2.5, 0.7);
    setBand(3, HighPass, 9000.0, 1.0, 1.0, false);
    instance->viewFlags |= kViewShowPhase;
    instance->selectedBand = 2;
    std::vector<double> chord(4096);  // with a little noise
    for (size_t i = 0; i < chord.size(); ++i) {
        const double t = 2.0 * std::numbers::pi * static_cast<double>(i) / 44100.0;
        chord[i] = 0.3 * std::sin(220 * t) + 0.1 * std::sin(3300 * t) + 0.01 * std::sin(i * i);
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
    expectGraphShown();
    int red = 0, readout = 0;
    for (int dy = -6; dy <= 6; ++dy)
        for (int dx = -6; dx <= 6; ++dx) red += at(view, x + dx, y + dy) == 0xff2222;
    for (int dy = 10; dy < 20; ++dy)
        for (int dx = 32; dx < 80; ++dx)
            readout += at(view, x + dx, y + dy) == (kobal::GetSysColor(8) & 0xffffff);
    EXPECT_GT(red, 50);
    EXPECT_GT(readout, 150);
    kobal_layer::moveMouse(screenPoint(x, graph.bottom + 40));
    ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    advanceClock(40);
    save("editor_without_tabs.png");
    expectGraphShown();
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
    EXPECT_NE(at(tabs, current.left + 3, current.top + 3), at(tabs, before.left + 3, before.top + 3));
}

}  // namespace
