// Ombro's editor in Ardour's GUI: Ardour started under the test's Xvfb on a
// session whose plug-in window is marked open shows the editor the bridge
// draws in its own X window inside Ardour's plug-in window.
#include <chrono>
#include <thread>

#include "tests/ardour/ardour_session_fixture.h"
#include "tests/ardour/ardour_windows.h"
#include "tests/ardour/session_file.h"
#include "tests/bridge/test_display.h"

namespace {

// The editor's own colours: the graph's background, the dialog face and the
// fill under the response curve.
constexpr uint32_t kGraphBackground = 0x000000;
constexpr uint32_t kDialogFace = 0xF0F0F0;
constexpr uint32_t kResponseFill = 0x006060;
constexpr int kSmallestEditorSide = 200;

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

}  // namespace

TEST_F(ArdourSessionTest, EditorShowsInArdoursPluginWindow) {
    if (testDisplayName().empty()) GTEST_SKIP() << "no Xvfb";
    // Band 3 raised by 6 dB, so that the response has an area to fill.
    createSession("editor", {"7=0.5"});
    SessionFile session(sessionFolder("editor"), "editor");
    ASSERT_TRUE(session.markPluginWindowOpen("Ombro", 60, 60));
    ASSERT_TRUE(session.save());

    std::string logPath = sandbox->path("ardour_gui.log");
    std::unique_ptr<BackgroundChild> ardour = sandbox->startGui(sessionFolder("editor"), logPath);
    ASSERT_TRUE(ardour && ardour->started());
    Display* display = XOpenDisplay(testDisplayName().c_str());
    ASSERT_NE(display, nullptr);

    Window pluginWindow = 0;
    ASSERT_TRUE(waitFor(90, [&] {
        pluginWindow = findWindowNamed(display, {"Ombro", "[VST]"});
        return pluginWindow != 0 || !ardour->running();
    }));
    ASSERT_NE(pluginWindow, 0u) << "Ardour ended without opening the plug-in window; see "
                                << logPath;
    Window editor = 0;
    std::vector<uint32_t> pixels;
    bool shown = waitFor(20, [&] {
        editor = innermostViewable(display, pluginWindow, kSmallestEditorSide);
        pixels = editor ? screenPixels(display, screenArea(display, editor)) : pixels;
        return showsEditor(pixels);
    });
    ScreenArea screen = screenArea(display, DefaultRootWindow(display));
    savePicture(screenPixels(display, screen), screen.width, screen.height,
                OMBRO_TEST_OUTPUT_DIR "/ardour_editor.png");
    EXPECT_TRUE(shown) << "graph " << colorShare(pixels, kGraphBackground) << ", face "
                       << colorShare(pixels, kDialogFace) << ", fill "
                       << colorShare(pixels, kResponseFill);
    XCloseDisplay(display);
}
