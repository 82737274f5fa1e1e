// The plug-in's dialog and menu resources: the lists registered at load time
// and the windows the stand-in layer generates from them.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "editor/resources.h"
#include "host/ui/window_tree.h"
#include "plugin/ui_layer.h"
#include "tests/editor/host_layer_binding.h"

namespace {

struct ExpectedControl {
    int id;
    const char* text;
    const char* className;
    int x, y, width, height;  // dialog units
};

// The editor dialog as its resource describes it.
const ExpectedControl kEditorDialogControls[] = {
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

// The band panel as its resource describes it.
const ExpectedControl kBandPanelControls[] = {
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

// Dialog units become pixels at 1.7 per unit; the layer rounds.
int pixels(int dialogUnits) { return static_cast<int>(std::lround(dialogUnits * 1.7)); }

struct GeneratedControl {
    std::string className;
    std::string text;
    LONG_PTR id;
    RECT rect;
};

std::vector<GeneratedControl> generatedControls(HWND dialog) {
    std::vector<GeneratedControl> controls;
    for (int i = 0; i < childCount(dialog); ++i) {
        HWND child = childAt(dialog, i);
        KobalWindow* record = kobal_layer::liveWindow(child);
        controls.push_back({record->className, record->text,
                            kobal::GetWindowLong(child, GWL_ID), rectInParent(child)});
    }
    return controls;
}

template <size_t N>
void expectControls(HWND dialog, const ExpectedControl (&expected)[N]) {
    const std::vector<GeneratedControl> controls = generatedControls(dialog);
    ASSERT_EQ(controls.size(), N);
    for (size_t i = 0; i < N; ++i) {
        const ExpectedControl& want = expected[i];
        const GeneratedControl& got = controls[i];
        SCOPED_TRACE("control #" + std::to_string(i + 1) + " \"" + want.text + "\"");
        EXPECT_EQ(got.id, want.id);
        EXPECT_EQ(got.text, want.text);
        EXPECT_EQ(got.className, want.className);
        EXPECT_NEAR(got.rect.left, pixels(want.x), 1);
        EXPECT_NEAR(got.rect.top, pixels(want.y), 1);
        EXPECT_NEAR(got.rect.right - got.rect.left, pixels(want.width), 1);
        // A combo box's height is that of its open list; the layer may show
        // it closed.
        if (got.className != "ComboBox")
            EXPECT_NEAR(got.rect.bottom - got.rect.top, pixels(want.height), 1);
    }
}

HWND createDialog(int resourceId) {
    return kobal::KOBAL_CreateDialog(dialogResourceList, resourceId, nullptr,
                                     ignoringDialogProcedure, 0);
}

class DialogResourcesTest : public ::testing::Test {
protected:
    void SetUp() override { bindHostLayerOnce(); }
};

TEST_F(DialogResourcesTest, ListsHoldTheBandPanelThenTheEditorDialogAndTheMenu) {
    ASSERT_NE(dialogResourceList, nullptr);
    const DialogResource& panel = *dialogResourceList;
    ASSERT_NE(panel.next, nullptr);
    const DialogResource& editor = *panel.next;
    EXPECT_EQ(panel.resourceId, 103);
    EXPECT_EQ(editor.resourceId, 101);
    EXPECT_EQ(editor.next, nullptr);
    for (const DialogResource* resource : {&editor, &panel}) {
        EXPECT_STREQ(resource->title, "");
        EXPECT_EQ(resource->windowTypeFlags, 13);
        EXPECT_NE(resource->create, nullptr);
    }
    EXPECT_EQ(editor.width, 596);
    EXPECT_EQ(editor.height, 368);
    EXPECT_EQ(panel.width, 504);
    EXPECT_EQ(panel.height, 144);

    ASSERT_NE(menuResourceList, nullptr);
    EXPECT_EQ(menuResourceList->resourceId, 104);
    EXPECT_NE(menuResourceList->create, nullptr);
    EXPECT_EQ(menuResourceList->next, nullptr);
}

TEST_F(DialogResourcesTest, EditorDialogHasItsThirteenControlsAndBandPanelItsFifteen) {
    HWND dialog = createDialog(kEditorDialogResource);
    ASSERT_NE(dialog, nullptr);
    RECT client{};
    kobal::GetClientRect(dialog, &client);
    EXPECT_EQ(client.right, 596);
    EXPECT_EQ(client.bottom, 368);
    expectControls(dialog, kEditorDialogControls);
    kobal::DestroyWindow(dialog);

    HWND panel = createDialog(kBandPanelResource);
    ASSERT_NE(panel, nullptr);
    expectControls(panel, kBandPanelControls);
    EXPECT_EQ(kobal::GetDlgItem(panel, 1029), childAt(panel, 13));
    kobal::DestroyWindow(panel);
}

// What the create callbacks hand to the layer, recorded in place of it.
struct RecordedCalls {
    float xScale = 0, yScale = 0;
    int xTranslation = -1, yTranslation = -1;
    HWND parent = nullptr;
    bool doOffset = true, doSize = false;
    const ControlRecord* controls = nullptr;
    int controlCount = 0;
    HMENU menu = nullptr;
    const MenuEntry* entries = nullptr;
    int entryCount = 0;
};
RecordedCalls recorded;

class ResourceCallbackTest : public ::testing::Test {
protected:
    void SetUp() override {
        recorded = RecordedCalls{};
        kobal::KOBAL_MakeSetCurParms = [](float xScale, float yScale, int xTranslation,
                                          int yTranslation, HWND parent, bool doOffset,
                                          bool doSize) {
            std::tie(recorded.xScale, recorded.yScale, recorded.xTranslation,
                     recorded.yTranslation, recorded.parent, recorded.doOffset, recorded.doSize) =
                std::tie(xScale, yScale, xTranslation, yTranslation, parent, doOffset, doSize);
        };
        kobal::KOBAL_GenerateDialogFromList = [](const ControlRecord* list, int count) {
            recorded.controls = list;
            recorded.controlCount = count;
        };
        kobal::KOBAL_GenerateMenuFromList = [](HMENU menu, const MenuEntry* list, int count) {
            recorded.menu = menu;
            recorded.entries = list;
            recorded.entryCount = count;
        };
    }
    void TearDown() override {
        kobal::KOBAL_MakeSetCurParms = savedSetCurParms;
        kobal::KOBAL_GenerateDialogFromList = savedDialogList;
        kobal::KOBAL_GenerateMenuFromList = savedMenuList;
    }

    KOBAL_MakeSetCurParmsProc savedSetCurParms = kobal::KOBAL_MakeSetCurParms;
    KOBAL_GenerateDialogFromListProc savedDialogList = kobal::KOBAL_GenerateDialogFromList;
    KOBAL_GenerateMenuFromListProc savedMenuList = kobal::KOBAL_GenerateMenuFromList;
};

TEST_F(ResourceCallbackTest, DialogCallbacksScaleByOnePointSevenAndSizeUnlessBitThree) {
    HWND fakeWindow = reinterpret_cast<HWND>(0x1234);
    const DialogResource& panel = *dialogResourceList;
    const DialogResource& editor = *panel.next;

    editor.create(fakeWindow, 0);
    EXPECT_EQ(recorded.xScale, 1.7f);
    EXPECT_EQ(recorded.yScale, 1.7f);
    EXPECT_EQ(recorded.xTranslation, 0);
    EXPECT_EQ(recorded.yTranslation, 0);
    EXPECT_EQ(recorded.parent, fakeWindow);
    EXPECT_FALSE(recorded.doOffset);
    EXPECT_TRUE(recorded.doSize);
    EXPECT_EQ(recorded.controlCount, 13);

    panel.create(fakeWindow, 8);
    EXPECT_FALSE(recorded.doSize);
    EXPECT_EQ(recorded.controlCount, 15);
    panel.create(fakeWindow, 7);
    EXPECT_TRUE(recorded.doSize);
}

TEST_F(ResourceCallbackTest, MarkerRecordsCarryTheirFieldsOnePlaceFurtherOn) {
    const DialogResource& editor = *dialogResourceList->next;
    editor.create(nullptr, 0);
    ASSERT_EQ(recorded.controlCount, 13);
    const ControlRecord& group = recorded.controls[1];
    EXPECT_STREQ(group.textOrMarker, "__KOBAL_GROUP");
    EXPECT_EQ(group.idOrAlignment, 0);
    EXPECT_STREQ(group.classNameOrText, "Ombro");
    EXPECT_EQ(group.styleOrId, 1034u);
    EXPECT_EQ(group.width, 349);
    const ControlRecord& gainLabel = recorded.controls[10];
    EXPECT_STREQ(gainLabel.textOrMarker, "__KOBAL_LABEL");
    EXPECT_EQ(gainLabel.idOrAlignment, -1);
    EXPECT_EQ(gainLabel.styleOrId, 1079u);
    const ControlRecord& gainEdit = recorded.controls[9];
    EXPECT_STREQ(gainEdit.textOrMarker, "__KOBAL_EDIT");
    EXPECT_EQ(gainEdit.extendedStyleOrStyle, 0x1u);
    const ControlRecord& placeholder = recorded.controls[2];
    EXPECT_STREQ(placeholder.classNameOrText, "Static");
    EXPECT_EQ(placeholder.styleOrId, 0x88000004u);
    EXPECT_EQ(placeholder.extendedStyleOrStyle, 0u);

    dialogResourceList->create(nullptr, 0);
    ASSERT_EQ(recorded.controlCount, 15);
    const ControlRecord& typeCombo = recorded.controls[4];
    EXPECT_STREQ(typeCombo.textOrMarker, "__KOBAL_COMBO");
    EXPECT_EQ(typeCombo.styleOrId, 1015u);
    EXPECT_EQ(typeCombo.extendedStyleOrStyle, 0x210003u);
    const ControlRecord& status = recorded.controls[14];
    EXPECT_STREQ(status.textOrMarker, "__KOBAL_LABEL");
    EXPECT_EQ(status.idOrAlignment, 0);
    EXPECT_STREQ(status.classNameOrText, "Static");
    EXPECT_EQ(status.styleOrId, 500u);
}

TEST_F(ResourceCallbackTest, ContextMenuIsOnePopupOfFifteenCommandsAndThreeSeparators) {
    HMENU fakeMenu = reinterpret_cast<HMENU>(0x5678);
    menuResourceList->create(fakeMenu);
    EXPECT_EQ(recorded.menu, fakeMenu);
    ASSERT_EQ(recorded.entryCount, 20);
    const MenuEntry* entries = recorded.entries;
    EXPECT_STREQ(entries[0].text, "/.BO^O:Context");
    EXPECT_STREQ(entries[19].text, "EN%%%^:");
    // Texts and ids of the items: ResourceRenderingTest reads them back loaded.
    for (int i = 1; i < 19; ++i) {
        EXPECT_EQ(entries[i].flags, 0);
        if (entries[i].text == nullptr) {
            EXPECT_EQ(entries[i].commandId, 0xFFFF);
        }
    }
}

}  // namespace
