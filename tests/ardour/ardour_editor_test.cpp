// Ombro's editor in Ardour's GUI: Ardour started under the test's Xvfb on a
// session whose plug-in window is marked open shows the editor the bridge
// draws in its own X window inside Ardour's plug-in window, and what is done
// in that editor reaches Ardour's session.
#include <chrono>
#include <cstdint>
#include <cstring>
#include <thread>

#include "tests/ardour/ardour_session_fixture.h"
#include "tests/ardour/session_file.h"
// X11's macros (None, Bool, ...) clash with GoogleTest's names: X comes last.
#include "tests/ardour/ardour_windows.h"
#include "tests/bridge/test_display.h"

#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace {

// The editor's own colours: the graph's background, the dialog face and the
// fill under the response curve.
constexpr uint32_t kGraphBackground = 0x000000;
constexpr uint32_t kDialogFace = 0xF0F0F0;
constexpr uint32_t kResponseFill = 0x006060;
constexpr int kSmallestEditorSide = 200;
// The editor opens at 1020 × 640 with its "Add band" button at the bottom left.
constexpr int kEditorWidth = 1020;
constexpr int kEditorHeight = 640;
constexpr int kAddBandX = 53;
constexpr int kAddBandY = 613;

// Polls `ready` every 250 ms until it holds or `seconds` have passed.
template <typename Condition>
bool waitFor(double seconds, Condition ready) {
    auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!ready()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(250));
    }
    return true;
}

bool showsEditor(const std::vector<uint32_t>& pixels) {
    return colorShare(pixels, kGraphBackground) > 0.2 && colorShare(pixels, kDialogFace) > 0.2 &&
           colorShare(pixels, kResponseFill) > 0.01;
}

std::string windowName(Display* display, Window window) {
    char* name = nullptr;
    if (!XFetchName(display, window, &name) || !name) return "";
    std::string text(name);
    XFree(name);
    return text;
}

void clickAt(Display* display, int x, int y) {
    XTestFakeMotionEvent(display, DefaultScreen(display), x, y, CurrentTime);
    XTestFakeButtonEvent(display, 1, True, CurrentTime);
    XTestFakeButtonEvent(display, 1, False, CurrentTime);
    XSync(display, False);
}

// Ctrl+S to `window`, given the keyboard focus first (Xvfb runs no window manager).
void pressSaveKeys(Display* display, Window window) {
    XSetInputFocus(display, window, RevertToParent, CurrentTime);
    KeyCode control = XKeysymToKeycode(display, XK_Control_L);
    KeyCode s = XKeysymToKeycode(display, XK_s);
    XTestFakeKeyEvent(display, control, True, CurrentTime);
    XTestFakeKeyEvent(display, s, True, CurrentTime);
    XTestFakeKeyEvent(display, s, False, CurrentTime);
    XTestFakeKeyEvent(display, control, False, CurrentTime);
    XSync(display, False);
}

int32_t chunkBandCount(const std::vector<unsigned char>& chunk) {
    int32_t count = -1;
    if (chunk.size() >= 8) std::memcpy(&count, chunk.data() + 4, sizeof count);
    return count;
}

}  // namespace

class ArdourGuiTest : public ArdourSessionTest {
protected:
    // Ardour's GUI on the session "editor" (band 3 raised by 6 dB, so that the
    // response has an area to fill) with Ombro's window marked open; waits
    // until the editor shows.
    void SetUp() override {
        ArdourSessionTest::SetUp();
        if (testDisplayName().empty()) GTEST_SKIP() << "no Xvfb";
        createSession("editor", {"7=0.5"});
        SessionFile session(sessionFolder("editor"), "editor");
        ASSERT_TRUE(session.markPluginWindowOpen("Ombro", 60, 60));
        ASSERT_TRUE(session.save());
        logPath = sandbox->path("ardour_gui.log");
        ardour = sandbox->startGui(sessionFolder("editor"), logPath);
        ASSERT_TRUE(ardour && ardour->started());
        display = XOpenDisplay(testDisplayName().c_str());
        ASSERT_NE(display, nullptr);
        ignoreXErrors();
        Window pluginWindow = 0;
        ASSERT_TRUE(waitFor(90, [&] {
            pluginWindow = findWindowNamed(display, {"Ombro", "[VST]"});
            return pluginWindow != 0 || !ardour->running();
        }));
        ASSERT_NE(pluginWindow, 0u) << "Ardour opened no plug-in window; see " << logPath;
        editorShown = waitFor(30, [&] {
            editor = innermostViewable(display, pluginWindow, kSmallestEditorSide);
            if (editor) editorPixels = screenPixels(display, screenArea(display, editor));
            return showsEditor(editorPixels);
        });
    }
    void TearDown() override {
        if (display) XCloseDisplay(display);
        ardour.reset();
    }

    void saveScreen(const std::string& name) const {
        ScreenArea screen = screenArea(display, DefaultRootWindow(display));
        savePicture(screenPixels(display, screen), screen.width, screen.height,
                    std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + name);
    }

    std::string logPath;
    std::unique_ptr<BackgroundChild> ardour;
    Display* display = nullptr;
    Window editor = 0;
    std::vector<uint32_t> editorPixels;
    bool editorShown = false;
};

TEST_F(ArdourGuiTest, EditorShowsInArdoursPluginWindow) {
    saveScreen("ardour_editor.png");
    EXPECT_TRUE(editorShown) << "graph " << colorShare(editorPixels, kGraphBackground)
                             << ", face " << colorShare(editorPixels, kDialogFace) << ", fill "
                             << colorShare(editorPixels, kResponseFill);
}

TEST_F(ArdourGuiTest, BandAddedInTheEditorIsSavedWithTheSession) {
    ASSERT_TRUE(editorShown);
    ScreenArea area = screenArea(display, editor);
    ASSERT_EQ(area.width, kEditorWidth);
    ASSERT_EQ(area.height, kEditorHeight);
    Window main = findWindowNamed(display, {"editor - Ardour"});
    ASSERT_NE(main, 0u);

    // Ardour marks its title with "*" once the plug-in told it of the change.
    ASSERT_EQ(windowName(display, main).rfind('*', 0), std::string::npos);
    clickAt(display, area.x + kAddBandX, area.y + kAddBandY);
    EXPECT_TRUE(waitFor(20, [&] { return windowName(display, main).rfind('*', 0) == 0; }))
        << windowName(display, main);
    pressSaveKeys(display, main);
    EXPECT_TRUE(waitFor(20, [&] {
        return chunkBandCount(SessionFile(sessionFolder("editor"), "editor").pluginChunk()) == 5;
    })) << "the saved session does not hold the fifth band";
    saveScreen("ardour_editor_added_band.png");
}
