// Menus built from the plug-in's menu resources, with Win32 semantics.
// KOBAL_LoadMenu finds the resource by id and lets its create callback emit
// the items through KOBAL_GenerateMenuFromList: a text starting with
// "/.BO^O:" opens a popup titled with the rest, "EN%%%^:" closes it, a null
// text is a separator. A menu owns its popups; DestroyMenu frees them all.
//
// TrackPopupMenu shows nothing: a chooser set by the host or a test decides
// which command is picked (a queued choice first, else the chooser, else the
// menu is dismissed). Only enabled command items can be picked. With
// TPM_RETURNCMD the command id is returned (0 when dismissed); otherwise
// WM_COMMAND with the id is posted to the owner and 1 returned.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "contracts/kobal.h"

namespace kobal_layer {

constexpr UINT MF_BYPOSITION = 0x0400;
constexpr UINT TPM_RIGHTBUTTON = 0x0002;
constexpr UINT kMenuItemNotFound = 0xFFFFFFFF;

HMENU KOBAL_LoadMenu(MenuResource* list, int resourceId);
void KOBAL_GenerateMenuFromList(HMENU menu, const MenuEntry* list, int count);
HMENU CreatePopupMenu();
HMENU GetSubMenu(HMENU menu, int position);
int GetMenuItemCount(HMENU menu);
UINT GetMenuItemID(HMENU menu, int position);  // kMenuItemNotFound for popups and gaps
// Both return the previous state flags, or kMenuItemNotFound.
BOOL EnableMenuItem(HMENU menu, UINT item, UINT flags);
DWORD CheckMenuItem(HMENU menu, UINT item, UINT flags);
int TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner,
                   const RECT* rect);
BOOL DestroyMenu(HMENU menu);

// What a menu holds, for inspection.
struct MenuItemView {
    std::string text;  // a popup's title; empty for a separator
    UINT commandId = 0;
    bool separator = false;
    bool enabled = true;
    bool checked = false;
    std::vector<MenuItemView> popup;  // the items of a popup
    bool isPopup = false;
};
using MenuView = std::vector<MenuItemView>;

MenuView describeMenu(HMENU menu);
bool isLiveMenu(HMENU menu);
int liveMenuCount();

// Picks a command id from the menu being tracked (0 dismisses it).
using MenuChooser = std::function<UINT(const MenuView& menu, POINT screenPoint, HWND owner)>;
void setMenuChooser(MenuChooser chooser);
void queueMenuChoice(UINT commandId);
// Forgets the chooser, queued choices and what was tracked.
void resetMenuTracking();
void destroyAllMenus();
// The menu shown by the latest TrackPopupMenu, as it was then.
std::optional<MenuView> lastTrackedMenu();
int trackedMenuCount();

}  // namespace kobal_layer
