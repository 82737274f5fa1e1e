#include "host/app/editor_picture.h"

#include <algorithm>

#include "host/app/pending_output.h"
#include "host/app/program_error.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/messages.h"
#include "host/ui/screenshot.h"

namespace {

constexpr uint32_t kTimerPeriodMs = 40;
constexpr uint32_t kClockStartMs = 1000;
// The spectra show the last moments only; the editor's timer (and with it
// every repaint) runs over this much audio before the picture.
constexpr double kSpectrumSeconds = 1.0;

// Lets the editor's timer run for `milliseconds` of the host clock.
void letTimePass(uint32_t milliseconds) {
    kobal_layer::advanceTestClock(milliseconds);
    kobal_layer::pumpMessages();
}

void play(EffectSession& session, const BlockSource& source, int64_t frames) {
    double rate = session.options().sampleRate;
    size_t blockSize = static_cast<size_t>(session.options().blockSize);
    int64_t quietUntil = frames - static_cast<int64_t>(kSpectrumSeconds * rate);
    StereoBuffer input, output;
    double elapsedMs = 0.0;
    for (int64_t played = 0; played < frames;) {
        size_t wanted = static_cast<size_t>(std::min<int64_t>(blockSize, frames - played));
        size_t got = source(input, wanted);
        if (got == 0) break;
        session.process(input, output);
        played += static_cast<int64_t>(got);
        if (played < quietUntil) continue;
        elapsedMs += 1000.0 * static_cast<double>(got) / rate;
        for (; elapsedMs >= kTimerPeriodMs; elapsedMs -= kTimerPeriodMs) letTimePass(kTimerPeriodMs);
    }
}

}  // namespace

BlockSource bufferSource(const StereoBuffer& buffer) {
    return [&buffer, position = size_t{0}](StereoBuffer& block, size_t frames) mutable {
        size_t count = std::min(frames, buffer.frames() - position);
        block.resize(count);
        std::copy_n(buffer.left.begin() + static_cast<ptrdiff_t>(position), count, block.left.begin());
        std::copy_n(buffer.right.begin() + static_cast<ptrdiff_t>(position), count, block.right.begin());
        position += count;
        return count;
    };
}

void useEditorClock() { kobal_layer::useTestClock(kClockStartMs); }

void renderEditorPicture(EffectSession& session, const BlockSource& source,
                         const PictureRequest& request) {
    PendingOutput output(request.path);
    RECT frame{40, 40, 40 + request.width, 40 + request.height};
    HWND window = kobal_layer::createHostWindow("Ombro", frame);
    if (!session.openEditor(window)) {
        kobal_layer::resetWindowingLayer();
        throw CommandFailure("the effect opened no editor");
    }
    letTimePass(kTimerPeriodMs);
    play(session, source, request.frames);
    letTimePass(kTimerPeriodMs);
    bool saved = kobal_layer::saveScreenshot(window, output.path());
    session.closeEditor();
    kobal_layer::resetWindowingLayer();
    if (!saved) throw CommandFailure("cannot write " + request.path);
    output.commit();
}
