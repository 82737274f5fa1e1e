// Pictures of the open editor, as a person sees it: as opened, without the
// tabs, and with forty bands in a scrolling tab strip.
#include <cairo.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "engine/band_list.h"
#include "engine/eq_band.h"
#include "host/ui/tab_control.h"

#include "editor/editor_controls.h"
#include "host/ui/input_injection.h"
#include "host/ui/screenshot.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

class EditorScreenshotTest : public EditorDialogTest {
protected:
    std::string picturePath(const char* name) const {
        std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
        return std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + name;
    }
    // Saves the host window and reads the file back at the window's size.
    void expectSavedPicture(const char* name) {
        const std::string path = picturePath(name);
        ASSERT_TRUE(kobal_layer::saveScreenshot(hostWindow, path));
        cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
        RECT client{};
        kobal::GetClientRect(hostWindow, &client);
        EXPECT_EQ(cairo_image_surface_get_width(image), client.right);
        EXPECT_EQ(cairo_image_surface_get_height(image), client.bottom);
        cairo_surface_destroy(image);
    }
};

// Written with the tabs, then without them (the tall graph).
TEST_F(EditorScreenshotTest, OpenEditorRendersWithAndWithoutTabsAndIsWrittenAsPng) {
    openEditorIn(1000, 620);
    for (const char* name : {"editor_open.png", "editor_without_tabs.png"}) {
        advanceClock(40);
        expectSavedPicture(name);
        ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    }
}

// The tab strip shows its arrow buttons, scrolled so that band 38 is in view.
TEST_F(EditorScreenshotTest, FortyBandsShowAScrollingTabStrip) {
    openEditorIn(1000, 620);
    for (int i = 4; i < 40; ++i)
        ASSERT_TRUE(appendBand(instance, createDesignedBand(Band, 20.0 * std::pow(1000.0, i / 40.0), 1.0, 1.0,
                                                            instance->sampleRate)));
    instance->refreshRequested = 1;  // as after a state from the host
    advanceClock(40);
    ASSERT_TRUE(kobal_layer::clickTab(control(kBandTabs), 37));
    advanceClock(40);
    EXPECT_GT(kobal_layer::tabScrollButtonRect(control(kBandTabs), -1).right, 0);
    EXPECT_EQ(kobal_layer::tabHeaderRect(control(kBandTabs), 0).right, 0);  // scrolled away
    expectSavedPicture("editor_40_bands.png");
}

}  // namespace
