// "ombro-host edit": the editor in an X window of its own while audio plays.
// The test is the user at the X server, driving it through XTest; the edits
// go back to the state file when the window closes or the program is stopped.
#include <gtest/gtest.h>
// after the test framework, whose names the X headers would shadow
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <signal.h>
#include <sndfile.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>

#include "tests/host/program_runner.h"
#include "tests/x11/x_actions.h"
#include "tests/x11/xvfb_server.h"

namespace {

// Where the editor lays out an 800x500 window: the graph and the band panel's gain box.
constexpr int kGraphLeft = 14, kGraphTop = 19, kGraphRight = 745, kGraphBottom = 277;
constexpr XPoint kGainBox{595, 380};

// Where a handle at `hz` and 0 dB lies: log frequency across, 0 dB halfway down.
XPoint zeroDbPointOf(double hz) {
    const double position = std::log((hz - 20.0) / 59.95 + 1.0) / 5.993961427306569;
    return {static_cast<short>(kGraphLeft + position * (kGraphRight - kGraphLeft)),
            kGraphBottom - (kGraphBottom - kGraphTop) / 2};
}

bool pollUntil(const std::function<bool()>& done) {
    for (int poll = 0; poll < 1000; ++poll, usleep(10000))
        if (done()) return true;
    return false;
}

// The user at the X server: pointer, buttons and keys through XTest, and
// what the program's window shows.
class XUser {
public:
    XUser() : display_(XOpenDisplay(nullptr)) {}
    ~XUser() { XCloseDisplay(display_); }

    // The program's window: the one shown top-level window on the test's own server, or 0.
    Window programWindow() const {
        Window shown = 0;
        for (Window child : childWindows(display_, DefaultRootWindow(display_))) {
            XWindowAttributes attributes{};
            if (XGetWindowAttributes(display_, child, &attributes) &&
                attributes.map_state == IsViewable)
                shown = child;
        }
        return shown;
    }
    std::vector<uint32_t> picture(Window window) const {
        return windowPixels(display_, window, 0, 0, 800, 500);
    }
    void moveTo(Window window, XPoint point) { movePointer(display_, window, point.x, point.y); }
    void button(unsigned which, bool down) { pressButton(display_, which, down); }
    void key(KeySym key, bool down) {
        sync(XTestFakeKeyEvent(display_, XKeysymToKeycode(display_, key), down, 0));
    }
    void click(Window window, unsigned int which, XPoint point) {
        moveTo(window, point);
        button(which, true);
        button(which, false);
    }
    // Asks the window to close, as a window manager does.
    void closeWindow(Window window) {
        XEvent event{};
        event.xclient = {ClientMessage, 0, False, display_, window,
                         XInternAtom(display_, "WM_PROTOCOLS", False), 32, {}};
        event.xclient.data.l[0] = static_cast<long>(XInternAtom(display_, "WM_DELETE_WINDOW", False));
        sync(XSendEvent(display_, window, False, NoEventMask, &event));
    }

private:
    void sync(int) { XSync(display_, False); }
    Display* display_;
};

// A band as load-state lists it.
struct Band {
    double frequency = 0, gain = 0, bandwidth = 0;
    char enabled[4] = "";
};

Band bandIn(const std::string& state, int number) {
    ProgramResult loaded = runHostProgram({"load-state", state});
    std::vector<std::string> lines = linesStartingWith(loaded.out, "   " + std::to_string(number) + "  ");
    Band band;
    if (!lines.empty())
        std::sscanf(lines[0].c_str() + 20, "%lf %lf %lf %3s", &band.frequency, &band.gain,
                    &band.bandwidth, band.enabled);
    return band;
}

class EditProgram : public ::testing::Test {
protected:
    void SetUp() override {
        SKIP_WITHOUT_XVFB();
        user = std::make_unique<XUser>();
        statePath = temporaryPath("edit.state");
    }
    void TearDown() override {
        if (program.processId > 0) kill(program.processId, SIGKILL);
        finish();
        std::remove(statePath.c_str());
    }
    // Starts the program and waits for its window to show the editor at rest.
    Window start(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--size", "800x500", "--quit-after", "60"});
        program = startHostProgram(arguments);
        Window window = 0;
        std::vector<uint32_t> previous;
        pollUntil([&] {
            window = user->programWindow();
            std::vector<uint32_t> now = window ? user->picture(window) : std::vector<uint32_t>{};
            bool still = !now.empty() && now == previous && now[20 * 800 + 15] != now[0];
            previous = now;
            return still;
        });
        return window;
    }
    ProgramResult finish() {
        RunningProgram ended = program;
        program = {};
        return ended.processId > 0 ? finishHostProgram(ended) : ProgramResult{};
    }

