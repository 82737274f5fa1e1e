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

MenuResource contextMenu{104, createMenu, nullptr};

class Menus : public UiLayerTest {};

TEST_F(Menus, PopupItemsAnswerThePreviousStateAndTrackingReturnsOrPostsTheChosenCommand) {
    HMENU menu = KOBAL_LoadMenu(&contextMenu, 104);
    HMENU context = GetSubMenu(menu, 0);
    EXPECT_EQ(GetMenuItemID(context, 1), 40002u);
    EXPECT_EQ(EnableMenuItem(context, 40002, MF_GRAYED), static_cast<BOOL>(MF_ENABLED));
    EXPECT_EQ(CheckMenuItem(context, 40007, MF_CHECKED), MF_UNCHECKED);  // inside the popup
    EXPECT_EQ(CheckMenuItem(context, 40007, MF_CHECKED), MF_CHECKED);
    const MenuView items = describeMenu(context);
    ASSERT_EQ(items.size(), 5u);
    EXPECT_FALSE(items[1].enabled);
    EXPECT_TRUE(items[2].separator);
    EXPECT_TRUE(items[3].popup.at(1).checked);
    HWND owner = createRecordingWindow(hostWindow(), RECT{0, 0, 10, 10});
    setMenuChooser([&](const MenuView& shown, POINT at, HWND shownFor) -> UINT {
        EXPECT_EQ(at.x, 320);
        EXPECT_EQ(shownFor, owner);
        return shown[3].popup[0].commandId;
    });
    queueMenuChoice(40001);
    queueMenuChoice(40002);
    const auto track = [&](UINT flags) {
        return TrackPopupMenu(context, flags, 320, 240, 0, owner, nullptr);
    };
    EXPECT_EQ(track(TPM_RETURNCMD | TPM_RIGHTBUTTON), 40001);
    EXPECT_EQ(track(TPM_RETURNCMD), 0);
    EXPECT_EQ(track(TPM_RETURNCMD), 40006);
    EXPECT_EQ(track(0), 1);  // posted to the owner
    EXPECT_TRUE(recordedOf(WM_COMMAND).empty());
    pumpMessages();
    ASSERT_EQ(recordedOf(WM_COMMAND).size(), 1u);
    EXPECT_EQ(recordedOf(WM_COMMAND)[0].wParam, 40006u);
    setMenuChooser(nullptr);
    EXPECT_EQ(track(TPM_RETURNCMD), 0);  // dismissed
    EXPECT_EQ(track(0), 0);
    EXPECT_TRUE(DestroyMenu(menu));
    EXPECT_EQ(liveMenuCount(), 0);
}

}  // namespace
