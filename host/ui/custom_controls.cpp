#include "host/ui/custom_controls.h"

#include <algorithm>
#include <vector>

namespace kobal_layer {
namespace {
std::vector<CustomControlCreator>& creators() {
    static std::vector<CustomControlCreator> list;
    return list;
}
}  // namespace

void KOBAL_RegisterCustomControlCreator(CustomControlCreator creator) {
    auto& list = creators();
    if (creator && std::find(list.begin(), list.end(), creator) == list.end())
        list.push_back(creator);
}

void KOBAL_UnregisterCustomControlCreator(CustomControlCreator creator) {
    auto& list = creators();
    list.erase(std::remove(list.begin(), list.end(), creator), list.end());
}

HWND createCustomControl(HWND parent, const char* text, int id, const char* className, int style,
                         const RECT& rect) {
    // A creator may register or unregister others while it runs: ask a copy.
    std::vector<CustomControlCreator> snapshot = creators();
    for (CustomControlCreator creator : snapshot) {
        HWND window = creator(parent, text, id, className, style, rect.left, rect.top,
                              rect.right - rect.left, rect.bottom - rect.top);
        if (window) return window;
    }
    return nullptr;
}

}  // namespace kobal_layer