    std::unique_ptr<XUser> user;
    std::string statePath;
    RunningProgram program;
};

enum class Gesture { Drag, Wheel, DoubleClick, TypeGain };

struct UserEdit {
    const char* name;
    Gesture gesture;
    KeySym heldKey;  // or for a wheel turn, its button
    int band;                        // 3 at 1 kHz or 1 at 100 Hz, whose panel shows
    int frequency, gain, bandwidth;  // the way each moves: -1, 0, +1
    const char* enabled;
};

void perform(XUser& user, Window window, const UserEdit& edit) {
    const XPoint at = zeroDbPointOf(edit.band == 3 ? 1000.0 : 100.0);
    if (edit.gesture == Gesture::Wheel) user.click(window, edit.heldKey, at);
    else if (edit.heldKey != NoSymbol) user.key(edit.heldKey, true);
    if (edit.gesture == Gesture::Drag) {
        user.moveTo(window, at);
        user.button(Button1, true);
        for (short step = 1; step <= 8; ++step)
            user.moveTo(window, {static_cast<short>(at.x + 60 * step / 8), static_cast<short>(at.y - 5 * step)});
        user.button(Button1, false);
    }
    for (int click = 0; click < 2 && edit.gesture == Gesture::DoubleClick; ++click)
        user.click(window, Button1, at);
    if (edit.gesture == Gesture::TypeGain) {
        user.click(window, Button1, kGainBox);
        for (KeySym key : {XK_End, XK_BackSpace, XK_BackSpace, XK_BackSpace, XK_BackSpace,
                           XK_minus, XK_6, XK_Return}) {
            user.key(key, true);
            user.key(key, false);
        }
    }
    if (edit.gesture == Gesture::Drag && edit.heldKey != NoSymbol) user.key(edit.heldKey, false);
}

int direction(double before, double after) { return (after > before) - (after < before); }

// A diagonal drag on a handle moves frequency and gain; Shift turns it into a
// bandwidth drag; Control holds the frequency and Alt the gain.
TEST_F(EditProgram, UsersEditsInTheWindowAreWrittenBackWhenItCloses) {
    const UserEdit edits[] = {
        {"drag", Gesture::Drag, NoSymbol, 3, +1, +1, 0, "yes"},
        {"shift drag", Gesture::Drag, XK_Shift_L, 3, 0, 0, +1, "yes"},
        {"control drag", Gesture::Drag, XK_Control_L, 3, 0, +1, 0, "yes"},
        {"alt drag", Gesture::Drag, XK_Alt_L, 3, +1, 0, 0, "yes"},
        {"wheel up", Gesture::Wheel, Button4, 3, 0, 0, +1, "yes"},
        {"wheel down", Gesture::Wheel, Button5, 3, 0, 0, -1, "yes"},
        {"double click", Gesture::DoubleClick, NoSymbol, 1, 0, 0, 0, "no"},
        {"typed gain", Gesture::TypeGain, NoSymbol, 1, 0, -1, 0, "yes"},
    };
    for (const UserEdit& edit : edits) {
        SCOPED_TRACE(edit.name);
        ASSERT_EQ(runHostProgram({"save-state", statePath, "--set", "10=0.125"}).exitCode, 0);
        const Band before = bandIn(statePath, edit.band);
        Window window = start({"edit", "--state", statePath});
        ASSERT_NE(window, 0u);
        perform(*user, window, edit);
        user->closeWindow(window);
        ProgramResult run = finish();
        ASSERT_EQ(run.exitCode, 0) << run.err;
        EXPECT_TRUE(hasText(run.out, "state written to " + statePath));
        const Band after = bandIn(statePath, edit.band);
        EXPECT_EQ(direction(before.frequency, after.frequency), edit.frequency);
        EXPECT_EQ(direction(before.gain, after.gain), edit.gain);
        EXPECT_EQ(direction(before.bandwidth, after.bandwidth), edit.bandwidth);
        EXPECT_STREQ(after.enabled, edit.enabled);
        EXPECT_EQ(bandIn(statePath, 4).gain, -6.02);  // the rest as it was
        EXPECT_FALSE(std::filesystem::exists(statePath + ".new"));
    }
}

TEST_F(EditProgram, StopSignalWritesANewStateFileAndNoDisplayIsAnError) {
    ASSERT_NE(start({"edit", "--state", statePath, "--set", "10=0.5"}), 0u);
    kill(program.processId, SIGTERM);
    ProgramResult run = finish();
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_TRUE(hasText(run.out, "does not exist yet"));
    EXPECT_EQ(bandIn(statePath, 4).gain, 6.02);
    std::string display = std::getenv("DISPLAY");
    unsetenv("DISPLAY");
    run = runHostProgram({"edit", "--quit-after", "1"});
    setenv("DISPLAY", display.c_str(), 1);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(linesStartingWith(run.err, "").size(), 1u);
    EXPECT_TRUE(hasText(run.err, "cannot open the X display")) << run.err;
}

TEST_F(EditProgram, PlayedRecordingMovesTheSpectra) {
    std::string tone = temporaryPath("tone.wav");
    SF_INFO info{0, 44100, 1, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0, 0};
    SNDFILE* file = sf_open(tone.c_str(), SFM_WRITE, &info);
    for (int i = 0; i < 44100; ++i)
        sf_write_double(file, std::vector{0.3 * std::sin(2.0 * M_PI * 1000.0 * i / 44100.0)}.data(), 1);
    sf_close(file);
    Window window = start({"edit", "--audio", tone, "--play"});
    ASSERT_NE(window, 0u);
    const std::vector<uint32_t> first = user->picture(window);
    EXPECT_TRUE(pollUntil([&] { return user->picture(window) != first; }));
    user->closeWindow(window);
    EXPECT_EQ(finish().exitCode, 0);
    std::remove(tone.c_str());
}

}  // namespace
