// One effect instance: the AEffect handed to the host, the band list and its
// lock, the gains, the editor state and the spectrum data.
#pragma once

#include <atomic>
#include <cstdint>

#include "contracts/kobal.h"
#include "contracts/vst2.h"
#include "editor/layout_sizer.h"
#include "engine/eq_band.h"
#include "engine/heap_buffer.h"
#include "engine/live_analyzer.h"
#include "plugin/recursive_mutex.h"

class MuraBitmap;

struct EqInstance {
    int32_t gestureParam;
    HWND gestureWindow;
    HeapBuffer curveBuffer;
    double outputGain;
    double currentOutputGain;
    double sampleRate;
    std::atomic<HWND> editorWindow;  // read by the audio thread
    AEffect effect;
    RecursiveMutex mutex;
    LayoutSizer editorSizer;
    LayoutSizer panelSizer;
    audioMasterCallback hostCallback;
    HeapBuffer bands;  // EqBand pointers; the list owns the records
    HWND bandPanelWindow;
    int32_t selectedBand;
    MuraBitmap* drawingBitmap;
    int32_t hoverBand;
    int32_t hoverFlags;
    int32_t refreshRequested;
    int32_t showGrid;
    int32_t showTabs;
    int32_t viewFlags;
    uint32_t dirtyFlags;
    uint8_t suspendSetParameter;
    int32_t editorWidth;
    int32_t editorHeight;
    SpectrumAnalyzer inputAnalyzer;
    SpectrumAnalyzer outputAnalyzer;
    uint32_t spectrumDrawnTick;
    std::atomic<uint32_t> spectrumTick;

    int32_t bandCount() const { return bands.count<EqBand*>(); }
    EqBand* band(int32_t index) const {
        return index >= 0 && index < bandCount() ? bands.as<EqBand*>()[index] : nullptr;
    }
    void updateParameterCount() { effect.numParams = 3 * bandCount(); }
};

inline EqInstance* instanceOf(AEffect* effect) {
    return effect ? static_cast<EqInstance*>(effect->object) : nullptr;
}

constexpr uint32_t kDirtyResponseView = 1;
constexpr uint32_t kDirtyBandPanel = 2;
constexpr int32_t kViewShowPhase = 1;
