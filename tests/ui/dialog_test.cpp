// Dialogs built from resource lists laid out as the plug-in lays them out.
#include <cstring>

#include "host/ui/combo_box.h"
#include "host/ui/custom_controls.h"
#include "host/ui/dialog_items.h"
#include "host/ui/dialogs.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

constexpr int kGraphId = 30;

const ControlRecord kTestControls[] = {
    {"Apply", 10, 0, "Button", 0x10000, 10, 20, 40, 14, 0},
    {"Loud", 11, 0, "Button", 0x10003, 10, 40, 50, 10, 0},
    {kMarkerEdit, 0, 0, "12.5", 12, 60, 20, 30, 14, 0x1},
    {kMarkerLabel, -1, 0, "Level:", 13, 60, 40, 30, 8, 0},
    {kMarkerCombo, 0, 0, "", 14, 100, 20, 50, 80, 0x210003},
    {kMarkerGroup, 0, 0, "Options", 15, 0, 0, 200, 100, 0},
    {kMarkerButton, 0, 0, "Press", 16, 100, 40, 30, 14, 0},
    {"", kGraphId, 0, "TestGraph", 0x10000, 4, 2, 20, 10, 0},
    {"", 19, 0, "NoSuchClass", 0, 150, 2, 10, 10, 0},
};

void createTestDialog(HWND window, int32_t) {
    KOBAL_MakeSetCurParms(1.7f, 1.7f, 0, 0, window, false, true);
    KOBAL_GenerateDialogFromList(kTestControls, std::size(kTestControls));
}

const ControlRecord kInnerControls[] = {{kMarkerLabel, 0, 0, "Inner", 40, 0, 0, 20, 8, 0}};

void createInnerDialog(HWND window, int32_t) {
    KOBAL_MakeSetCurParms(2.0f, 2.0f, 0, 0, window, false, true);
    KOBAL_GenerateDialogFromList(kInnerControls, 1);
}

DialogResource innerResource{201, "", 13, 0, createInnerDialog, 60, 40, nullptr};
DialogResource testResource{200, "Test dialog", 13, 0, createTestDialog, 400, 200, &innerResource};

