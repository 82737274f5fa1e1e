// The graph's paint never holds up the audio thread: while a paint is stopped
// inside any raster or window call it makes, a block of audio still runs
// through processDoubleReplacing to the end.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <type_traits>
#include <utility>
#include <vector>

#include "contracts/mura.h"
#include "engine/audio_processing.h"
#include "plugin/host_imports.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_fixture.h"

namespace {

constexpr int kFrames = 512;
// Only guards against a test that would otherwise wait forever on the lock.
constexpr auto kDeadlockGuard = std::chrono::seconds(20);

// One stop per paint: the first hooked call runs an audio block on another
// thread and waits for it before going on with the drawing.
struct AudioWhileStopped {
    EqInstance* instance = nullptr;
    bool stopped = false;
    bool blockFinished = false;
    std::future<void> block;  // joined after the paint, never inside it
    std::vector<double> left = std::vector<double>(kFrames, 0.25);
    std::vector<double> right = std::vector<double>(kFrames, -0.25);
    std::vector<double> out = std::vector<double>(2 * kFrames);

    void runBlockNow() {
        if (stopped) return;
        stopped = true;
        block = std::async(std::launch::async, [this] {
            double* inputs[] = {left.data(), right.data()};
            double* outputs[] = {out.data(), out.data() + kFrames};
            processDoubleReplacing(&instance->effect, inputs, outputs, kFrames);
        });
        blockFinished = block.wait_for(kDeadlockGuard) == std::future_status::ready;
    }
};

AudioWhileStopped audio;

// Replaces the function pointer in `Slot` with one that stops there first.
template <auto* Slot, typename Proc = std::remove_reference_t<decltype(*Slot)>>
struct StopInside;

template <auto* Slot, typename Result, typename... Arguments>
struct StopInside<Slot, Result (*)(Arguments...)> {
    static inline Result (*original)(Arguments...) = nullptr;
    static Result call(Arguments... arguments) {
        audio.runBlockNow();
        return original(arguments...);
    }
    // Installs the stop, or removes it when installed.
    static void toggle() {
        if (*Slot != &call) original = std::exchange(*Slot, &call);
        else *Slot = original;
    }
};

struct HookedCall {
    const char* name;
    void (*toggle)();
};

template <auto* Slot>
constexpr HookedCall hooked(const char* name) {
    return HookedCall{name, &StopInside<Slot>::toggle};
}

// Every raster and window call the paint makes.
const HookedCall kPaintCalls[] = {
    hooked<&hostExtensions.fillRect>("MURA_FillRect"),
    hooked<&hostExtensions.lineInt>("MURA_LineInt"),
    hooked<&hostExtensions.line>("MURA_Line"),
    hooked<&hostExtensions.fillCircle>("MURA_FillCircle"),
    hooked<&hostExtensions.circle>("MURA_Circle"),
    hooked<&hostExtensions.borderedRect>("MURA_BorderedRect"),
    hooked<&kobal::GetClientRect>("GetClientRect"),
    hooked<&kobal::GetSysColor>("GetSysColor"),
    hooked<&kobal::BitBlt>("BitBlt"),
    hooked<&kobal::EndPaint>("EndPaint"),
};

using ResponseViewAudioTest = EditorTest;

TEST_F(ResponseViewAudioTest, AudioBlockRunsWhileThePaintIsStoppedInsideAnyDrawingCall) {
    openView(600, 120);
    setBand(1, Band, 1000.0, 2.0, 1.0, false);  // an outline as well as discs
    instance->viewFlags |= kViewShowPhase;
    instance->hoverBand = 2;  // the readout box
    for (const HookedCall& call : kPaintCalls) {
        SCOPED_TRACE(call.name);
        audio = AudioWhileStopped{};
        audio.instance = instance;
        call.toggle();
        kobal::InvalidateRect(view, nullptr, 0);
        paint();
        call.toggle();
        ASSERT_TRUE(audio.stopped);
        audio.block.wait();
        EXPECT_TRUE(audio.blockFinished);
        EXPECT_NE(audio.out[kFrames - 1], 0.0);  // the block was processed
    }
}

}  // namespace
