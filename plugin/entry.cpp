// The shared object's exported entry points. Everything else is hidden.
#include "contracts/vst2.h"
#include "engine/audio_processing.h"
#include "engine/default_bands.h"
#include "plugin/eq_instance.h"
#include "plugin/host_imports.h"
#include "plugin/instance.h"
#include "plugin/instance_registry.h"
#include "plugin/ui_layer.h"

#define OMBRO_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

// The windowing layer is bound once, when the library is loaded.
struct UiLayerBinder {
    UiLayerBinder() { bindUiLayer(); }
} uiLayerBinder;

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

}  // namespace

OMBRO_EXPORT AEffect* VSTPluginMain(audioMasterCallback host) {
    EqInstance* instance = createInstance(host);
    return instance ? &instance->effect : nullptr;
}

OMBRO_EXPORT int DllMain(void* /*module*/, unsigned /*reason*/, void* /*reserved*/) { return 1; }

OMBRO_EXPORT int KOBAL_dllMain(...) { return 1; }
