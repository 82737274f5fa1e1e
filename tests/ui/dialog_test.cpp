// Dialogs built from resource lists laid out as the plug-in lays them out.
#include "host/ui/combo_box.h"
#include "host/ui/dialog_items.h"
#include "host/ui/dialogs.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

const ControlRecord kTestControls[] = {
    {"Apply", 10, 0, "Button", 0x10000, 10, 20, 40, 14, 0},
    {kMarkerEdit, 0, 0, "12.5", 12, 60, 20, 30, 14, 0x1},
    {kMarkerLabel, -1, 0, "Level:", 13, 60, 40, 30, 8, 0},
    {kMarkerCombo, 0, 0, "", 14, 100, 20, 50, 80, 0x210003},
    {kMarkerGroup, 0, 0, "Options", 15, 0, 0, 200, 100, 0},
    {"", 19, 0, "NoSuchClass", 0, 150, 2, 10, 10, 0},
};

void createTestDialog(HWND window, int32_t) {
    KOBAL_MakeSetCurParms(1.7f, 1.7f, 0, 0, window, false, true);
    KOBAL_GenerateDialogFromList(kTestControls, std::size(kTestControls));
}

DialogResource testResource{200, "Test dialog", 13, 0, createTestDialog, 400, 200, nullptr};

class Dialogs : public UiLayerTest {};

TEST_F(Dialogs, ControlsArePlacedInScaledDialogUnitsBeforeInitDialogGetsTheParameter) {
    int parameter = 7;
    HWND dialog = KOBAL_CreateDialog(&testResource, 200, hostWindow(), recordingDialogProcedure,
                                     reinterpret_cast<LPARAM>(&parameter));
    EXPECT_EQ(windowHeight(*dialog), 200);
    EXPECT_FALSE(IsWindowVisible(dialog));  // until the dialog shows itself
    ASSERT_EQ(recordedOf(WM_INITDIALOG).size(), 1u);
    EXPECT_EQ(GetWindowLong(dialog, GWL_USERDATA), reinterpret_cast<LPARAM>(&parameter));
    struct Case {
        int id;
        RECT rect;  // in the dialog, scaled by 1.7 and rounded
        const char* className;
    };
    for (const Case& c :
         {Case{10, RECT{17, 34, 85, 58}, "Button"}, Case{12, RECT{102, 34, 153, 58}, "Edit"},
          Case{13, RECT{102, 68, 153, 82}, "Static"},
          Case{14, RECT{170, 34, 255, 34 + kComboFieldHeight}, "ComboBox"},
          Case{15, RECT{0, 0, 340, 170}, "Button"},
          Case{19, RECT{255, 3, 272, 20}, "NoSuchClass"}}) {
        HWND control = GetDlgItem(dialog, c.id);
        ASSERT_NE(control, nullptr) << c.id;
        RECT rect{};
        GetWindowRect(control, &rect);
        EXPECT_EQ(rect, (RECT{kHostLeft + c.rect.left, kHostTop + c.rect.top,
                              kHostLeft + c.rect.right, kHostTop + c.rect.bottom}))
            << c.id;
        EXPECT_EQ(control->className, c.className) << c.id;
    }
    EXPECT_EQ(GetDlgItem(dialog, 15)->style & 0xF, 7u);  // BS_GROUPBOX
    EXPECT_EQ(GetDlgItem(dialog, 12)->text, "12.5");
    // Without a resource of its id the window is a plain hidden child.
    HWND plain = KOBAL_CreateDialog(&testResource, 0, dialog, recordingWindowProcedure, 5);
    EXPECT_FALSE(IsWindowVisible(plain));
    EXPECT_TRUE(plain->children.empty());
}

}  // namespace
