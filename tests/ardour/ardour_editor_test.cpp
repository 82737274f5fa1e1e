// Ombro's editor in Ardour's GUI: Ardour started under the test's Xvfb on a
// session whose plug-in window is marked open shows the editor the bridge
// draws in its own X window inside Ardour's plug-in window, and a band added
// there with a click on "Add band" reaches Ardour's saved session.
#include <algorithm>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

#include "tests/ardour/ardour_sandbox.h"
#include "tests/ardour/session_file.h"
// X11's macros (None, Bool, ...) clash with GoogleTest's names: X comes last.
#include "tests/bridge/test_display.h"

#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace {

// Polls `ready` every 250 ms until it holds or `seconds` have passed.
template <typename Condition>
bool waitFor(double seconds, Condition ready) {
    auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!ready() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(250));
    return ready();
}

std::string windowName(Display* display, Window window) {
    char* name = nullptr;
    if (!XFetchName(display, window, &name) || !name) return "";
    std::string text(name);
    XFree(name);
    return text;
}

// The first window under the root whose name contains `part`, or 0.
Window findWindowNamed(Display* display, const std::string& part) {
    for (std::vector<Window> pending = {DefaultRootWindow(display)}; !pending.empty();) {
        Window window = pending.back();
        pending.pop_back();
        if (windowName(display, window).find(part) != std::string::npos) return window;
        for (Window child : childWindows(display, window)) pending.push_back(child);
    }
    return 0;
}

// The innermost mapped window of the editor's size below `window` (the
// editor sits in Ardour's frames), or 0.
Window editorIn(Display* display, Window window) {
    XWindowAttributes shown{};
    for (Window child : childWindows(display, window))
        if (XGetWindowAttributes(display, child, &shown) && shown.map_state == IsViewable && shown.width >= 1020)
            return editorIn(display, child);
    return XGetWindowAttributes(display, window, &shown) && shown.width == 1020 && shown.height == 640 ? window : 0;
}

// The share of the pixels of `window` of the editor's own graph background,
// dialog face and fill under the response curve.
bool showsEditor(Display* display, Window window) {
    std::vector<uint32_t> pixels = windowPixels(display, window, 0, 0, 1020, 640);
    auto share = [&](uint32_t color) { return std::count(pixels.begin(), pixels.end(), color) / 652800.0; };
    return share(0x000000) > 0.2 && share(0xF0F0F0) > 0.2 && share(0x006060) > 0.01;
}

int ignoreXError(Display*, XErrorEvent*) { return 0; }

}  // namespace

TEST_F(ArdourSessionTest, BandAddedInTheEditorIsSavedWithTheSession) {
    if (testDisplayName().empty()) GTEST_SKIP() << "no Xvfb";
    // Band 3 raised by 6 dB, so that the response has an area to fill.
    createSession("editor", {"7=0.5"});
    SessionFile session(path("editor"), "editor");
    ASSERT_TRUE(session.markPluginWindowOpen() && session.save());
    // Ardour's first-run questions answered beforehand: welcome pages, memory
    // warning, audio set-up (the dummy backend at 48 kHz, started at once).
    std::filesystem::create_directories(path("home/.config/ardour7"));
    std::filesystem::copy(OMBRO_ARDOUR_FILES "/first_run", path("home/.config/ardour7"),
                          std::filesystem::copy_options::recursive);
    BackgroundChild ardour({OMBRO_ARDOUR_GUI, "--no-splash", "--no-announcements", path("editor")},
                           path("ardour_gui.log"));
    Display* display = XOpenDisplay(testDisplayName().c_str());
    ASSERT_NE(display, nullptr);
    // Ardour creates and destroys windows while the test walks the tree.
    XSetErrorHandler(ignoreXError);
    Window editor = 0;
    EXPECT_TRUE(waitFor(90, [&] {
        editor = editorIn(display, findWindowNamed(display, "[VST]"));
        return (editor && showsEditor(display, editor)) || !ardour.running();
    })) << "see " << path("ardour_gui.log");
    savePicture(windowPixels(display, DefaultRootWindow(display), 0, 0, 1280, 800), 1280, 800, "ardour_editor.png");
    ASSERT_TRUE(editor && showsEditor(display, editor)) << "no editor in Ardour's plug-in window";

    // Ardour marks its title with "*" once the plug-in told it of the change.
    Window main = findWindowNamed(display, "editor - Ardour");
    ASSERT_EQ(windowName(display, main).rfind('*', 0), std::string::npos);
    movePointer(display, editor, 53, 613);
    pressButton(display, true);
    pressButton(display, false);
    EXPECT_TRUE(waitFor(20, [&] { return windowName(display, main).rfind('*', 0) == 0; }));
    // Ctrl+S, the keyboard focus given first (Xvfb runs no window manager).
    XSetInputFocus(display, main, RevertToParent, CurrentTime);
    for (KeySym key : {XK_Control_L, XK_s}) XTestFakeKeyEvent(display, XKeysymToKeycode(display, key), True, 0);
    for (KeySym key : {XK_s, XK_Control_L}) XTestFakeKeyEvent(display, XKeysymToKeycode(display, key), False, 0);
    XSync(display, False);
    EXPECT_TRUE(waitFor(20, [&] {
        std::vector<unsigned char> chunk = SessionFile(path("editor"), "editor").pluginChunk();
        int32_t bands = 0;
        if (chunk.size() >= 8) std::memcpy(&bands, chunk.data() + 4, sizeof bands);
        return bands == 5;
    })) << "the saved session does not hold the fifth band";
    XCloseDisplay(display);
}
