// The resources as a person meets them: the context menu the layer loads
// and pictures of the two dialogs (written to the screenshot directory).
#include <gtest/gtest.h>

#include <cairo.h>

#include <filesystem>
#include <string>

#include "editor/resources.h"
#include "host/raster/canvas.h"
#include "host/ui/menus.h"
#include "host/ui/screenshot.h"
#include "plugin/ui_layer.h"
#include "tests/editor/host_layer_binding.h"

namespace {

struct ExpectedItem {
    const char* text;  // null for a separator
    UINT commandId;
};

const ExpectedItem kContextItems[] = {
    {"Add new band", 40001},
    {"Delete band", 40002},
    {nullptr, 0},
    {"Reset band to +0dB", 40004},
    {"Reset all bands to +0dB", 40015},
    {"Flip all bands", 40016},
    {"Enable band", 40003},
    {nullptr, 0},
    {"Band type: Low Shelf", 40006},
    {"Band type: High Shelf", 40007},
    {"Band type: Band", 40014},
    {"Band type: LowPass", 40009},
    {"Band type: HiPass", 40010},
    {"Band type: AllPass", 40011},
    {"Band type: Notch", 40012},
    {"Band type: Bandpass", 40013},
    {nullptr, 0},
    {"Band type: Band (Old deprecated)", 40008},
};

class ResourceRenderingTest : public ::testing::Test {
protected:
    void SetUp() override { bindHostLayerOnce(); }
};

TEST_F(ResourceRenderingTest, ContextMenuLoadsAsOnePopupNamedContextAndUnknownIdsNothing) {
    HMENU menu = kobal::KOBAL_LoadMenu(menuResourceList, kContextMenuResource);
    ASSERT_NE(menu, nullptr);
    const kobal_layer::MenuView view = kobal_layer::describeMenu(menu);
    ASSERT_EQ(view.size(), 1u);
    EXPECT_TRUE(view[0].isPopup);
    EXPECT_EQ(view[0].text, "Context");
    ASSERT_EQ(view[0].popup.size(), std::size(kContextItems));  // 15 commands, 3 separators
    for (size_t i = 0; i < std::size(kContextItems); ++i) {
        const kobal_layer::MenuItemView& item = view[0].popup[i];
        SCOPED_TRACE("item " + std::to_string(i));
        if (kContextItems[i].text == nullptr) {
            EXPECT_TRUE(item.separator);
            continue;
        }
        EXPECT_FALSE(item.separator);
        EXPECT_EQ(item.text, kContextItems[i].text);
        EXPECT_EQ(item.commandId, kContextItems[i].commandId);
        EXPECT_TRUE(item.enabled);
    }
    EXPECT_NE(kobal::GetSubMenu(menu, 0), nullptr);
    kobal::DestroyMenu(menu);
    EXPECT_EQ(kobal::KOBAL_LoadMenu(menuResourceList, 105), nullptr);  // unknown id
}

// Writes a picture of the dialog and reads it back.
void expectReadableScreenshot(int resourceId, const char* fileName, int width, int height) {
    HWND dialog = kobal::KOBAL_CreateDialog(dialogResourceList, resourceId, nullptr,
                                            ignoringDialogProcedure, 0);
    ASSERT_NE(dialog, nullptr);
    kobal::ShowWindow(dialog, SW_SHOW);
    const std::filesystem::path directory = OMBRO_TEST_OUTPUT_DIR;
    std::filesystem::create_directories(directory);
    const std::string path = (directory / fileName).string();
    ASSERT_TRUE(kobal_layer::saveScreenshot(dialog, path));
    kobal::DestroyWindow(dialog);

    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    ASSERT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
    EXPECT_EQ(cairo_image_surface_get_width(image), width);
    EXPECT_EQ(cairo_image_surface_get_height(image), height);
    cairo_surface_destroy(image);
}

TEST_F(ResourceRenderingTest, DialogPicturesAreWritten) {
    expectReadableScreenshot(kEditorDialogResource, "editor_dialog_101.png", 596, 368);
    expectReadableScreenshot(kBandPanelResource, "band_panel_103.png", 504, 144);
}

}  // namespace
