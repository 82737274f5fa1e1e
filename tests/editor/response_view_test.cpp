// The graph: editing bands on it through the host's input injection
// (dragging handles, the right-click menu, the readout text, what the host
// hears), its columns against each band's complex response, the handles it
// paints, spectra through the host's real FFT, and a paint that never holds
// up the audio thread.
#include <chrono>
#include <cmath>
#include <complex>
#include <functional>
#include <future>
#include <memory>
#include <numbers>
#include <type_traits>
#include <utility>

#include "host/ui/host_clock.h"
#include "host/ui/input_injection.h"
#include "host/ui/menus.h"
#include "host/ui/pointer_and_keys.h"
#include "plugin/host_imports.h"
#include "tests/editor/editor_fixture.h"
#include "view/band_hit_test.h"
#include "view/context_menu.h"
#include "view/graph_axes.h"
#include "view/graph_snapshot.h"
#include "view/hover_readout.h"
#include "view/last_response.h"
#include "view/response_curve.h"

namespace {

using kobal_layer::MouseButton;

// The axes of a 600 by 120 graph with the tabs shown (±12 dB), written out.
double hzAt(int x) { return (std::exp(x / (600 * 0.16683457378359495)) - 1.0) * 59.95 + 20.0; }
double dbAt(int y) { return (120 - y) * 24.0 / 120 - 12.0; }
double ampAt(int y) { return std::exp(dbAt(y) * kLogPerDb); }

using Notices = std::vector<std::pair<int32_t, int32_t>>;  // opcode, index

// Band 3 (index 2) is a flat bell at 1 kHz: its handle is at (285, 60).
class GraphEditingTest : public EditorTest {
protected:
    void SetUp() override {
        EditorTest::SetUp();
        resizeGraph(600, 120);
        setBand(2, Band, 1000.0, 1.0, 1.0);
        clearNotices();
    }
    int hit(int x, int y) { return hitTestBand(*instance, view, x, y, nullptr, true); }
    // Right-clicks at a point of the graph and picks `command` (0: dismisses).
    void choose(UINT command, int x = 285, int y = 60) {
        kobal_layer::queueMenuChoice(command);
        kobal_layer::pressMouse(MouseButton::right, screenPoint(x, y));
        kobal_layer::releaseMouse(MouseButton::right, screenPoint(x, y));
    }
    kobal_layer::MenuItemView item(UINT id) const {
        const std::optional<kobal_layer::MenuView> menu = kobal_layer::lastTrackedMenu();
        EXPECT_TRUE(menu.has_value());
        if (menu)
            for (const kobal_layer::MenuItemView& entry : *menu)
                if (entry.commandId == id && !entry.separator) return entry;
        return kobal_layer::MenuItemView{};
    }
};

// No key moves frequency and gain; Shift doubles the bandwidth every 50
// pixels (a zero bandwidth stays zero); Control holds the frequency and
// moves the gain a tenth as fast; Alt holds the gain and moves the frequency
// a fifth as fast. The host hears each changed parameter, then its end.
TEST_F(GraphEditingTest, ModifierKeysChooseWhatADragChangesAndHowFast) {
    const double zeroDb = std::log(ampAt(60)) * kDbPerLog;
    const double fineDb = 0.1 * std::log(ampAt(40)) * kDbPerLog + 0.9 * zeroDb;
    struct Case {
        int key, toX, toY;
        double bandwidthBefore, frequency, gain, bandwidth;
        std::vector<int32_t> edited;  // parameters automated, then ended in this order
    };
    const Case cases[] = {
        {0, 300, 50, 1.0, 1000.0 * hzAt(300) / hzAt(285),
         std::exp((std::log(ampAt(50)) * kDbPerLog - zeroDb) * kLogPerDb), 1.0, {6, 7}},
        {VK_SHIFT, 335, 90, 1.0, 1000.0, 1.0, 2.0, {8}},
        {VK_SHIFT, 400, 60, 0.0, 1000.0, 1.0, 0.0, {8}},
        {VK_CONTROL, 500, 40, 1.0, 1000.0, std::exp((fineDb - zeroDb) * kLogPerDb), 1.0, {7}},
        {VK_MENU, 345, 20, 1.0, 1000.0 * (0.2 * hzAt(345) + 0.8 * hzAt(285)) / hzAt(285), 1.0,
         1.0, {6}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        setBand(2, Band, 1000.0, 1.0, c.bandwidthBefore);
        clearNotices();
        if (c.key) kobal_layer::holdKey(c.key, true);
        kobal_layer::pressMouse(MouseButton::left, screenPoint(285, 60));
        kobal_layer::moveMouse(screenPoint(c.toX, c.toY));
        kobal_layer::releaseMouse(MouseButton::left, screenPoint(c.toX, c.toY));
        if (c.key) kobal_layer::holdKey(c.key, false);
        EXPECT_EQ(kobal::GetCapture(), nullptr);
        EXPECT_EQ(instance->selectedBand, 2);
        EXPECT_EQ(band(2).frequency, c.frequency);
        EXPECT_EQ(band(2).gain, c.gain);
        EXPECT_EQ(band(2).bandwidth, c.bandwidth);
        Notices edits, expected;  // of parameters, not the general change notice
        for (const HostNotice& n : notices())
            if (n.index >= 0) edits.emplace_back(n.opcode, n.index);
        for (int32_t p : c.edited) expected.emplace_back(audioMasterAutomate, p);
        for (int32_t p : c.edited) expected.emplace_back(audioMasterEndEdit, p);
        EXPECT_EQ(edits, expected);
    }
}

// The selected band first, then the higher index; band 1 (100 Hz, column
// 84) is found too. Handles are hit from 7 pixels away, edge handles (a
// notch at the bottom, +30 dB above the top) from 7 pixels inside the edge.
TEST_F(GraphEditingTest, HitTestPrefersTheSelectionThenTheHigherIndexWithinSevenPixels) {
    setBand(1, Band, 1000.0, 1.0, 1.0);
    instance->selectedBand = 0;
    EXPECT_EQ(hit(287, 62), 2);
    instance->selectedBand = 1;
    EXPECT_EQ(hit(287, 62), 1);
    EXPECT_EQ(hit(84, 60), 0);
    EXPECT_EQ(hit(285 + 8, 60), -1);
    EXPECT_EQ(hit(285, 60 - 8), -1);
    setBand(2, Notch, 1000.0, 1.0, 1.0);
    EXPECT_EQ(hit(285, 114), 2);
    EXPECT_EQ(hit(285, 140), 2);
    EXPECT_EQ(hit(285, 112), -1);
    setBand(2, Band, 1000.0, std::exp(30.0 * kLogPerDb), 1.0);
    EXPECT_EQ(hit(285, 6), 2);
    EXPECT_EQ(hit(285, 8), -1);
}

// On empty space the band items are grey, yet the selected band 1 (a low
// shelf) keeps its checks, and "Add new band" puts a bell where the user
// clicked. On band 3 each command changes what it names and tells the host
// once; "Delete band" also tells it of the shorter parameter list.
TEST_F(GraphEditingTest, ContextMenuCommandsActWhereTheUserClicked) {
    instance->selectedBand = 0;
    choose(0, 100, 10);
    EXPECT_EQ(instance->selectedBand, 0);
    for (UINT id : {kDeleteBandCommand, kResetBandCommand, kEnableBandCommand})
        EXPECT_FALSE(item(id).enabled) << id;
    for (int type = 0; type <= 8; ++type)
        EXPECT_FALSE(item(kFirstBandTypeCommand + type).enabled) << type;
    for (UINT id : {kAddBandCommand, kResetAllBandsCommand, kFlipAllBandsCommand})
        EXPECT_TRUE(item(id).enabled) << id;
    EXPECT_TRUE(item(kEnableBandCommand).checked);
    EXPECT_TRUE(item(kFirstBandTypeCommand + LowShelf).checked);
    choose(kAddBandCommand, 450, 30);
    EXPECT_EQ(instance->selectedBand, 4);
    EXPECT_EQ(band(4).type, Band);
    EXPECT_EQ(band(4).frequency, hzAt(450));
    EXPECT_EQ(band(4).gain, ampAt(30));
    setBand(2, Band, 1000.0, 2.0, 1.5);  // handle at row 30
    clearNotices();
    choose(kResetBandCommand, 285, 30);
    EXPECT_EQ(band(2).gain, 1.0);
    EXPECT_EQ(band(2).bandwidth, 1.5);
    choose(kEnableBandCommand);
    EXPECT_EQ(band(2).enabled, 0);
    choose(kFirstBandTypeCommand + HighPass);
    EXPECT_EQ(band(2).type, HighPass);
    EXPECT_EQ(countNotices(audioMasterAutomate, -1), 3);
    choose(kDeleteBandCommand, 285, 90);  // a pass filter's handle sits three quarters down
    ASSERT_EQ(instance->bandCount(), 4);
    EXPECT_EQ(band(2).type, HighShelf);
    EXPECT_TRUE(notices().at(3).isListChange(6, -3));
}

TEST_F(GraphEditingTest, FlipAllBandsMirrorsGainsAroundZeroDecibels) {
    const double plusSix = std::exp(6.0 * kLogPerDb);
    setBand(0, LowShelf, 100.0, plusSix, 2.0);
    setBand(1, Band, 300.0, kOffGraphGain, 2.0);
    setBand(2, Band, 1000.0, 2.0, 1.5);
    setBand(3, HighShelf, 5000.0, 1e-9, 2.0);
    choose(kFlipAllBandsCommand, 100, 10);
    EXPECT_NEAR(band(0).gain, 1.0 / plusSix, 1e-12);
    EXPECT_NEAR(band(1).gain, 1000000.0, 1e-3);
    EXPECT_EQ(band(2).gain, 0.5);
    EXPECT_EQ(band(3).gain, 31622776.601683773);
    EXPECT_EQ(countNotices(audioMasterAutomate, -1), 1);
}

std::string readout(int32_t type, double hz, double gain, double octaves, int32_t enabled,
                    int index) {
    const std::unique_ptr<EqBand> band(createDesignedBand(type, hz, gain, octaves, 44100.0));
    band->enabled = enabled;
    char text[128];
    formatReadout(text, sizeof text, *band, index);
    return text;
}

// Gainless types show no decibels; gains are held between -150 dB and 64.
TEST(HoverReadoutText, NamesTypeNumberAndValues) {
    EXPECT_EQ(readout(LowShelf, 80.25, 0.5, 2.0, 1, 0), "Low Shelf 1: -6.0dB 80.2Hz 2.00 oct");
    EXPECT_EQ(readout(LowPass, 5000.0, 3.0, 0.5, 1, 3), "Low Pass 4: 5000.0Hz 0.50 oct");
    EXPECT_EQ(readout(Notch, 60.0, 3.0, 0.1, 0, 0), "DISABLED:Notch 1: 60.0Hz 0.10 oct");
    EXPECT_EQ(readout(Band, 100.0, kOffGraphGain, 1.0, 1, 0), "Band 1: -120.0dB 100.0Hz 1.00 oct");
    EXPECT_EQ(readout(Band, 100.0, 64e6, 1.0, 1, 0), "Band 1: 36.1dB 100.0Hz 1.00 oct");
    EXPECT_EQ(readout(Band, 100.0, 1e-9, 1.0, 1, 0), "Band 1: -150.0dB 100.0Hz 1.00 oct");
}


constexpr uint32_t kBackground = 0xff000000;
constexpr uint32_t kSelectedRed = 0xffff2222;

// The band's response at `hz`, evaluated as a complex ratio.
std::complex<double> complexResponse(const EqBand& b, double hz) {
    const double w = 2.0 * std::numbers::pi * hz / b.sampleRate;
    const std::complex<double> z1 = std::polar(1.0, -w), z2 = std::polar(1.0, -2.0 * w);
    return (b.b0 + b.b1 * z1 + b.b2 * z2) / (1.0 + b.a1 * z1 + b.a2 * z2);
}

// The column value of a level in dB on the ±12 dB axis.
double columnValue(double db) { return (db + 12.0) / 24.0 - 0.5; }

// A 600 by 120 graph without grid and with every band off.
class ResponseViewTest : public GraphEditingTest {
protected:
    void SetUp() override {
        GraphEditingTest::SetUp();
        instance->showGrid = 0;
        MutexLock lock(instance->mutex);
        for (int i = 0; i < instance->bandCount(); ++i) instance->band(i)->enabled = 0;
    }
    // Designs band 3 so and evaluates it over the graph; answers the drawn width.
    int evaluate(int32_t type, double frequency, double gain, double bandwidth) {
        setBand(2, type, frequency, gain, bandwidth);
        const BandCopy copy{designed = band(2), true};
        magnitude.assign(600, 0.0);
        phase.assign(600, 0.0);
        return sumBandResponses(GraphSnapshot{&copy, 1, 0, -1}, graphAxes(*instance, 600, 120),
                                {magnitude.data(), phase.data()});
    }
    // Pixels near `color` (smoothed) 4.5 to 8 pixels from a handle's centre.
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
    EqBand designed{};
    std::vector<double> magnitude, phase;
};

// Every column holds the band's response at its frequency, up to half the
// sample rate (column 592); a narrow peak shows its full gain at its centre
// column, a notch 120 dB deep. The phase is the response's argument, kept
// within -3/2 pi and pi/2.
TEST_F(ResponseViewTest, ColumnsHoldTheResponseAndPhaseAtTheirFrequency) {
    EXPECT_EQ(evaluate(HighShelf, 1000.0, 2.5, 1.0), 592);
    for (int x = 0; x < 592; x += 7) {
        const double db = 20.0 * std::log10(std::abs(complexResponse(designed, hzAt(x))));
        EXPECT_NEAR(magnitude[x], columnValue(db), 1e-12) << x;
    }
    evaluate(Band, 1000.0, 4.0, 0.01);
    EXPECT_EQ(magnitude[285], columnValue(std::log(4.0) * kDbPerLog));
    EXPECT_LT(magnitude[284], 0.5 * magnitude[285]);
    evaluate(Notch, 1000.0, 1.0, 1.0);
    EXPECT_EQ(magnitude[285], columnValue(-120.0));
    evaluate(LowPass, 2000.0, 1.0, 1.0);
    for (int x : {50, 300, 400, 550}) {
        const double argument = std::arg(complexResponse(designed, hzAt(x)));
        EXPECT_GT(phase[x], -1.5 * std::numbers::pi) << x;
        EXPECT_LE(phase[x], 0.5 * std::numbers::pi) << x;
        EXPECT_NEAR(std::cos(phase[x]), std::cos(argument), 1e-9) << x;
        EXPECT_NEAR(std::sin(phase[x]), std::sin(argument), 1e-9) << x;
    }
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
    setBand(0, Band, 1000.0, 2.0, 1.0);
    setBand(1, LowShelf, 200.0, 0.5, 1.0);
    const Inputs base{{{band(0), true}, {band(1), true}, {band(2), true}},
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

// The selected band is a red disc, a red outline when disabled; other bands
// are white, pass filters yellow. 100 Hz is column 84, 1000 Hz column 285
// (285.63 truncated), 200 Hz column 138; 0 dB is row 60, a pass filter's
// handle three quarters down (row 90).
TEST_F(ResponseViewTest, HandlesShowSelectionStateAndKind) {
    setBand(0, Band, 100.0, 1.0, 1.0);
    setBand(1, LowPass, 200.0, 1.0, 1.0, false);
    setBand(2, Band, 1000.0, 1.0, 1.0);
    instance->selectedBand = 2;
    paint();
    EXPECT_GT(countPixels(0xffffffff, 78, 54, 91, 67), 50);
    EXPECT_GT(countPixels(kSelectedRed, 279, 54, 292, 67), 50);  // less its black number
    EXPECT_GT(ringPixels(138, 90, 0xffffff00), 16);
    EXPECT_EQ(pixel(138 - 3, 90 - 3), kBackground);
    setBand(2, Band, 1000.0, 1.0, 1.0, false);
    paint();
    EXPECT_EQ(countPixels(kSelectedRed, 270, 45, 300, 75), 0);
    EXPECT_EQ(pixel(285 - 3, 60 - 3), kBackground);  // hollow
    EXPECT_EQ(pixel(285 + 3, 60 + 3), kBackground);
    EXPECT_GT(ringPixels(285, 60, 0xffff0000), 16);
}

using SpectrumThroughTheHostFftTest = ResponseViewTest;

// The whole path through the host's real FFT: a steady tone exactly at bin 9
// of the 2048-point analysis (193.8 Hz at 44.1 kHz), amplitude 0.5, is drawn
// with its level, 20 log10(0.5 / 2) = -12.04 dB (the window sums to 1), at
// the column of its level entry (entry 8 holds bin 9, placed at 8 × 22050 /
// 1024 Hz). Grid and bands are off: the curve is all there is above the centre
// strip. No spectrum shows before the first block, nor a second after the last.
TEST_F(SpectrumThroughTheHostFftTest, ToneAtAKnownBinShowsItsLevelAtItsColumn) {
    constexpr int kWidth = 1200, kHeight = 240, kBin = 9, kFrames = 4096;
    constexpr double kAmplitude = 0.5;
    kobal::SetWindowPos(view, nullptr, 0, 0, kWidth, kHeight, SWP_NOMOVE | SWP_NOZORDER);
    std::vector<double> tone(kFrames);
    for (int n = 0; n < kFrames; ++n)
        tone[n] = kAmplitude * std::cos(2.0 * 3.141592653589793 * kBin * n / 2048.0);
    paint();
    EXPECT_EQ(instance->spectrumDrawnTick, 0u);
    process(tone);
    paint();
    const uint32_t tick = instance->spectrumDrawnTick;
    ASSERT_NE(tick, 0u);

    const double entryHz = (kBin - 1) * static_cast<double>(static_cast<float>(22050.0 / 1024.0));
    const int column = static_cast<int>(std::log((entryHz - 20.0) / 59.95 + 1.0) /
                                            5.993961427306569 * kWidth + 0.5);
    // The highest drawn row above the centre strip; the middle of its columns.
    int topRow = kHeight, first = -1, last = -1;
    for (int x = 0; x < kWidth; ++x)
        for (int y = 0; y < kHeight / 2 - 10 && y <= topRow; ++y)
            if (pixel(x, y) != kBackground) {
                if (y < topRow) first = x;
                topRow = y;
                last = x;
                break;
            }
    EXPECT_NEAR((first + last) / 2, column, 2);
    // The curve bends between level points, so its top lies a little below the level.
    EXPECT_NEAR(-topRow / (kHeight / 120.0), 20.0 * std::log10(kAmplitude / 2.0), 2.0);
    kobal_layer::advanceTestClock(999);
    paint();
    EXPECT_EQ(instance->spectrumDrawnTick, tick);
    kobal_layer::advanceTestClock(1);
    paint();
    EXPECT_EQ(instance->spectrumDrawnTick, 0u);
}

// One stop per paint: the first hooked call runs an audio block on another
// thread and waits for it (20 s at most, so that a held lock fails the test
// rather than hanging it) before going on with the drawing.
struct AudioWhileStopped {
    std::function<std::vector<double>()> runBlock;
    bool stopped = false, blockFinished = false;
    std::future<std::vector<double>> block;  // joined after the paint, never inside it

    void runBlockNow() {
        if (std::exchange(stopped, true)) return;
        block = std::async(std::launch::async, runBlock);
        blockFinished = block.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
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

// Every raster and window call the paint makes.
const std::pair<const char*, void (*)()> kPaintCalls[] = {
    {"MURA_FillRect", StopInside<&hostExtensions.fillRect>::toggle},
    {"MURA_LineInt", StopInside<&hostExtensions.lineInt>::toggle},
    {"MURA_Line", StopInside<&hostExtensions.line>::toggle},
    {"MURA_FillCircle", StopInside<&hostExtensions.fillCircle>::toggle},
    {"MURA_Circle", StopInside<&hostExtensions.circle>::toggle},
    {"MURA_BorderedRect", StopInside<&hostExtensions.borderedRect>::toggle},
    {"GetClientRect", StopInside<&kobal::GetClientRect>::toggle},
    {"GetSysColor", StopInside<&kobal::GetSysColor>::toggle},
    {"BitBlt", StopInside<&kobal::BitBlt>::toggle},
    {"EndPaint", StopInside<&kobal::EndPaint>::toggle},
};

using ResponseViewAudioTest = GraphEditingTest;

TEST_F(ResponseViewAudioTest, AudioBlockRunsWhileThePaintIsStoppedInsideAnyDrawingCall) {
    setBand(1, Band, 1000.0, 2.0, 1.0, false);  // an outline as well as discs
    instance->viewFlags |= kViewShowPhase;
    instance->hoverBand = 2;  // the readout box
    for (const auto& [name, toggleStop] : kPaintCalls) {
        SCOPED_TRACE(name);
        audio = {};
        audio.runBlock = [&] { return process(std::vector<double>(512, 0.25)); };
        toggleStop();
        kobal::InvalidateRect(view, nullptr, 0);
        paint();
        toggleStop();
        ASSERT_TRUE(audio.stopped);
        EXPECT_TRUE(audio.blockFinished);
        EXPECT_NE(audio.block.get().back(), 0.0);  // the block was processed
    }
}

}  // namespace
