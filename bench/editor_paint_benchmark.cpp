// Painting the response graph: milliseconds per paint of a 1200 by 600 graph
// with 32 bands, with and without the phase curve and the spectra, drawn by
// the stand-in host's raster library into the back buffer; and, for
// comparison, the evaluation of the summed response alone. The paint keeps
// its last evaluation and the raster library the coverage of the segments it
// drew lately, so each case is timed twice: repainting curves just drawn, and
// with both forgotten before each paint (curves changed, as while a band is
// dragged). Live spectra get new audio before each paint, as in the editor,
// where the spectra change every frame while the response mostly does not;
// the last case moves one band too, as a drag does.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "bench/bench_bands.h"
#include "bench/benchmark_suites.h"
#include "bench/stopwatch.h"
#include "contracts/host_extensions.h"
#include "engine/audio_processing.h"
#include "engine/eq_band.h"
#include "engine/live_analyzer.h"
#include "host/extensions/extension_table.h"
#include "host/raster/segment_coverage.h"
#include "host/ui/host_windows.h"
#include "plugin/eq_instance.h"
#include "plugin/host_imports.h"
#include "plugin/instance.h"
#include "plugin/ui_layer.h"
#include "view/graph_fonts.h"
#include "view/graph_axes.h"
#include "view/graph_paint.h"
#include "view/graph_snapshot.h"
#include "view/last_response.h"
#include "view/response_curve.h"

namespace {

constexpr int kGraphWidth = 1200;
constexpr int kGraphHeight = 600;
constexpr int kBands = 32;
constexpr int32_t kAudioFrames = 4096;

intptr_t extensionsOnlyHost(AEffect*, int32_t opcode, int32_t index, intptr_t, void* ptr, float) {
    if (opcode == kHostExtensionOpcode && index == kHostExtensionIndex)
        return reinterpret_cast<intptr_t>(findHostExtension(static_cast<const char*>(ptr)));
    return 0;
}

// Fills both analyzers' rings the way the audio path does while the editor is open.
void captureSomeAudio(EqInstance* instance) {
    HWND editor = kobal_layer::createHostWindow("bench", RECT{0, 0, kGraphWidth, kGraphHeight});
    instance->editorWindow = editor;
    std::vector<double> left(kAudioFrames), right(kAudioFrames), out(2 * kAudioFrames);
    uint32_t noise = 1;
    for (int32_t i = 0; i < kAudioFrames; ++i) {
        noise = noise * 1664525u + 1013904223u;
        left[i] = right[i] = static_cast<double>(noise) / 4294967296.0 - 0.5;
    }
    double* inputs[] = {left.data(), right.data()};
    double* outputs[] = {out.data(), out.data() + kAudioFrames};
    processDoubleReplacing(&instance->effect, inputs, outputs, kAudioFrames);
    instance->editorWindow = nullptr;
    kobal_layer::resetWindowingLayer();
}

enum class Spectra { none, repainted, live };

struct PaintCase {
    const char* name;
    bool phase;
    Spectra spectra;
    bool bandDragged;  // one band's gain raised a little before each paint
};

constexpr PaintCase kCases[] = {
    {"response and handles", false, Spectra::none, false},
    {"+ phase", true, Spectra::none, false},
    {"+ phase + spectra, repainted", true, Spectra::repainted, false},
    {"+ phase + live spectra", true, Spectra::live, false},
    {"  and a band dragged", true, Spectra::live, true},
};

// The middle band a little louder, as a drag of its handle moves it.
void dragBand(EqInstance* instance) {
    EqBand* band = instance->band(kBands / 2);
    designBand(band, band->type, true, band->frequency, band->gain * 1.002, band->bandwidth);
}

// New noise for both analyzers, as a block of audio brings while the editor is open.
void captureNewAudio(EqInstance* instance, uint32_t& noise) {
    constexpr int32_t kFrames = 1024;
    std::vector<double> block(kFrames);
    for (double& sample : block) {
        noise = noise * 1664525u + 1013904223u;
        sample = static_cast<double>(noise) / 4294967296.0 - 0.5;
    }
    captureSpectrum(instance->inputAnalyzer, block.data(), block.data(), kFrames);
    for (double& sample : block) sample *= 0.5;
    captureSpectrum(instance->outputAnalyzer, block.data(), block.data(), kFrames);
}

double millisecondsPerPaint(EqInstance* instance, const PaintCase& paintCase, bool curvesChanged,
                            const BenchOptions& options) {
    instance->viewFlags = paintCase.phase ? kViewShowPhase : 0;
    const int32_t trials = options.quick ? 3 : 7;
    const int32_t repeats = options.quick ? 3 : 10;
    uint32_t noise = 7;
    renderGraph(*instance, nullptr, kGraphWidth, kGraphHeight);  // the curves drawn once
    return 1e3 * fastestSecondsPerPreparedCall(
                     trials, repeats,
                     [&] {
                         if (paintCase.spectra == Spectra::none) {
                             instance->spectrumTick = 0;
                         } else {  // audio arrived since the last paint
                             instance->spectrumTick = kobal::GetTickCount();
                             if (paintCase.spectra == Spectra::live)
                                 captureNewAudio(instance, noise);
                             instance->inputAnalyzer.hasNewData = 1;
                             instance->outputAnalyzer.hasNewData = 1;
                         }
                         if (paintCase.bandDragged) dragBand(instance);
                         if (curvesChanged) {  // evaluated and scanned afresh
                             forgetSummedResponse();
                             forgetRememberedSegments();
                         }
                     },
                     [&] { renderGraph(*instance, nullptr, kGraphWidth, kGraphHeight); });
}

// The per-column evaluation of every band without any drawing.
double millisecondsPerEvaluation(EqInstance* instance, bool phase, const BenchOptions& options) {
    std::vector<double> columns(2 * kGraphWidth);
    const GraphAxes axes = graphAxes(*instance, kGraphWidth, kGraphHeight);
    const int32_t trials = options.quick ? 3 : 7;
    const int32_t repeats = options.quick ? 3 : 10;
    return 1e3 * fastestSecondsPerCall(trials, repeats, [&] {
               std::fill(columns.begin(), columns.end(), 0.0);
               const ResponseColumns into{columns.data(),
                                          phase ? columns.data() + kGraphWidth : nullptr};
               sumBandResponses(takeGraphSnapshot(*instance), axes, into);
           });
}

}  // namespace

void runEditorPaintSuite(const BenchOptions& options) {
    bindUiLayer();
    if (!importHostExtensions(extensionsOnlyHost) || !requiredHostExtensionsPresent()) {
        std::printf("Editor paint: the host's raster library is missing\n");
        return;
    }
    EqInstance* instance = makeBenchInstance(peakingBandSettings(kBands));
    captureSomeAudio(instance);
    std::printf("Editor paint: %d x %d graph, %d bands, ms per paint\n", kGraphWidth,
                kGraphHeight, kBands);
    std::printf("  %-30s %16s %16s\n", "", "curves repainted", "curves changed");
    for (const PaintCase& paintCase : kCases) {
        const double repainted = millisecondsPerPaint(instance, paintCase, false, options);
        const double changed = millisecondsPerPaint(instance, paintCase, true, options);
        std::printf("  %-30s %16.2f %16.2f\n", paintCase.name, repainted, changed);
    }
    std::printf("  of which evaluating the response: %.2f, with the phase: %.2f\n\n",
                millisecondsPerEvaluation(instance, false, options),
                millisecondsPerEvaluation(instance, true, options));
    delete instance->drawingBitmap;
    instance->drawingBitmap = nullptr;
    discardInstance(instance);
    destroyGraphFonts();
}
