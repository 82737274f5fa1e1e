// The plug-in's dialog and menu resources as the stand-in layer builds them:
// every control's id, text, class and place, the context menu's items, and
// pictures of the two dialogs in the screenshot directory.

#include <cairo.h>

#include <cmath>
#include <filesystem>

#include "editor/resources.h"
#include "host/ui/menus.h"
#include "host/ui/screenshot.h"
#include "host/ui/window_tree.h"
#include "tests/editor/editor_fixture.h"

namespace {

struct ExpectedControl {
    int id;
    const char* text;
    const char* className;
    int x, y, width, height;  // dialog units
};

const std::vector<ExpectedControl> kEditorDialogControls = {
    {1026, "Bands", "SysTabControl32", 9, 90, 308, 102},
    {1034, "Ombro", "Button", 0, 0, 349, 213},
    {1028, "", "Static", 17, 107, 296, 83},
    {1018, "Add band", "Button", 9, 194, 46, 14},
    {1019, "Remove band", "Button", 57, 194, 53, 14},
    {1029, "Show tabs", "Button", 179, 196, 47, 10},
    {1022, "Show grid", "Button", 231, 196, 45, 10},
    {1023, "", "OmbroWindow", 8, 11, 310, 74},
    {1047, "", "HARVINvfader", 324, 22, 14, 152},
    {1011, "", "Edit", 321, 178, 22, 14},
    {1079, "Gain:", "Static", 324, 11, 18, 8},
    {1020, "Reset defaults", "Button", 113, 194, 62, 14},
    {1024, "Show phase", "Button", 281, 196, 59, 10},
};

const std::vector<ExpectedControl> kBandPanelControls = {
    {1023, "", "HARVINhfader", 58, 18, 149, 14},
    {0, "Frequency (Hz):", "Static", 2, 21, 51, 8},
    {1019, "", "Edit", 210, 18, 35, 14},
    {0, "Type:", "Static", 55, 4, 19, 8},
    {1015, "", "ComboBox", 77, 2, 91, 146},
    {1024, "", "HARVINhfader", 58, 35, 149, 14},
    {0, "Gain (dB):", "Static", 21, 38, 32, 8},
    {1020, "", "Edit", 210, 35, 35, 14},
    {1025, "", "HARVINhfader", 58, 52, 149, 14},
    {0, "Bandwidth (oct):", "Static", 2, 56, 52, 8},
    {1021, "", "Edit", 210, 52, 35, 14},
    {1022, "Enabled", "Button", 1, 3, 40, 10},
    {1027, "", "Edit", 247, 18, 35, 14},
    {1029, "Log-scale automated frequencies", "Button", 175, 3, 117, 10},
    {500, "Static", "Static", 1, 74, 291, 8},
};

LRESULT ignoreMessages(HWND, UINT, WPARAM, LPARAM) { return 0; }

// Dialog units become pixels at 1.7 per unit; the layer rounds.
int pixels(int dialogUnits) { return static_cast<int>(std::lround(dialogUnits * 1.7)); }

struct DialogCase {
    int resourceId;
    const std::vector<ExpectedControl>& controls;
    int width, height;
    const char* picture;
};

TEST(DialogResourcesTest, DialogsHaveTheirControlsInOrderAndTheirPicturesTheirSize) {
    bindHostLayerOnce();
    const DialogCase dialogs[] = {
        {kEditorDialogResource, kEditorDialogControls, 596, 368, "editor_dialog_101.png"},
        {kBandPanelResource, kBandPanelControls, 504, 144, "band_panel_103.png"}};
    std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
    for (const DialogCase& dialog : dialogs) {
        HWND window = kobal::KOBAL_CreateDialog(dialogResourceList, dialog.resourceId, nullptr,
                                                ignoreMessages, 0);
        ASSERT_NE(window, nullptr);
        const std::vector<KobalWindow*>& children = kobal_layer::liveWindow(window)->children;
        ASSERT_EQ(children.size(), dialog.controls.size());
        for (size_t i = 0; i < children.size(); ++i) {
            const ExpectedControl& want = dialog.controls[i];
            SCOPED_TRACE("control #" + std::to_string(i + 1) + " \"" + want.text + "\"");
            EXPECT_EQ(kobal::GetWindowLong(children[i], GWL_ID), want.id);
            EXPECT_EQ(children[i]->text, want.text);
            EXPECT_EQ(children[i]->className, want.className);
            const RECT rect = rectInParent(children[i]);
            EXPECT_NEAR(rect.left, pixels(want.x), 1);
            EXPECT_NEAR(rect.top, pixels(want.y), 1);
            EXPECT_NEAR(rect.right - rect.left, pixels(want.width), 1);
            // A combo box's height is that of its open list; the layer shows it closed.
            if (children[i]->className != "ComboBox") {
                EXPECT_NEAR(rect.bottom - rect.top, pixels(want.height), 1);
            }
        }
        kobal::ShowWindow(window, SW_SHOW);
        const std::string path = std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + dialog.picture;
        ASSERT_TRUE(kobal_layer::saveScreenshot(window, path));
        kobal::DestroyWindow(window);
        cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
        EXPECT_EQ(cairo_image_surface_get_width(image), dialog.width);
        EXPECT_EQ(cairo_image_surface_get_height(image), dialog.height);
        cairo_surface_destroy(image);
    }
}

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

TEST(DialogResourcesTest, ContextMenuLoadsAsOnePopupNamedContextAndUnknownIdsNothing) {
    bindHostLayerOnce();
    HMENU menu = kobal::KOBAL_LoadMenu(menuResourceList, kContextMenuResource);
    ASSERT_NE(menu, nullptr);
    const kobal_layer::MenuView view = kobal_layer::describeMenu(menu);
    ASSERT_EQ(view.size(), 1u);
    EXPECT_EQ(view[0].text, "Context");
    ASSERT_EQ(view[0].popup.size(), std::size(kContextItems));
    for (size_t i = 0; i < std::size(kContextItems); ++i) {
        SCOPED_TRACE("item " + std::to_string(i));
        const kobal_layer::MenuItemView& item = view[0].popup[i];
        EXPECT_EQ(item.separator, kContextItems[i].text == nullptr);
        if (item.separator) continue;
        EXPECT_EQ(item.text, kContextItems[i].text);
        EXPECT_EQ(item.commandId, kContextItems[i].commandId);
    }
    kobal::DestroyMenu(menu);
    EXPECT_EQ(kobal::KOBAL_LoadMenu(menuResourceList, 105), nullptr);
}

}  // namespace
