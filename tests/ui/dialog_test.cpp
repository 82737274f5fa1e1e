// Dialogs built from resource lists laid out as the plug-in lays them out.
#include <cstring>

#include "host/ui/custom_controls.h"
#include "host/ui/dialog_items.h"
#include "host/ui/dialogs.h"
#include "host/ui/messages.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

constexpr int kCustomId = 30;

const ControlRecord kTestControls[] = {
    {"Apply", 10, 0, "Button", 0x10000, 10, 20, 40, 14, 0},
    {"Loud", 11, 0, "Button", 0x10003, 10, 40, 50, 10, 0},
    {kMarkerEdit, 0, 0, "12.5", 12, 60, 20, 30, 14, 0x1},
    {kMarkerLabel, -1, 0, "Level:", 13, 60, 40, 30, 8, 0},
    {kMarkerCombo, 0, 0, "", 14, 100, 20, 50, 80, 0x210003},
    {kMarkerGroup, 0, 0, "Options", 15, 0, 0, 200, 100, 0},
    {kMarkerButton, 0, 0, "Press", 16, 100, 40, 30, 14, 0},
    {"", 17, 0, "SysTabControl32", 0x10000, 5, 60, 100, 30, 0},
    {"", 18, 0, "HARVINhfader", 0x10000, 110, 60, 60, 14, 0},
    {"", kCustomId, 0, "TestGraph", 0x10000, 4, 2, 20, 10, 0},
    {"", 19, 0, "NoSuchClass", 0, 150, 2, 10, 10, 0},
};
constexpr int kTestControlCount = sizeof(kTestControls) / sizeof(kTestControls[0]);

void createTestDialog(HWND window, int32_t creationState) {
    KOBAL_MakeSetCurParms(1.7f, 1.7f, 0, 0, window, false, (creationState & 8) == 0);
    KOBAL_GenerateDialogFromList(kTestControls, kTestControlCount);
}

const ControlRecord kInnerControls[] = {
    {kMarkerLabel, 0, 0, "Inner", 40, 0, 0, 20, 8, 0},
};

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
    HWND testDialog(LPARAM parameter = 0) {
        return KOBAL_CreateDialog(&testResource, 200, hostWindow(), recordingDialogProcedure,
                                  parameter);
    }
    RECT rectOf(HWND window) {
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
    HWND dialog = testDialog(reinterpret_cast<LPARAM>(&parameter));
    ASSERT_NE(dialog, nullptr);
    RECT client{};
    GetClientRect(dialog, &client);
    EXPECT_EQ(client, (RECT{0, 0, 400, 200}));
    EXPECT_EQ(dialog->children.size(), 11u);
    for (int id : {10, 11, 12, 13, 14, 15, 16, 17, 18, kCustomId, 19})
        EXPECT_NE(GetDlgItem(dialog, id), nullptr) << id;
    EXPECT_EQ(GetDlgItem(dialog, 99), nullptr);
    EXPECT_FALSE(IsWindowVisible(dialog));  // until the dialog shows itself
    auto inits = recordedOf(WM_INITDIALOG);
    ASSERT_EQ(inits.size(), 1u);
    EXPECT_EQ(inits[0].window, dialog);
    EXPECT_EQ(inits[0].lParam, reinterpret_cast<LPARAM>(&parameter));
    EXPECT_EQ(GetWindowLong(dialog, GWL_USERDATA), reinterpret_cast<LPARAM>(&parameter));
}

