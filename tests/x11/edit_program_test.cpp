// "ombro-host edit": the editor in an X window of its own while audio plays;
// the user's edits go back to the state file when the window closes or the
// program is stopped.
#include <signal.h>
#include <sndfile.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <vector>

#include "host/host_session.h"
#include "host/raster/canvas.h"
#include "host/ui/dialog_items.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/messages.h"
#include "host/ui/screenshot.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"
#include "tests/host/program_runner.h"
#include "tests/x11/x11_editor_fixture.h"

namespace {

constexpr int kWidth = 800, kHeight = 500;
constexpr int kGraph = 1023;
constexpr int kMostPolls = 1000;  // 10 s

bool pollUntil(const std::function<bool()>& done) {
    for (int poll = 0; poll < kMostPolls; ++poll) {
        if (done()) return true;
        usleep(10000);
    }
    return false;
}

std::vector<uint8_t> readBytes(const std::string& path) {
    std::vector<uint8_t> bytes(std::filesystem::file_size(path));
    FILE* file = std::fopen(path.c_str(), "rb");
    size_t got = file ? std::fread(bytes.data(), 1, bytes.size(), file) : 0;
    if (file) std::fclose(file);
    bytes.resize(got);
    return bytes;
}

// The program's editor as this process lays out the same editor (from
// `state`, or the default bands when empty) in a host window of the same
// size: where the graph lies, and how the parts that no spectrum touches look.
struct EditorLayout {
    RECT graph{};         // in the window
    XPicture belowGraph;  // the rows under the graph
};

EditorLayout layoutOf(const std::vector<uint8_t>& state) {
    PluginLibrary library;
    std::unique_ptr<EffectSession> session = EffectSession::open(library);
    if (!state.empty()) session->setChunk(state);
    kobal_layer::useTestClock(1000);
    HWND host = kobal_layer::createHostWindow("probe", RECT{0, 0, kWidth, kHeight});
    session->openEditor(host);
    for (int tick = 0; tick < 5; ++tick) {
        kobal_layer::advanceTestClock(40);
        kobal_layer::pumpMessages();
    }
    HWND editor = kobal_layer::liveWindow(host)->children[0];
    HWND graph = kobal_layer::GetDlgItem(editor, kGraph);
    EditorLayout layout;
    kobal_layer::GetWindowRect(graph, &layout.graph);
    std::unique_ptr<Canvas> canvas = kobal_layer::renderWindow(host);
    layout.belowGraph.width = kWidth;
    layout.belowGraph.height = kHeight - layout.graph.bottom;
    for (int y = layout.graph.bottom; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            layout.belowGraph.pixels.push_back(canvas->pixel(x, y) & 0xFFFFFF);
    session->closeEditor();
    kobal_layer::resetWindowingLayer();
    kobal_layer::useRealClock();
    return layout;
}

XPicture rowsBelow(const XPicture& picture, int top) {
    XPicture rows;
    rows.width = picture.width;
    rows.height = picture.height - top;
    rows.pixels.assign(picture.pixels.begin() + static_cast<long>(top) * picture.width,
                       picture.pixels.end());
    return rows;
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
        if (program.processId > 0 && !finished) {
            kill(program.processId, SIGKILL);
            finishHostProgram(program);
        }
        std::remove(statePath.c_str());
    }
    void start(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--size", "800x500", "--quit-after", "60"});
        program = startHostProgram(arguments);
        ASSERT_GT(program.processId, 0);
    }
    ProgramResult finish() {
        finished = true;
        return finishHostProgram(program);
    }
    // Waits for the program's window to show, laid out as `layout` says.
    Window shownWindow(const EditorLayout* layout) {
        Window window = 0;
        bool shown = pollUntil([&] {
            window = user->findTopLevel("Ombro");
            if (!window || !user->isShown(window)) return false;
            return !layout ||
                   differingPixels(rowsBelow(user->picture(window), layout->graph.bottom),
                                   layout->belowGraph) == 0;
        });
        return shown ? window : 0;
    }
    std::vector<float> parametersIn(const std::string& path) {
        PluginLibrary library;
        std::unique_ptr<EffectSession> session = EffectSession::open(library);
        session->setChunk(readBytes(path));
        std::vector<float> values;
        for (int32_t i = 0; i < session->parameterCount(); ++i)
            values.push_back(session->parameter(i));
        return values;
    }

    std::unique_ptr<XUser> user;
    std::string statePath;
    RunningProgram program;
    bool finished = false;
};

TEST_F(EditProgram, DragInTheWindowIsWrittenBackWhenTheWindowCloses) {
    ASSERT_EQ(runHostProgram({"save-state", statePath, "--set", "10=0.125"}).exitCode, 0);
    const std::vector<float> before = parametersIn(statePath);
    const EditorLayout layout = layoutOf(readBytes(statePath));
    start({"edit", "--state", statePath});
    Window window = shownWindow(&layout);
    ASSERT_NE(window, 0u);
    const POINT band3 = zeroDbPointOf(1000.0, layout.graph);  // a default band
    const XPoint2 handle = user->onScreen(window, {band3.x, band3.y});
    user->drag(handle, {handle.x + 40, handle.y - 30});
    user->closeWindow(window);
    ProgramResult run = finish();
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_NE(run.out.find("state written to " + statePath), std::string::npos);
    const std::vector<float> after = parametersIn(statePath);
    ASSERT_EQ(after.size(), before.size());
    EXPECT_GT(after[6], before[6]);  // higher
    EXPECT_GT(after[7], before[7]);  // louder
    EXPECT_EQ(after[10], 0.125f);    // the rest as it was
    EXPECT_FALSE(std::filesystem::exists(statePath + ".new"));
}

TEST_F(EditProgram, StopSignalWritesANewStateFile) {
    start({"edit", "--state", statePath, "--set", "10=0.5"});
    ASSERT_NE(shownWindow(nullptr), 0u);
    kill(program.processId, SIGTERM);
    ProgramResult run = finish();
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_NE(run.out.find("does not exist yet"), std::string::npos);
    EXPECT_EQ(parametersIn(statePath)[10], 0.5f);
}

// A one-second tone as a WAV file.
std::string writeToneFile() {
    std::string path = temporaryPath("tone.wav");
    SF_INFO info{};
    info.samplerate = 44100;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    std::vector<float> tone(44100);
    for (size_t i = 0; i < tone.size(); ++i)
        tone[i] = 0.3f * static_cast<float>(std::sin(2.0 * M_PI * 1000.0 * i / 44100.0));
    sf_write_float(file, tone.data(), static_cast<sf_count_t>(tone.size()));
    sf_close(file);
    return path;
}

TEST_F(EditProgram, PlayedRecordingMovesTheSpectra) {
    const std::string tone = writeToneFile();
    const EditorLayout layout = layoutOf({});
    start({"edit", "--audio", tone, "--play"});
    Window window = shownWindow(&layout);
    ASSERT_NE(window, 0u);
    const XPicture first = user->picture(window);
    EXPECT_TRUE(pollUntil([&] { return differingPixels(user->picture(window), first) > 50; }));
    user->closeWindow(window);
    ProgramResult run = finish();
    EXPECT_EQ(run.exitCode, 0) << run.err;
    std::remove(tone.c_str());
}

struct BadEdit {
    const char* name;
    std::vector<std::string> arguments;
    bool withoutDisplay;
    int exitCode;
    const char* message;
};

void PrintTo(const BadEdit& value, std::ostream* out) { *out << value.name; }

class BadEditUse : public EditProgram, public ::testing::WithParamInterface<BadEdit> {};

TEST_P(BadEditUse, EndsWithAOneLineReason) {
    const BadEdit& bad = GetParam();
    std::string display = std::getenv("DISPLAY");
    if (bad.withoutDisplay) unsetenv("DISPLAY");
    ProgramResult run = runHostProgram(bad.arguments);
    setenv("DISPLAY", display.c_str(), 1);
    EXPECT_EQ(run.exitCode, bad.exitCode);
    EXPECT_EQ(linesStartingWith(run.err, "ombro-host: ").size(), 1u) << run.err;
    EXPECT_NE(run.err.find(bad.message), std::string::npos) << run.err;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, BadEditUse,
    ::testing::Values(
        BadEdit{"operand", {"edit", "extra"}, false, 2, "edit expects no arguments"},
        BadEdit{"negativeTime", {"edit", "--quit-after", "-1"}, false, 2, "must not be negative"},
        BadEdit{"missingAudio",
                {"edit", "--audio", "/nonexistent/in.wav"},
                false,
                1,
                "/nonexistent/in.wav"},
        BadEdit{"noDisplay", {"edit", "--quit-after", "1"}, true, 1, "cannot open the X display"}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
