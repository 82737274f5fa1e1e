// The graph: the response it evaluates per column against each band's
// complex response, its phase, the pixels it paints, the live spectra
// through the host's real FFT, and a paint that never holds up the audio
// thread.

#include <chrono>
#include <cmath>
#include <complex>
#include <future>
#include <numbers>
#include <type_traits>
#include <utility>

#include "engine/audio_processing.h"
#include "host/ui/host_clock.h"
#include "plugin/host_imports.h"
#include "tests/editor/editor_fixture.h"
#include "view/graph_axes.h"
#include "view/graph_snapshot.h"
#include "view/last_response.h"
#include "view/response_curve.h"

namespace {

constexpr uint32_t kBackground = 0xff000000;
constexpr uint32_t kSelectedRed = 0xffff2222;

// The paint's column frequency, written out here.
double columnHz(int x, int width) {
    return (std::exp(x * 5.993961427306569 / width) - 1.0) * 23980.0 * 0.0025 + 20.0;
}

// The band's response at `hz`, evaluated as a complex ratio.
std::complex<double> complexResponse(const EqBand& b, double hz) {
    const double w = 2.0 * std::numbers::pi * hz / b.sampleRate;
    const std::complex<double> z1 = std::polar(1.0, -w), z2 = std::polar(1.0, -2.0 * w);
    return (b.b0 + b.b1 * z1 + b.b2 * z2) / (1.0 + b.a1 * z1 + b.a2 * z2);
}

// The column value of a level in dB on the ±12 dB axis.
double columnValue(double db) { return (db + 12.0) / 24.0 - 0.5; }

// A 600 by 120 graph without grid and with every band off.
class ResponseViewTest : public EditorTest {
protected:
    void SetUp() override {
        EditorTest::SetUp();
        openView(600, 120);
        instance->showGrid = 0;
        silenceAllBands();
    }
    EqBand designed(int32_t type, double frequency, double gain, double bandwidth) {
        setBand(2, type, frequency, gain, bandwidth);
        return band(2);
    }
    // Evaluates these bands over the graph; answers the drawn width.
    int evaluate(std::vector<BandCopy> bands, std::vector<double>& magnitude,
                 std::vector<double>* phase = nullptr) {
        magnitude.assign(600, 0.0);
        if (phase) phase->assign(600, 0.0);
        const GraphSnapshot snapshot{bands.data(), static_cast<int>(bands.size()), 0, -1};
        return sumBandResponses(snapshot, graphAxes(*instance, 600, 120),
                                {magnitude.data(), phase ? phase->data() : nullptr});
    }
    // Pixels close to `color` (each channel within 0x40, outlines are smoothed)
    // at 4.5 to 8 pixels from a handle's centre: its outline.
    int ringPixels(int centreX, int centreY, uint32_t color) const {
        const auto near = [](uint32_t a, uint32_t b) {
            for (int shift : {0, 8, 16})
                if (std::abs(int((a >> shift) & 0xff) - int((b >> shift) & 0xff)) >= 0x40)
                    return false;
            return true;
        };
        int count = 0;
        for (int y = centreY - 8; y <= centreY + 8; ++y)
            for (int x = centreX - 8; x <= centreX + 8; ++x)
                count += near(pixel(x, y), color) && std::hypot(x - centreX, y - centreY) > 4.5;
        return count;
    }
};

// Every column holds the band's response at its frequency, up to half the
// sample rate (column 592); a narrow peak shows its full gain at its centre
// column, a notch 120 dB deep.
TEST_F(ResponseViewTest, ColumnsHoldTheResponseAtTheirFrequency) {
    const EqBand shelf = designed(HighShelf, 1000.0, 2.5, 1.0);
    std::vector<double> magnitude;
    EXPECT_EQ(evaluate({BandCopy{shelf, true}}, magnitude), 592);
    for (int x = 0; x < 592; x += 7) {
        const double db = 20.0 * std::log10(std::abs(complexResponse(shelf, columnHz(x, 600))));
        EXPECT_NEAR(magnitude[x], columnValue(db), 1e-12) << x;
    }
    evaluate({BandCopy{designed(Band, 1000.0, 4.0, 0.01), true}}, magnitude);
    EXPECT_EQ(magnitude[285], columnValue(std::log(4.0) * 8.685889638065037));
    EXPECT_LT(magnitude[284], 0.5 * magnitude[285]);
    evaluate({BandCopy{designed(Notch, 1000.0, 1.0, 1.0), true}}, magnitude);
    EXPECT_EQ(magnitude[285], columnValue(-120.0));
}

// What one evaluation gives: both column arrays and the drawn width.
struct Evaluation {
    std::vector<double> magnitude, phase;
    int drawnWidth;
    bool operator==(const Evaluation&) const = default;
};

template <typename Evaluate>
Evaluation evaluateWith(Evaluate evaluate, const std::vector<BandCopy>& bands,
                        const GraphAxes& axes, bool withPhase) {
    Evaluation result{std::vector<double>(axes.width), std::vector<double>(axes.width), 0};
    const GraphSnapshot snapshot{bands.data(), static_cast<int>(bands.size()), 0, -1};
    result.drawnWidth = evaluate(snapshot, axes, ResponseColumns{result.magnitude.data(),
                                 withPhase ? result.phase.data() : nullptr});
    return result;
}

// The paint keeps each band's share of its last evaluation for the very
// inputs it was made from and no others: after any one of them changes, the
// columns are those a fresh evaluation gives (and the change shows in them),
// the other bands' kept shares added in with the same bits.
TEST_F(ResponseViewTest, LastEvaluationServesOnlyTheInputsItWasMadeFrom) {
    struct Inputs {
        std::vector<BandCopy> bands;
        GraphAxes axes;
        bool withPhase;
    };
    const Inputs base{{{designed(Band, 1000.0, 2.0, 1.0), true},
                       {designed(LowShelf, 200.0, 0.5, 1.0), true},
                       {designed(HighShelf, 5000.0, 1.5, 1.0), true}},
                      graphAxes(*instance, 600, 120),
                      false};
    const struct {
        const char* name;
        void (*change)(Inputs&);
    } cases[] = {
        {"b0", [](Inputs& in) { in.bands[0].values.b0 *= 1.01; }},
        {"b1", [](Inputs& in) { in.bands[1].values.b1 *= 1.01; }},
        {"b2", [](Inputs& in) { in.bands[0].values.b2 *= 1.01; }},
        {"a1", [](Inputs& in) { in.bands[1].values.a1 *= 1.01; }},
        {"a2", [](Inputs& in) { in.bands[0].values.a2 *= 1.01; }},
        {"sample rate", [](Inputs& in) { in.bands[1].values.sampleRate = 96000.0; }},
        {"frequency of the centre column", [](Inputs& in) { in.bands[0].values.frequency = 2e3; }},
        {"gain of the centre column", [](Inputs& in) { in.bands[0].values.gain = 3.0; }},
        {"type", [](Inputs& in) { in.bands[0].values.type = Notch; }},
        {"enabled", [](Inputs& in) { in.bands[1].values.enabled = 0; }},
        {"width", [](Inputs& in) { in.axes.width = 500; }},
        {"gain range", [](Inputs& in) { in.axes.gainRange = 48.0; }},
        {"phase", [](Inputs& in) { in.withPhase = true; }},
    };
    const auto summed = [](const Inputs& in) {
        return evaluateWith(summedResponse, in.bands, in.axes, in.withPhase);
    };
    const auto fresh = [](const Inputs& in) {
        return evaluateWith(sumBandResponses, in.bands, in.axes, in.withPhase);
    };
    for (const auto& c : cases) {
        summed(base);
        EXPECT_EQ(summed(base), fresh(base)) << c.name;  // answered from the last evaluation
        Inputs changed = base;
        c.change(changed);
        ASSERT_NE(fresh(changed), fresh(base)) << c.name;
        EXPECT_EQ(summed(changed), fresh(changed)) << c.name;
    }
}

TEST_F(ResponseViewTest, PhaseIsTheArgumentOfTheResponseWithinThreeHalfPi) {
    const EqBand band = designed(LowPass, 2000.0, 1.0, 1.0);
    std::vector<double> magnitude, phase;
    evaluate({BandCopy{band, true}}, magnitude, &phase);
    for (int x : {50, 300, 400, 550}) {
        SCOPED_TRACE(x);
        const double argument = std::arg(complexResponse(band, columnHz(x, 600)));
        EXPECT_GT(phase[x], -1.5 * std::numbers::pi);
        EXPECT_LE(phase[x], 0.5 * std::numbers::pi);
        EXPECT_NEAR(std::cos(phase[x]), std::cos(argument), 1e-9);
        EXPECT_NEAR(std::sin(phase[x]), std::sin(argument), 1e-9);
    }
}

// 1000 Hz is column 285 (285.63 truncated), 0 dB row 60.
TEST_F(ResponseViewTest, SelectedBandIsARedDiscOrARedOutlineWhenDisabled) {
    setBand(2, Band, 1000.0, 1.0, 1.0);
    instance->selectedBand = 2;
    paint();
    EXPECT_GT(countPixels(kSelectedRed, 279, 54, 292, 67), 50);  // less its black number
    setBand(2, Band, 1000.0, 1.0, 1.0, false);
    paint();
    EXPECT_EQ(countPixels(kSelectedRed, 270, 45, 300, 75), 0);
    EXPECT_EQ(pixel(285 - 3, 60 - 3), kBackground);  // hollow
    EXPECT_EQ(pixel(285 + 3, 60 + 3), kBackground);
    EXPECT_GT(ringPixels(285, 60, 0xffff0000), 16);
}

// A pass filter's handle sits three quarters down (row 90); 200 Hz is column 138.
TEST_F(ResponseViewTest, OtherBandsAreWhiteAndPassFiltersYellow) {
    setBand(1, Band, 1000.0, 1.0, 1.0);
    setBand(2, LowPass, 200.0, 1.0, 1.0, false);
    instance->selectedBand = 0;
    paint();
    EXPECT_GT(countPixels(0xffffffff, 279, 54, 292, 67), 50);
    EXPECT_GT(ringPixels(138, 90, 0xffffff00), 16);
    EXPECT_EQ(pixel(138 - 3, 90 - 3), kBackground);
}

using SpectrumThroughTheHostFftTest = ResponseViewTest;
using SpectrumDisplayTest = ResponseViewTest;

// The whole path through the host's real FFT: a steady tone exactly at bin 9
// of the 2048-point analysis (193.8 Hz at 44.1 kHz), amplitude 0.5, is drawn
// with its level, 20 log10(0.5 / 2) = -12.04 dB (the window sums to 1), at
// the column of its level entry (entry 8 holds bin 9, placed at 8 × 22050 /
// 1024 Hz). Grid and bands are off, so the curve is the only thing above the
// flat strip at the centre.
TEST_F(SpectrumThroughTheHostFftTest, ToneAtAKnownBinShowsItsLevelAtItsColumn) {
    constexpr int kWidth = 1200, kHeight = 240, kBin = 9, kFrames = 4096;
    constexpr double kAmplitude = 0.5;
    kobal::SetWindowPos(view, nullptr, 0, 0, kWidth, kHeight, SWP_NOMOVE | SWP_NOZORDER);
    std::vector<double> tone(kFrames);
    for (int n = 0; n < kFrames; ++n)
        tone[n] = kAmplitude * std::cos(2.0 * 3.141592653589793 * kBin * n / 2048.0);
    process(tone);
    paint();
    ASSERT_NE(instance->spectrumDrawnTick, 0u);

    const double entryHz = (kBin - 1) * static_cast<double>(static_cast<float>(22050.0 / 1024.0));
    const int column = static_cast<int>(std::log((entryHz - 20.0) / 59.95 + 1.0) /
                                            5.993961427306569 * kWidth + 0.5);
    // The highest drawn row between the top edge and the centre strip, and
    // the middle of the columns that reach it.
    int topRow = kHeight, first = -1, last = -1;
    for (int x = 0; x < kWidth; ++x)
        for (int y = 0; y < kHeight / 2 - 10 && y <= topRow; ++y)
            if (pixel(x, y) != kBackground) {
                if (y < topRow) first = x;
                topRow = y;
                last = x;
                break;
            }
    const double expectedDb = 20.0 * std::log10(kAmplitude / 2.0);
    const double pixelsPerDb = kHeight / 120.0;
    EXPECT_NEAR((first + last) / 2, column, 2);
    // The curve bends between level points, so its top lies a little below the level.
    EXPECT_NEAR(-topRow / pixelsPerDb, expectedDb, 2.0);
}

TEST_F(SpectrumDisplayTest, SpectraShowForOneSecondAfterTheLastBlockAndNotWithoutAudio) {
    paint();
    EXPECT_EQ(instance->spectrumTick.load(), 0u);
    EXPECT_EQ(instance->spectrumDrawnTick, 0u);
    process(std::vector<double>(512, 0.0));
    const uint32_t tick = instance->spectrumTick.load();
    ASSERT_NE(tick, 0u);
    paint();
    EXPECT_EQ(instance->spectrumDrawnTick, tick);
    kobal_layer::advanceTestClock(999);
    paint();
    EXPECT_EQ(instance->spectrumTick.load(), tick);
    kobal_layer::advanceTestClock(1);
    paint();
    EXPECT_EQ(instance->spectrumTick.load(), 0u);
    EXPECT_EQ(instance->spectrumDrawnTick, 0u);
}

constexpr int kBlockFrames = 512;
// Only guards against a test that would otherwise wait forever on the lock.
constexpr auto kDeadlockGuard = std::chrono::seconds(20);

// One stop per paint: the first hooked call runs an audio block on another
// thread and waits for it before going on with the drawing.
struct AudioWhileStopped {
    EqInstance* instance = nullptr;
    bool stopped = false;
    bool blockFinished = false;
    std::future<void> block;  // joined after the paint, never inside it
    std::vector<double> left = std::vector<double>(kBlockFrames, 0.25);
    std::vector<double> right = std::vector<double>(kBlockFrames, -0.25);
    std::vector<double> out = std::vector<double>(2 * kBlockFrames);

    void runBlockNow() {
        if (stopped) return;
        stopped = true;
        block = std::async(std::launch::async, [this] {
            double* inputs[] = {left.data(), right.data()};
            double* outputs[] = {out.data(), out.data() + kBlockFrames};
            processDoubleReplacing(&instance->effect, inputs, outputs, kBlockFrames);
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
        EXPECT_NE(audio.out[kBlockFrames - 1], 0.0);  // the block was processed
    }
}

}  // namespace
