// "ombro-host edit": the editor in an X window of its own while audio plays.
// The test is the user at the X server, driving it through XTest; the edits
// go back to the state file when the window closes or the program is stopped.
#include <gtest/gtest.h>
// after the test framework, whose names the X headers would shadow
#include <X11/keysym.h>
#include <signal.h>
#include <sndfile.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>

#include "tests/host/program_runner.h"
#include "tests/x11/x_user.h"
#include "tests/x11/xvfb_server.h"

namespace {

// Where the editor lays out an 800x500 window: the graph and the band panel's gain box.
constexpr int kGraphLeft = 14, kGraphTop = 19, kGraphRight = 745, kGraphBottom = 277;
constexpr XPoint2 kGainBox{595, 380};

// Where the graph puts a handle at `hz` and 0 dB: the logarithmic frequency
// axis across, 0 dB halfway down the dB axis.
XPoint2 zeroDbPointOf(double hz) {
    const double position = std::log((hz - 20.0) / 59.95 + 1.0) / 5.993961427306569;
    return {kGraphLeft + static_cast<int>(position * (kGraphRight - kGraphLeft)),
            kGraphBottom - (kGraphBottom - kGraphTop) / 2};
}

bool pollUntil(const std::function<bool()>& done) {
    for (int poll = 0; poll < 1000; ++poll, usleep(10000))
        if (done()) return true;
    return false;
}

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
        ASSERT_TRUE(user->connected());
        statePath = temporaryPath("edit.state");
    }
    void TearDown() override {
        if (program.processId > 0) {
            kill(program.processId, SIGKILL);
            finish();
        }
        std::remove(statePath.c_str());
    }
    // Starts the program and waits for its window to show the editor at rest.
    Window start(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--size", "800x500", "--quit-after", "60"});
        program = startHostProgram(arguments);
        Window window = 0;
        XPicture previous;
        pollUntil([&] {
            window = user->findTopLevel("Ombro");
            if (!window) return false;
            XPicture now = user->picture(window);
            bool still = now == previous && now.at(kGraphLeft + 1, kGraphTop + 1) != now.at(0, 0);
            previous = now;
            return still;
        });
        return window;
    }
    ProgramResult finish() {
        RunningProgram ended = program;
        program = {};
        return finishHostProgram(ended);
    }

    std::unique_ptr<XUser> user;
    std::string statePath;
    RunningProgram program;
};

enum class Gesture { Drag, WheelUp, WheelDown, DoubleClick, TypeGain };

struct UserEdit {
    const char* name;
    Gesture gesture;
    KeySym heldKey;
    int band;                        // 3 at 1 kHz or 1 at 100 Hz, whose panel shows
    int frequency, gain, bandwidth;  // the way each moves: -1, 0, +1
    const char* enabled;
};

void perform(XUser& user, Window window, const UserEdit& edit) {
    const XPoint2 handle = user.onScreen(window, zeroDbPointOf(edit.band == 3 ? 1000.0 : 100.0));
    if (edit.heldKey != NoSymbol) user.pressKey(edit.heldKey, true);
    if (edit.gesture == Gesture::Drag) user.drag(handle, {handle.x + 60, handle.y - 40});
    if (edit.gesture == Gesture::WheelUp) user.click(Button4, handle);
    if (edit.gesture == Gesture::WheelDown) user.click(Button5, handle);
    if (edit.gesture == Gesture::DoubleClick) {
        user.click(Button1, handle);
        user.click(Button1, handle);
    }
    if (edit.gesture == Gesture::TypeGain) {
        user.click(Button1, user.onScreen(window, kGainBox));
        for (KeySym key : {XK_End, XK_BackSpace, XK_BackSpace, XK_BackSpace, XK_BackSpace, XK_minus,
                           XK_6, XK_Return})
            user.tapKey(key);
    }
    if (edit.heldKey != NoSymbol) user.pressKey(edit.heldKey, false);
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
        {"wheel up", Gesture::WheelUp, NoSymbol, 3, 0, 0, +1, "yes"},
        {"wheel down", Gesture::WheelDown, NoSymbol, 3, 0, 0, -1, "yes"},
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
        EXPECT_NE(run.out.find("state written to " + statePath), std::string::npos);
        const Band after = bandIn(statePath, edit.band);
        EXPECT_EQ(direction(before.frequency, after.frequency), edit.frequency);
        EXPECT_EQ(direction(before.gain, after.gain), edit.gain);
        EXPECT_EQ(direction(before.bandwidth, after.bandwidth), edit.bandwidth);
        EXPECT_STREQ(after.enabled, edit.enabled);
        EXPECT_EQ(bandIn(statePath, 4).gain, -6.02);  // the rest as it was
        EXPECT_FALSE(std::filesystem::exists(statePath + ".new"));
    }
}

TEST_F(EditProgram, StopSignalWritesANewStateFile) {
    ASSERT_NE(start({"edit", "--state", statePath, "--set", "10=0.5"}), 0u);
    kill(program.processId, SIGTERM);
    ProgramResult run = finish();
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_NE(run.out.find("does not exist yet"), std::string::npos);
    EXPECT_EQ(bandIn(statePath, 4).gain, 6.02);
}

TEST_F(EditProgram, PlayedRecordingMovesTheSpectra) {
    std::string tone = temporaryPath("tone.wav");
    SF_INFO info{0, 44100, 1, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0, 0};
    SNDFILE* file = sf_open(tone.c_str(), SFM_WRITE, &info);
    for (int i = 0; i < 44100; ++i) {
        float sample = 0.3f * static_cast<float>(std::sin(2.0 * M_PI * 1000.0 * i / 44100.0));
        sf_write_float(file, &sample, 1);
    }
    sf_close(file);
    Window window = start({"edit", "--audio", tone, "--play"});
    ASSERT_NE(window, 0u);
    const XPicture first = user->picture(window);
    EXPECT_TRUE(pollUntil([&] { return !(user->picture(window) == first); }));
    user->closeWindow(window);
    EXPECT_EQ(finish().exitCode, 0);
    std::remove(tone.c_str());
}

TEST_F(EditProgram, BadUseEndsWithAOneLineReason) {
    struct BadEdit {
        std::vector<std::string> arguments;
        int exitCode;
        const char* message;
    };
    const BadEdit cases[] = {
        {{"edit", "extra"}, 2, "edit expects no arguments"},
        {{"edit", "--quit-after", "-1"}, 2, "must not be negative"},
        {{"edit", "--audio", "/nonexistent/in.wav"}, 1, "/nonexistent/in.wav"},
        {{"edit", "--quit-after", "1"}, 1, "cannot open the X display"},  // without a display
    };
    std::string display = std::getenv("DISPLAY");
    for (const BadEdit& bad : cases) {
        SCOPED_TRACE(bad.message);
        if (bad.exitCode == 1 && bad.arguments[1] == "--quit-after") unsetenv("DISPLAY");
        ProgramResult run = runHostProgram(bad.arguments);
        setenv("DISPLAY", display.c_str(), 1);
        EXPECT_EQ(run.exitCode, bad.exitCode);
        EXPECT_EQ(linesStartingWith(run.err, "ombro-host: ").size(), 1u) << run.err;
        EXPECT_NE(run.err.find(bad.message), std::string::npos) << run.err;
    }
}

}  // namespace
