#include "host/ui/pointer_and_keys.h"

#include <map>
#include <memory>
#include <set>

struct KobalCursor {
    int id;
};

namespace kobal_layer {
namespace {

POINT cursorPosition{0, 0};
HCURSOR activeCursor = nullptr;

std::set<int>& keysDown() {
    static std::set<int> keys;
    return keys;
}

// One handle per shape, alive for the whole process as Win32 shared cursors are.
std::map<int, std::unique_ptr<KobalCursor>>& loadedCursors() {
    static std::map<int, std::unique_ptr<KobalCursor>> cursors;
    return cursors;
}

}  // namespace

BOOL GetCursorPos(POINT* point) {
    if (!point) return 0;
    *point = cursorPosition;
    return 1;
}

int16_t GetAsyncKeyState(int virtualKey) {
    return keysDown().count(virtualKey) ? static_cast<int16_t>(0x8000) : 0;
}

HCURSOR KOBAL_LoadCursor(int cursorId) {
    auto& cursors = loadedCursors();
    auto& slot = cursors[cursorId];
    if (!slot) slot = std::make_unique<KobalCursor>(KobalCursor{cursorId});
    return slot.get();
}

HCURSOR KOBAL_SetCursor(HCURSOR cursor) {
    HCURSOR previous = activeCursor;
    activeCursor = cursor;
    return previous;
}

void setCursorPosition(POINT screenPoint) { cursorPosition = screenPoint; }

void setKeyDown(int virtualKey, bool down) {
    if (down)
        keysDown().insert(virtualKey);
    else
        keysDown().erase(virtualKey);
}

void releaseAllKeys() { keysDown().clear(); }

HCURSOR currentCursor() { return activeCursor; }

int cursorIdOf(HCURSOR cursor) {
    for (const auto& [id, loaded] : loadedCursors())
        if (loaded.get() == cursor) return id;
    return 0;
}

}  // namespace kobal_layer
