#include "host/ui/menus.h"

#include <cstring>
#include <deque>
#include <memory>
#include <unordered_set>

#include "host/ui/messages.h"

struct KobalMenuItem {
    std::string text;
    UINT commandId = 0;
    UINT flags = 0;  // MF_GRAYED, MF_CHECKED
    bool separator = false;
    std::unique_ptr<KobalMenu> popup;
};

struct KobalMenu {
    std::vector<KobalMenuItem> items;
};

namespace kobal_layer {
namespace {

struct TrackingRecord {
    MenuChooser chooser;
    std::deque<UINT> queuedChoices;
    std::optional<MenuView> lastShown;
    int shownCount = 0;
};

std::unordered_set<KobalMenu*>& liveMenus() {
    static std::unordered_set<KobalMenu*> menus;
    return menus;
}

TrackingRecord& tracking() {
    static TrackingRecord record;
    return record;
}

KobalMenu* live(HMENU menu) { return menu && liveMenus().count(menu) ? menu : nullptr; }

KobalMenu* newMenu() {
    auto* menu = new KobalMenu;
    liveMenus().insert(menu);
    return menu;
}

void forgetTree(KobalMenu* menu) {
    liveMenus().erase(menu);
    for (KobalMenuItem& item : menu->items)
        if (item.popup) forgetTree(item.popup.get());
}

KobalMenuItem* findItem(KobalMenu* menu, UINT item, UINT flags) {
    if (flags & MF_BYPOSITION) return item < menu->items.size() ? &menu->items[item] : nullptr;
    for (KobalMenuItem& entry : menu->items) {
        if (!entry.separator && !entry.popup && entry.commandId == item) return &entry;
        if (entry.popup)
            if (KobalMenuItem* inside = findItem(entry.popup.get(), item, flags)) return inside;
    }
    return nullptr;
}

UINT setFlag(HMENU menu, UINT item, UINT flags, UINT flag) {
    KobalMenu* target = live(menu);
    KobalMenuItem* entry = target ? findItem(target, item, flags) : nullptr;
    if (!entry) return kMenuItemNotFound;
    UINT previous = entry->flags & flag;
    entry->flags = (entry->flags & ~flag) | (flags & flag);
    return previous;
}

bool startsWith(const char* text, const char* prefix) {
    return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

const MenuItemView* findChoosable(const MenuView& menu, UINT commandId) {
    for (const MenuItemView& item : menu) {
        if (item.isPopup) {
            if (const MenuItemView* inside = findChoosable(item.popup, commandId)) return inside;
        } else if (!item.separator && item.enabled && item.commandId == commandId) {
            return &item;
        }
    }
    return nullptr;
}

UINT pickCommand(const MenuView& shown, POINT at, HWND owner) {
    TrackingRecord& record = tracking();
    UINT choice = 0;
    if (!record.queuedChoices.empty()) {
        choice = record.queuedChoices.front();
        record.queuedChoices.pop_front();
    } else if (record.chooser) {
        choice = record.chooser(shown, at, owner);
    }
    return choice && findChoosable(shown, choice) ? choice : 0;
}

}  // namespace

HMENU KOBAL_LoadMenu(MenuResource* list, int resourceId) {
    constexpr int kLongestList = 10000;
    for (int i = 0; list && i < kLongestList; ++i, list = list->next) {
        if (list->resourceId != resourceId) continue;
        KobalMenu* menu = newMenu();
        if (list->create) list->create(menu);
        return menu;
    }
    return nullptr;
}

void KOBAL_GenerateMenuFromList(HMENU menu, const MenuEntry* list, int count) {
    if (!live(menu) || !list) return;
    std::vector<KobalMenu*> open{menu};
    for (int i = 0; i < count; ++i) {
        const MenuEntry& entry = list[i];
        KobalMenu* current = open.back();
        KobalMenuItem item;
        if (!entry.text) {
            item.separator = true;
        } else if (startsWith(entry.text, kMenuPopupPrefix)) {
            item.text = entry.text + std::strlen(kMenuPopupPrefix);
            item.popup.reset(newMenu());
            open.push_back(item.popup.get());
        } else if (std::strcmp(entry.text, kMenuPopupEnd) == 0) {
            if (open.size() > 1) open.pop_back();
            continue;
        } else {
            item.text = entry.text;
            item.commandId = entry.commandId;
            item.flags = entry.flags & (MF_GRAYED | MF_CHECKED);
        }
        if (item.separator) item.commandId = entry.commandId;
        current->items.push_back(std::move(item));
    }
}

HMENU CreatePopupMenu() { return newMenu(); }

HMENU GetSubMenu(HMENU menu, int position) {
    KobalMenu* target = live(menu);
    if (!target || position < 0 || position >= static_cast<int>(target->items.size()))
        return nullptr;
    return target->items[position].popup.get();
}

int GetMenuItemCount(HMENU menu) {
    KobalMenu* target = live(menu);
    return target ? static_cast<int>(target->items.size()) : -1;
}

UINT GetMenuItemID(HMENU menu, int position) {
    KobalMenu* target = live(menu);
    if (!target || position < 0 || position >= static_cast<int>(target->items.size()))
        return kMenuItemNotFound;
    const KobalMenuItem& item = target->items[position];
    return item.popup ? kMenuItemNotFound : item.commandId;
}

BOOL EnableMenuItem(HMENU menu, UINT item, UINT flags) {
    return static_cast<BOOL>(setFlag(menu, item, flags, MF_GRAYED));
}

DWORD CheckMenuItem(HMENU menu, UINT item, UINT flags) {
    return setFlag(menu, item, flags, MF_CHECKED);
}

int TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*) {
    if (!live(menu)) return 0;
    MenuView shown = describeMenu(menu);
    TrackingRecord& record = tracking();
    record.lastShown = shown;
    ++record.shownCount;
    UINT choice = pickCommand(shown, POINT{x, y}, owner);
    if (flags & TPM_RETURNCMD) return static_cast<int>(choice);
    if (!choice) return 0;
    PostMessage(owner, WM_COMMAND, choice & 0xFFFF, 0);
    return 1;
}

BOOL DestroyMenu(HMENU menu) {
    KobalMenu* target = live(menu);
    if (!target) return 0;
    // A popup destroyed on its own leaves its parent's item without a popup.
    for (KobalMenu* other : liveMenus())
        for (KobalMenuItem& item : other->items)
            if (item.popup.get() == target) {
                forgetTree(target);
                item.popup.reset();
                return 1;
            }
    forgetTree(target);
    delete target;
    return 1;
}

MenuView describeMenu(HMENU menu) {
    MenuView view;
    KobalMenu* target = live(menu);
    if (!target) return view;
    for (const KobalMenuItem& item : target->items) {
        MenuItemView entry;
        entry.text = item.text;
        entry.commandId = item.commandId;
        entry.separator = item.separator;
        entry.enabled = !(item.flags & MF_GRAYED);
        entry.checked = item.flags & MF_CHECKED;
        entry.isPopup = item.popup != nullptr;
        if (item.popup) entry.popup = describeMenu(item.popup.get());
        view.push_back(std::move(entry));
    }
    return view;
}

bool isLiveMenu(HMENU menu) { return live(menu) != nullptr; }

int liveMenuCount() { return static_cast<int>(liveMenus().size()); }

void setMenuChooser(MenuChooser chooser) { tracking().chooser = std::move(chooser); }

void queueMenuChoice(UINT commandId) { tracking().queuedChoices.push_back(commandId); }

void resetMenuTracking() { tracking() = TrackingRecord{}; }

void destroyAllMenus() {
    while (!liveMenus().empty()) {
        KobalMenu* any = *liveMenus().begin();
        // Climb to the menu that owns it, so each tree is freed once.
        for (bool climbed = true; climbed;) {
            climbed = false;
            for (KobalMenu* other : liveMenus())
                for (KobalMenuItem& item : other->items)
                    if (item.popup.get() == any) {
                        any = other;
                        climbed = true;
                    }
        }
        DestroyMenu(any);
    }
}

std::optional<MenuView> lastTrackedMenu() { return tracking().lastShown; }

int trackedMenuCount() { return tracking().shownCount; }

}  // namespace kobal_layer
