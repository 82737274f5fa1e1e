// "edit": the editor in an X window of its own while a recording (or the
// built-in tones) plays through the effect in a loop; when the window is
// closed, or the program is interrupted, the state goes back to the file.
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <thread>

#include "host/app/commands.h"
#include "host/app/host_setup.h"
#include "host/app/looped_playback.h"
#include "host/app/program_error.h"
#include "host/app/state_file.h"
#include "host/app/sound_file.h"
#include "host/ui/host_windows.h"
#include "host/x11/layer_window_view.h"

namespace {

constexpr auto kIdlePeriod = std::chrono::milliseconds(10);

volatile std::sig_atomic_t stopSignal = 0;

void noteStopSignal(int signal) { stopSignal = signal; }

// SIGINT and SIGTERM end the session the way closing the window does.
class StopSignals {
public:
    StopSignals() {
        stopSignal = 0;
        struct sigaction action {};
        action.sa_handler = noteStopSignal;
        sigemptyset(&action.sa_mask);
        sigaction(SIGINT, &action, &previousInterrupt_);
        sigaction(SIGTERM, &action, &previousTerminate_);
    }
    ~StopSignals() {
        sigaction(SIGINT, &previousInterrupt_, nullptr);
        sigaction(SIGTERM, &previousTerminate_, nullptr);
    }
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

private:
    struct sigaction previousInterrupt_ {};
    struct sigaction previousTerminate_ {};
};

StereoBuffer readRecording(const std::string& path, int& sampleRate) {
    SoundReader reader(path);
    StereoBuffer recording, block;
    while (reader.read(block, 65536) > 0) {
        recording.left.insert(recording.left.end(), block.left.begin(), block.left.end());
        recording.right.insert(recording.right.end(), block.right.begin(), block.right.end());
    }
    if (recording.frames() == 0) throw CommandFailure(path + " holds no audio");
    sampleRate = reader.sampleRate();
    return recording;
}

// Loads the state file when it exists (a new file starts from the default
// bands), then the --set values.
void loadStartingState(EffectSession& session, const CommandLine& line) {
    CommandLine start = line;
    if (start.stateFile && !std::filesystem::exists(*start.stateFile)) {
        std::printf("%s does not exist yet: starting from the default bands\n",
                    start.stateFile->c_str());
        start.stateFile.reset();
    }
    applyStateAndSettings(session, start);
}

std::unique_ptr<SoundOutput> soundIfWanted(const CommandLine& line, int sampleRate) {
    if (!line.playSound) return nullptr;
    std::string reason;
    std::unique_ptr<SoundOutput> sound = SoundOutput::openDefault(sampleRate, reason);
    if (!sound) std::printf("no sound output (%s): playing silently\n", reason.c_str());
    return sound;
}

// Written beside the file and renamed over it, so that a failure leaves
// the old state whole.
void writeStateBack(const std::string& path, const std::vector<uint8_t>& chunk) {
    const std::string written = path + ".new";
    writeStateFile(written, chunk);
    std::error_code error;
    std::filesystem::rename(written, path, error);
    if (error) throw CommandFailure("cannot replace state file " + path + ": " + error.message());
}

// Runs the window until it is closed, a stop signal comes or the
// --quit-after time is up.
void runWindow(x11_front::LayerWindowView& view, const CommandLine& line) {
    const auto start = std::chrono::steady_clock::now();
    const auto limit = std::chrono::duration<double>(line.quitAfterSeconds.value_or(1e9));
    while (!stopSignal && !view.closeRequested() &&
           std::chrono::steady_clock::now() - start < limit) {
        view.idle();
        std::this_thread::sleep_for(kIdlePeriod);
    }
}

}  // namespace

int runEdit(const CommandLine& line) {
    int sampleRate = static_cast<int>(line.sampleRate.value_or(kDefaultSampleRate));
    StereoBuffer recording;
    if (line.audioFile) recording = readRecording(*line.audioFile, sampleRate);
    RunningEffect effect = startEffect(line, sampleRate);
    sampleRate = static_cast<int>(effect.session->options().sampleRate);
    if (!line.audioFile) recording = makeLoopSignal(sampleRate);
    loadStartingState(*effect.session, line);

    RECT frame{0, 0, line.windowWidth, line.windowHeight};
    HWND window = kobal_layer::createHostWindow("Ombro", frame);
    if (!effect.session->openEditor(window)) throw CommandFailure("the effect opened no editor");
    std::string title = line.stateFile ? "Ombro - " + *line.stateFile : "Ombro";
    std::unique_ptr<x11_front::LayerWindowView> view =
        x11_front::LayerWindowView::open(window, 0, title);
    if (!view) {
        effect.session->closeEditor();
        kobal_layer::resetWindowingLayer();  // the host window goes with the layer's windows
        throw CommandFailure(
            "cannot open the X display (is DISPLAY set to a 24- or 32-bit "
            "TrueColor screen?)");
    }
    {
        StopSignals signals;
        LoopedPlayback playback(*effect.session, std::move(recording), sampleRate,
                                soundIfWanted(line, sampleRate));
        std::printf("editing: close the window or press Ctrl+C to finish\n");
        std::fflush(stdout);
        runWindow(*view, line);
    }
    view.reset();
    effect.session->closeEditor();
    kobal_layer::resetWindowingLayer();
    if (line.stateFile) {
        writeStateBack(*line.stateFile, effect.session->chunk());
        std::printf("state written to %s\n", line.stateFile->c_str());
    }
    return 0;
}