HWND createGraph(HWND parent, const char*, int id, const char* className, int, int x, int y,
                 int width, int height) {
    if (std::strcmp(className, "TestGraph") != 0) return nullptr;
    HWND graph = KOBAL_CreateDialog(&testResource, 0, parent, recordingWindowProcedure, 0);
    SetWindowLong(graph, GWL_ID, id);
    SetWindowPos(graph, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(graph, SW_SHOW);
    return graph;
}

HWND declineEverything(HWND, const char*, int, const char*, int, int, int, int, int) {
    return nullptr;
}

class Dialogs : public UiLayerTest {
protected:
    void SetUp() override {
        UiLayerTest::SetUp();
        KOBAL_RegisterCustomControlCreator(declineEverything);
        KOBAL_RegisterCustomControlCreator(createGraph);
    }
    void TearDown() override {
        KOBAL_UnregisterCustomControlCreator(createGraph);
        KOBAL_UnregisterCustomControlCreator(declineEverything);
        UiLayerTest::TearDown();
    }
    HWND dialog(int id = 200, LPARAM parameter = 0) {
        return KOBAL_CreateDialog(&testResource, id, hostWindow(), recordingDialogProcedure,
                                  parameter);
    }
    // The window's rectangle in its parent's client coordinates.
    static RECT placed(HWND window) {
        RECT rect{};
        GetWindowRect(window, &rect);
        POINT origin{rect.left, rect.top};
        ScreenToClient(GetParent(window), &origin);
        return RECT{origin.x, origin.y, origin.x + rect.right - rect.left,
                    origin.y + rect.bottom - rect.top};
    }
};

TEST_F(Dialogs, DialogHasItsSizeAndControlsThenInitDialogWithTheCreationParameter) {
    int parameter = 7;
    HWND made = dialog(200, reinterpret_cast<LPARAM>(&parameter));
    RECT client{};
    GetClientRect(made, &client);
    EXPECT_EQ(client, (RECT{0, 0, 400, 200}));
    EXPECT_EQ(made->children.size(), std::size(kTestControls));
    EXPECT_EQ(GetDlgItem(made, 99), nullptr);
    EXPECT_FALSE(IsWindowVisible(made));  // until the dialog shows itself
    auto inits = recordedOf(WM_INITDIALOG);
    ASSERT_EQ(inits.size(), 1u);
    EXPECT_EQ(inits[0].window, made);
    EXPECT_EQ(GetWindowLong(made, GWL_USERDATA), reinterpret_cast<LPARAM>(&parameter));
    // Without a resource of its id the window is a plain hidden child.
    HWND plain = KOBAL_CreateDialog(&testResource, 0, made, recordingWindowProcedure, 5);
    EXPECT_EQ(GetParent(plain), made);
    EXPECT_FALSE(IsWindowVisible(plain));
    EXPECT_TRUE(plain->children.empty());
    EXPECT_EQ(recordedOf(WM_INITDIALOG).size(), 1u);
}

TEST_F(Dialogs, ControlsArePlacedInScaledDialogUnitsAsStandardOrCustomControls) {
    HWND made = dialog();
    struct Case {
        int id;
        RECT rect;  // scaled by 1.7 and rounded
        const char* className;
    };
    for (const Case& c :
         {Case{10, RECT{17, 34, 85, 58}, "Button"}, Case{12, RECT{102, 34, 153, 58}, "Edit"},
          Case{13, RECT{102, 68, 153, 82}, "Static"},
          Case{14, RECT{170, 34, 255, 34 + kComboFieldHeight}, "ComboBox"},
          Case{15, RECT{0, 0, 340, 170}, "Button"}, Case{kGraphId, RECT{7, 3, 41, 20}, "TestGraph"},
          Case{19, RECT{255, 3, 272, 20}, "NoSuchClass"}}) {
        HWND control = GetDlgItem(made, c.id);
        ASSERT_NE(control, nullptr) << c.id;
        EXPECT_EQ(placed(control), c.rect) << c.id;
        if (c.id != kGraphId) {
            EXPECT_EQ(control->className, c.className) << c.id;
        }
    }
    EXPECT_EQ(GetDlgItem(made, 13)->text, "Level:");
    EXPECT_EQ(GetDlgItem(made, 15)->style & 0xF, 7u);                    // BS_GROUPBOX
    EXPECT_EQ(GetWindowLong(GetDlgItem(made, 11), GWL_STYLE) & 0xF, 3);  // BS_AUTOCHECKBOX
    char text[8];
    GetDlgItemText(made, 12, text, sizeof text);
    EXPECT_STREQ(text, "12.5");
    HWND graph = GetDlgItem(made, kGraphId);
    EXPECT_EQ(GetWindowLong(graph, GWL_WNDPROC),
              reinterpret_cast<LONG_PTR>(recordingWindowProcedure));
    EXPECT_TRUE(graph->visible);  // the creator showed it
    // A later resource of the list is found and scaled its own way.
    HWND inner = dialog(201);
    EXPECT_EQ(placed(GetDlgItem(inner, 40)), (RECT{0, 0, 40, 16}));
    // Without "do size" only positions are scaled (and offset).
    HWND host = hostWindow();
    KOBAL_MakeSetCurParms(2.0f, 3.0f, 5, 6, host, true, false);
    const ControlRecord label{kMarkerLabel, -1, 0, "x", 50, 10, 10, 20, 8, 0};
    KOBAL_GenerateDialogFromList(&label, 1);
    EXPECT_EQ(placed(GetDlgItem(host, 50)), (RECT{25, 36, 25 + 20, 36 + 8}));
}

TEST_F(Dialogs, UnregisteredCreatorsAreNoLongerAsked) {
    KOBAL_UnregisterCustomControlCreator(createGraph);
    HWND graph = GetDlgItem(dialog(), kGraphId);
    EXPECT_EQ(graph->className, "TestGraph");
    EXPECT_EQ(graph->procedure, nullptr);
    KOBAL_UnregisterCustomControlCreator(createGraph);  // twice is harmless
}

TEST_F(Dialogs, DestroyingTheDialogDestroysItsControls) {
    HWND made = dialog();
    HWND graph = GetDlgItem(made, kGraphId);
    HWND edit = GetDlgItem(made, 12);
    recordedMessages().clear();
    DestroyWindow(made);
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_FALSE(IsWindow(graph));
    auto destroys = recordedOf(WM_DESTROY);
    ASSERT_EQ(destroys.size(), 2u);  // the two recording procedures
    EXPECT_EQ(destroys[0].window, made);
    EXPECT_EQ(destroys[1].window, graph);
}

}  // namespace
