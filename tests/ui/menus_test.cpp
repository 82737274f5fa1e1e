// Menus from resource lists, their items' states and popup tracking.
#include "host/ui/menus.h"

#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

const MenuEntry kEntries[] = {
    {"/.BO^O:Context", 0, 0, 0}, {"Add new band", 40001, 0, 0}, {"Delete band", 40002, 0, 0},
    {nullptr, 0xFFFF, 0, 0},     {"/.BO^O:Band type", 0, 0, 0}, {"Low Shelf", 40006, 0, 0},
    {"High Shelf", 40007, 0, 0}, {"EN%%%^:", 0, 0, 0},          {"Enable band", 40003, 0, 0},
    {"EN%%%^:", 0, 0, 0},
};

void createMenu(HMENU menu) { KOBAL_GenerateMenuFromList(menu, kEntries, std::size(kEntries)); }

MenuResource otherMenu{105, nullptr, nullptr};
MenuResource contextMenu{104, createMenu, &otherMenu};

class Menus : public UiLayerTest {
protected:
    void SetUp() override {
        UiLayerTest::SetUp();
        menu = KOBAL_LoadMenu(&contextMenu, 104);
        context = GetSubMenu(menu, 0);
    }
    int track(UINT flags, HWND owner = nullptr) {
        return TrackPopupMenu(context, flags, 320, 240, 0, owner, nullptr);
    }
    HMENU menu = nullptr;
    HMENU context = nullptr;
};

TEST_F(Menus, MarkersBuildNestedPopupsAndSeparatorsFreedWithTheirMenu) {
    MenuView view = describeMenu(menu);
    ASSERT_EQ(view.size(), 1u);
    EXPECT_EQ(view[0].text, "Context");
    const MenuView& items = view[0].popup;
    ASSERT_EQ(items.size(), 5u);
    EXPECT_EQ(items[0].text, "Add new band");
    EXPECT_TRUE(items[2].separator);
    EXPECT_EQ(items[3].text, "Band type");
    ASSERT_EQ(items[3].popup.size(), 2u);
    EXPECT_EQ(items[3].popup[1].commandId, 40007u);
    EXPECT_EQ(items[4].text, "Enable band");
    EXPECT_EQ(GetMenuItemCount(context), 5);
    EXPECT_EQ(GetMenuItemID(context, 1), 40002u);
    EXPECT_EQ(GetMenuItemID(context, 3), kMenuItemNotFound);  // a popup
    EXPECT_EQ(GetSubMenu(menu, 1), nullptr);
    EXPECT_EQ(liveMenuCount(), 3);
    EXPECT_TRUE(DestroyMenu(menu));
    EXPECT_EQ(liveMenuCount(), 0);
    EXPECT_FALSE(DestroyMenu(menu));
    EXPECT_EQ(KOBAL_LoadMenu(&contextMenu, 999), nullptr);
    EXPECT_EQ(GetMenuItemCount(KOBAL_LoadMenu(&contextMenu, 105)), 0);
}

TEST_F(Menus, EnableAndCheckReturnThePreviousStateAndReachIntoPopups) {
    EXPECT_EQ(EnableMenuItem(context, 40002, MF_GRAYED), static_cast<BOOL>(MF_ENABLED));
    EXPECT_EQ(EnableMenuItem(context, 40002, MF_ENABLED), static_cast<BOOL>(MF_GRAYED));
    EnableMenuItem(context, 40002, MF_GRAYED);
    EXPECT_EQ(CheckMenuItem(context, 40007, MF_CHECKED), MF_UNCHECKED);
    EXPECT_EQ(CheckMenuItem(context, 40007, MF_CHECKED), MF_CHECKED);
    EXPECT_EQ(CheckMenuItem(context, 49999, MF_CHECKED), kMenuItemNotFound);
    MenuView view = describeMenu(context);
    EXPECT_FALSE(view[1].enabled);
    EXPECT_TRUE(view[0].enabled);
    EXPECT_TRUE(view[3].popup[1].checked);
    EXPECT_FALSE(view[3].popup[0].checked);
}

TEST_F(Menus, TrackPopupMenuReturnsTheChosenCommandQueuedChoicesFirstAndNeverAGrayedOne) {
    HWND owner = hostWindow();
    EnableMenuItem(context, 40002, MF_GRAYED);
    setMenuChooser([&](const MenuView& shown, POINT at, HWND shownFor) -> UINT {
        EXPECT_EQ(at.x, 320);
        EXPECT_EQ(at.y, 240);
        EXPECT_EQ(shownFor, owner);
        return shown[3].popup[0].commandId;
    });
    queueMenuChoice(40001);
    queueMenuChoice(40002);
    EXPECT_EQ(track(TPM_RETURNCMD | TPM_RIGHTBUTTON, owner), 40001);
    EXPECT_EQ(track(TPM_RETURNCMD, owner), 0);
    EXPECT_EQ(track(TPM_RETURNCMD, owner), 40006);
    ASSERT_TRUE(lastTrackedMenu().has_value());
    EXPECT_EQ(lastTrackedMenu()->size(), 5u);
    setMenuChooser(nullptr);
    EXPECT_EQ(track(TPM_RETURNCMD), 0);  // dismissed
    EXPECT_EQ(trackedMenuCount(), 4);
}

TEST_F(Menus, WithoutReturnCmdTheChoiceIsPostedToTheOwner) {
    HWND owner = createRecordingWindow(hostWindow(), RECT{0, 0, 10, 10});
    queueMenuChoice(40003);
    EXPECT_EQ(track(0, owner), 1);
    EXPECT_TRUE(recordedOf(WM_COMMAND).empty());
    pumpMessages();
    auto commands = recordedOf(WM_COMMAND);
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_EQ(commands[0].wParam, 40003u);
    EXPECT_EQ(track(0, owner), 0);  // nothing chosen
}

}  // namespace
