// The windows of the layer: one record per window, linked into a tree of
// parents and children. A handle (HWND) is the record's address; every entry
// point checks it against the set of live windows first, so a stale or
// foreign handle is answered like an invalid Win32 handle.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "contracts/kobal.h"

namespace kobal_layer {

// Per-kind state of a standard control (button, edit box, fader, ...).
struct ControlState {
    virtual ~ControlState() = default;
};

}  // namespace kobal_layer

struct KobalWindow {
    KobalWindow* parent = nullptr;
    std::vector<KobalWindow*> children;  // creation order; later ones lie on top
    std::string className;
    std::string text;
    int id = 0;
    uint32_t style = 0;
    RECT rect{};  // in the parent's client coordinates; screen coordinates at the top
    bool visible = false;
    bool isDialog = false;  // the procedure is a dialog procedure
    bool needsPaint = false;
    bool beingDestroyed = false;
    WNDPROC procedure = nullptr;
    LONG_PTR userData = 0;
    std::map<int, LONG_PTR> words;  // window words at indexes >= 0
    std::unique_ptr<kobal_layer::ControlState> control;
};

namespace kobal_layer {

constexpr uint32_t WS_DISABLED_STYLE = 0x08000000;

struct WindowCreation {
    HWND parent = nullptr;
    std::string className;
    std::string text;
    int id = 0;
    uint32_t style = 0;
    RECT rect{};
    WNDPROC procedure = nullptr;
    bool visible = true;
};

// The record behind a handle, or null when the handle is not a live window.
KobalWindow* liveWindow(HWND window);
HWND createWindow(const WindowCreation& creation);
// Sends WM_DESTROY to the window, then to its children (deepest last), and
// frees them all; the parent forgets the window.
void destroyWindowTree(HWND window);
// Windows without a parent, oldest first.
std::vector<HWND> topLevelWindows();
// The window's position on the screen (sum of the parents' origins).
POINT screenOrigin(HWND window);
int windowWidth(const KobalWindow& window);
int windowHeight(const KobalWindow& window);
// True when the window and all its parents are shown.
bool isShownOnScreen(HWND window);

// Modules that keep per-window state (focus, capture, timers, queued
// messages) forget a window through these, called just before it is freed.
using WindowForgetter = void (*)(HWND window);
bool addWindowForgetter(WindowForgetter forgetter);

}  // namespace kobal_layer
