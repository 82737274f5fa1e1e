#include "host/ui/window_tree.h"

#include <algorithm>
#include <unordered_set>

namespace kobal_layer {
namespace {

std::unordered_set<KobalWindow*>& liveWindows() {
    static std::unordered_set<KobalWindow*> windows;
    return windows;
}

std::vector<HWND>& topLevelList() {
    static std::vector<HWND> windows;
    return windows;
}

std::vector<WindowForgetter>& forgetters() {
    static std::vector<WindowForgetter> list;
    return list;
}

void sendDestroyDownwards(KobalWindow* window) {
    window->beingDestroyed = true;
    if (window->procedure) window->procedure(window, WM_DESTROY, 0, 0);
    if (!liveWindow(window)) return;  // its procedure destroyed an ancestor
    // The procedure may have destroyed children itself: walk a copy and recheck.
    std::vector<KobalWindow*> children = window->children;
    for (KobalWindow* child : children)
        if (liveWindow(child) && !child->beingDestroyed) sendDestroyDownwards(child);
}

void freeTree(KobalWindow* window) {
    for (KobalWindow* child : window->children) freeTree(child);
    for (WindowForgetter forget : forgetters()) forget(window);
    liveWindows().erase(window);
    delete window;
}

void unlinkFromParent(KobalWindow* window) {
    auto& siblings = window->parent ? window->parent->children : topLevelList();
    siblings.erase(std::remove(siblings.begin(), siblings.end(), window), siblings.end());
}

}  // namespace

KobalWindow* liveWindow(HWND window) {
    if (!window) return nullptr;
    return liveWindows().count(window) ? window : nullptr;
}

HWND createWindow(const WindowCreation& creation) {
    auto* window = new KobalWindow;
    window->parent = liveWindow(creation.parent);
    window->className = creation.className;
    window->text = creation.text;
    window->id = creation.id;
    window->style = creation.style;
    window->rect = creation.rect;
    window->procedure = creation.procedure;
    window->visible = creation.visible;
    window->needsPaint = true;
    liveWindows().insert(window);
    (window->parent ? window->parent->children : topLevelList()).push_back(window);
    return window;
}

void destroyWindowTree(HWND handle) {
    KobalWindow* window = liveWindow(handle);
    if (!window || window->beingDestroyed) return;
    sendDestroyDownwards(window);
    if (!liveWindow(handle)) return;
    unlinkFromParent(window);
    window->parent = nullptr;
    freeTree(window);
}

std::vector<HWND> topLevelWindows() { return topLevelList(); }

POINT screenOrigin(HWND handle) {
    POINT origin{0, 0};
    for (KobalWindow* window = liveWindow(handle); window; window = window->parent) {
        origin.x += window->rect.left;
        origin.y += window->rect.top;
    }
    return origin;
}

int windowWidth(const KobalWindow& window) { return window.rect.right - window.rect.left; }

int windowHeight(const KobalWindow& window) { return window.rect.bottom - window.rect.top; }

bool isShownOnScreen(HWND handle) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return false;
    for (; window; window = window->parent)
        if (!window->visible) return false;
    return true;
}

bool addWindowForgetter(WindowForgetter forgetter) {
    forgetters().push_back(forgetter);
    return true;
}

}  // namespace kobal_layer
