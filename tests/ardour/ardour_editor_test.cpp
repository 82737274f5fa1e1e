// Ombro's editor in Ardour's GUI under the test's Xvfb: a band added there
// with a click on "Add band" reaches Ardour's saved session.
#include <algorithm>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

#include "tests/ardour/ardour_sandbox.h"
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

// The first window at or under `window` that `matches`, or 0.
template <typename Match>
Window findWindow(Display* display, Window window, Match matches) {
    if (matches(window)) return window;
    for (Window child : childWindows(display, window))
        if (Window found = findWindow(display, child, matches)) return found;
    return 0;
}

// The editor at its size (1020 × 640), shown and drawn: a fifth of it graph
// background, a fifth dialog face.
bool showsEditor(Display* display, Window window) {
    XWindowAttributes shown{};
    if (!XGetWindowAttributes(display, window, &shown) || shown.map_state != IsViewable || shown.width != 1020 ||
        shown.height != 640)
        return false;
    std::vector<uint32_t> pixels = windowPixels(display, window, 0, 0, 1020, 640);
    return std::count(pixels.begin(), pixels.end(), 0x000000u) > 1020 * 640 / 5 &&
           std::count(pixels.begin(), pixels.end(), 0xF0F0F0u) > 1020 * 640 / 5;
}

// Ardour creates and destroys windows while the test walks the tree.
int ignoreXError(Display*, XErrorEvent*) { return 0; }

}  // namespace

TEST_F(ArdourSessionTest, BandAddedInTheEditorIsSavedWithTheSession) {
    if (testDisplayName().empty()) GTEST_SKIP() << "no Xvfb";
    SessionFile session = createSession("editor");
    ASSERT_TRUE(session.markPluginWindowOpen() && session.save());
    // Ardour's first-run questions answered beforehand.
    std::filesystem::create_directories(path("home/.config/ardour7"));
    std::filesystem::copy(OMBRO_ARDOUR_FILES "/first_run", path("home/.config/ardour7"),
                          std::filesystem::copy_options::recursive);
    BackgroundChild ardour({OMBRO_ARDOUR_GUI, "--no-splash", "--no-announcements", path("editor")},
                           path("ardour_gui.log"));
    Display* display = XOpenDisplay(testDisplayName().c_str());
    ASSERT_NE(display, nullptr);
    XSetErrorHandler(ignoreXError);
    auto named = [&](const char* part) {
        return [=](Window window) { return windowName(display, window).find(part) != std::string::npos; };
    };
    Window editor = 0;
    waitFor(90, [&] {
        Window frame = findWindow(display, DefaultRootWindow(display), named("[VST]"));
        editor = frame ? findWindow(display, frame, [&](Window window) { return showsEditor(display, window); }) : 0;
        return editor || !ardour.running();
    });
    savePicture(windowPixels(display, DefaultRootWindow(display), 0, 0, 1280, 800), 1280, 800, "ardour_editor.png");
    ASSERT_NE(editor, 0u) << "see " << path("ardour_gui.log");

    // Ardour marks its title with "*" once the plug-in told it of the change.
    Window main = findWindow(display, DefaultRootWindow(display), named("editor - Ardour"));
    ASSERT_EQ(windowName(display, main).rfind('*', 0), std::string::npos);
    movePointer(display, editor, 53, 613);
    pressButton(display, Button1, true);
    pressButton(display, Button1, false);
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