TEST_F(Dialogs, ControlsArePlacedInScaledDialogUnitsAsStandardOrCustomControls) {
    HWND dialog = testDialog();
    // 10, 20, 40 × 14 units at 1.7: 17, 34, 68 × 23.8 → 24 pixels.
    EXPECT_EQ(rectOf(GetDlgItem(dialog, 10)), (RECT{17, 34, 17 + 68, 34 + 24}));
    // The marker records carry their id and rectangle one field further on.
    RECT edit = rectOf(GetDlgItem(dialog, 12));
    EXPECT_EQ(edit.left, 102);
    EXPECT_EQ(edit.right - edit.left, 51);
    RECT group = rectOf(GetDlgItem(dialog, 15));
    EXPECT_EQ(group.right, 340);
    EXPECT_EQ(group.bottom, 170);
    char text[32];
    GetDlgItemText(dialog, 12, text, sizeof text);
    EXPECT_STREQ(text, "12.5");
    EXPECT_EQ(GetDlgItem(dialog, 12)->className, "Edit");
    EXPECT_EQ(GetDlgItem(dialog, 13)->className, "Static");
    EXPECT_EQ(GetDlgItem(dialog, 13)->text, "Level:");
    EXPECT_EQ(GetDlgItem(dialog, 14)->className, "ComboBox");
    EXPECT_EQ(GetDlgItem(dialog, 15)->style & 0xF, 7u);  // BS_GROUPBOX
    EXPECT_EQ(GetDlgItem(dialog, 16)->text, "Press");
    EXPECT_EQ(GetWindowLong(GetDlgItem(dialog, 11), GWL_STYLE) & 0xF, 3);  // BS_AUTOCHECKBOX
    HWND graph = GetDlgItem(dialog, kCustomId);
    ASSERT_NE(graph, nullptr);
    EXPECT_EQ(GetWindowLong(graph, GWL_WNDPROC),
              reinterpret_cast<LONG_PTR>(recordingWindowProcedure));
    EXPECT_TRUE(graph->visible);  // the creator showed it
    RECT rect = rectOf(graph);
    EXPECT_EQ(rect.left, 7);  // 4 × 1.7 = 6.8
    EXPECT_EQ(rect.right - rect.left, 34);
    // A class nobody knows still yields a plain window.
    EXPECT_EQ(GetDlgItem(dialog, 19)->className, "NoSuchClass");
}

TEST_F(Dialogs, UnregisteredCreatorsAreNoLongerAsked) {
    KOBAL_UnregisterCustomControlCreator(createGraph);
    HWND dialog = testDialog();
    EXPECT_EQ(GetDlgItem(dialog, kCustomId)->className, "TestGraph");
    EXPECT_EQ(GetDlgItem(dialog, kCustomId)->procedure, nullptr);
    KOBAL_UnregisterCustomControlCreator(createGraph);  // twice is harmless
}

TEST_F(Dialogs, WithoutAResourceTheWindowIsAPlainHiddenChild) {
    HWND host = hostWindow();
    HWND plain = KOBAL_CreateDialog(&testResource, 0, host, recordingWindowProcedure, 5);
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(GetParent(plain), host);
    EXPECT_FALSE(IsWindowVisible(plain));
    EXPECT_TRUE(recordedOf(WM_INITDIALOG).empty());
    EXPECT_TRUE(plain->children.empty());
    EXPECT_NE(KOBAL_CreateDialog(nullptr, 200, host, recordingWindowProcedure, 0), nullptr);
}

TEST_F(Dialogs, LaterResourcesInTheListAreFoundAndScaledTheirOwnWay) {
    HWND inner = KOBAL_CreateDialog(&testResource, 201, hostWindow(), recordingDialogProcedure, 0);
    RECT client{};
    GetClientRect(inner, &client);
    EXPECT_EQ(client.right, 60);
    RECT label = rectOf(GetDlgItem(inner, 40));
    EXPECT_EQ(label.right, 40);
    EXPECT_EQ(label.bottom, 16);
}

TEST_F(Dialogs, WithoutDoSizeOnlyPositionsAreScaled) {
    HWND host = hostWindow();
    KOBAL_MakeSetCurParms(2.0f, 3.0f, 5, 6, host, true, false);
    const ControlRecord label{kMarkerLabel, -1, 0, "x", 50, 10, 10, 20, 8, 0};
    KOBAL_GenerateDialogFromList(&label, 1);
    // At 10 × 2 + 5, 10 × 3 + 6, and 20 × 8 as given.
    EXPECT_EQ(rectOf(GetDlgItem(host, 50)), (RECT{25, 36, 25 + 20, 36 + 8}));
}

TEST_F(Dialogs, DestroyingTheDialogDestroysItsControls) {
    HWND dialog = testDialog();
    HWND graph = GetDlgItem(dialog, kCustomId);
    HWND edit = GetDlgItem(dialog, 12);
    recordedMessages().clear();
    DestroyWindow(dialog);
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_FALSE(IsWindow(graph));
    auto destroys = recordedOf(WM_DESTROY);
    ASSERT_EQ(destroys.size(), 2u);  // the two recording procedures
    EXPECT_EQ(destroys[0].window, dialog);
    EXPECT_EQ(destroys[1].window, graph);
}

}  // namespace
