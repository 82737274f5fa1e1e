// The graph's context menu (104), linked into menuResourceList when the
// library is loaded. Its commands are carried out by the response view; the
// band type commands are 40006 plus the band type code.
#include <iterator>

#include "editor/resources.h"
#include "plugin/ui_layer.h"

namespace {

constexpr MenuEntry command(const char* text, uint16_t id) { return MenuEntry{text, id, 0, 0}; }
constexpr MenuEntry kSeparator{nullptr, kMenuSeparatorId, 0, 0};

const MenuEntry kContextMenuEntries[] = {
    command("/.BO^O:Context", 0),
    command("Add new band", 40001),
    command("Delete band", 40002),
    kSeparator,
    command("Reset band to +0dB", 40004),
    command("Reset all bands to +0dB", 40015),
    command("Flip all bands", 40016),
    command("Enable band", 40003),
    kSeparator,
    command("Band type: Low Shelf", 40006),
    command("Band type: High Shelf", 40007),
    command("Band type: Band", 40014),
    command("Band type: LowPass", 40009),
    command("Band type: HiPass", 40010),
    command("Band type: AllPass", 40011),
    command("Band type: Notch", 40012),
    command("Band type: Bandpass", 40013),
    kSeparator,
    command("Band type: Band (Old deprecated)", 40008),
    command("EN%%%^:", 0),
};
static_assert(std::size(kContextMenuEntries) == 20);

void createContextMenu(HMENU menu) {
    kobal::KOBAL_GenerateMenuFromList(menu, kContextMenuEntries,
                                      static_cast<int>(std::size(kContextMenuEntries)));
}

MenuResource contextMenuResource{kContextMenuResource, createContextMenu, nullptr};

const bool menuRegistered = [] {
    contextMenuResource.next = menuResourceList;
    menuResourceList = &contextMenuResource;
    return true;
}();

}  // namespace
