// "render-editor": opens the editor in a host window, plays a test signal
// through the effect so the spectra show, and saves a picture of the window.
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "host/app/commands.h"
#include "host/app/host_setup.h"
#include "host/app/program_error.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/messages.h"
#include "host/ui/screenshot.h"

namespace {

constexpr int32_t kBlockFrames = 512;
constexpr int kSignalBlocks = 40;
constexpr uint32_t kTimerPeriodMs = 40;

// Noise with a tone on top, the same on every run.
class TestSignal {
public:
    explicit TestSignal(double sampleRate) : phaseStep_(2.0 * M_PI * 440.0 / sampleRate) {}
    void fill(StereoBuffer& buffer) {
        for (size_t i = 0; i < buffer.frames(); ++i) {
            seed_ = seed_ * 6364136223846793005ULL + 1442695040888963407ULL;
            double noise = static_cast<double>(seed_ >> 11) / 9007199254740992.0 - 0.5;
            double sample = 0.1 * noise + 0.25 * std::sin(phase_);
            phase_ += phaseStep_;
            buffer.left[i] = buffer.right[i] = sample;
        }
    }

private:
    double phaseStep_;
    double phase_ = 0.0;
    uint64_t seed_ = 1;
};

// Lets the editor's timer run for `milliseconds` of the host clock.
void letTimePass(uint32_t milliseconds) {
    kobal_layer::advanceTestClock(milliseconds);
    kobal_layer::pumpMessages();
}

void playTestSignal(EffectSession& session) {
    TestSignal signal(session.options().sampleRate);
    StereoBuffer input(kBlockFrames), output(kBlockFrames);
    double blockMs = 1000.0 * kBlockFrames / session.options().sampleRate;
    double elapsedMs = 0.0;
    for (int block = 0; block < kSignalBlocks; ++block) {
        signal.fill(input);
        session.process(input, output);
        elapsedMs += blockMs;
        if (elapsedMs >= kTimerPeriodMs) {
            letTimePass(kTimerPeriodMs);
            elapsedMs -= kTimerPeriodMs;
        }
    }
}

}  // namespace

int runRenderEditor(const CommandLine& line) {
    kobal_layer::useTestClock(1000);
    RunningEffect effect = startEffect(line);
    applyStateAndSettings(*effect.session, line);
    RECT frame{40, 40, 40 + line.windowWidth, 40 + line.windowHeight};
    HWND window = kobal_layer::createHostWindow("Ombro", frame);
    if (!effect.session->openEditor(window)) throw CommandFailure("the effect opened no editor");
    letTimePass(kTimerPeriodMs);
    playTestSignal(*effect.session);
    letTimePass(kTimerPeriodMs);
    const std::string& path = line.operands[0];
    bool saved = kobal_layer::saveScreenshot(window, path);
    effect.session->closeEditor();
    kobal_layer::resetWindowingLayer();
    if (!saved) throw CommandFailure("cannot write " + path);
    std::printf("editor picture written to %s\n", path.c_str());
    return 0;
}
