#include "plugin/instance.h"

#include <new>

#include "contracts/mura.h"
#include "engine/audio_processing.h"
#include "engine/band_list.h"
#include "engine/default_bands.h"
#include "plugin/host_imports.h"
#include "plugin/dispatcher.h"
#include "plugin/eq_instance.h"
#include "plugin/instance_registry.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"

namespace {

constexpr int32_t kEffectFlags = effFlagsHasEditor | effFlagsCanReplacing |
                                 effFlagsProgramChunks | effFlagsCanDoubleReplacing;
constexpr int32_t kEffectVersion = 1100;

void fillEffect(EqInstance* instance) {
    AEffect& effect = instance->effect;
    effect.magic = kEffectMagic;
    effect.dispatcher = dispatcher;
    effect.process = processSinglePrecision;
    effect.setParameter = setParameter;
    effect.getParameter = getParameter;
    effect.numPrograms = 1;
    effect.numParams = 0;
    effect.numInputs = 2;
    effect.numOutputs = 2;
    effect.flags = kEffectFlags;
    effect.object = instance;
    effect.uniqueID = fourCharCode('o', 'm', 'b', 'r');
    effect.version = kEffectVersion;
    effect.processReplacing = processSinglePrecision;
    effect.processDoubleReplacing = processDoubleReplacing;
}

void releaseStorage(EqInstance* instance) {
    instance->bands.release();
    instance->panelSizer.items.release();
    instance->editorSizer.items.release();
    instance->mutex.destroy();
    instance->curveBuffer.release();
    delete instance;
}

}  // namespace

EqInstance* allocateInstance(audioMasterCallback host) {
    auto* instance = new (std::nothrow) EqInstance();
    if (!instance) return nullptr;
    instance->gestureParam = -1;
    instance->outputGain = 1.0;
    instance->currentOutputGain = 1.0;
    instance->sampleRate = 44100.0;
    instance->mutex.init();
    instance->hostCallback = host;
    instance->hoverBand = -1;
    instance->showGrid = 1;
    instance->showTabs = 1;
    clearSpectrumAnalyzer(instance->inputAnalyzer);
    clearSpectrumAnalyzer(instance->outputAnalyzer);
    fillEffect(instance);
    return instance;
}

void discardInstance(EqInstance* instance) {
    deleteAllBands(instance);
    releaseStorage(instance);
}

void destroyInstance(EqInstance* instance) {
    deleteAllBands(instance);
    if (HWND editor = instance->editorWindow.load()) kobal::DestroyWindow(editor);
    unregisterInstance();
    delete instance->drawingBitmap;
    instance->drawingBitmap = nullptr;
    releaseStorage(instance);
}

EqInstance* createInstance(audioMasterCallback host) {
    if (host && !importHostExtensions(host)) return nullptr;
    if (!requiredHostExtensionsPresent()) return nullptr;
    processHostCallback = host;
    EqInstance* instance = allocateInstance(host);
    if (!instance) return nullptr;
    resetBandStates(instance);
    if (!loadDefaultBands(instance)) {
        discardInstance(instance);
        return nullptr;
    }
    registerInstance();
    resetBandStates(instance);
    return instance;
}
