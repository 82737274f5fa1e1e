// The shared object's exported entry points. Everything else is hidden.
#include "contracts/vst2.h"
#include "plugin/eq_instance.h"
#include "plugin/instance.h"
#include "plugin/ui_layer.h"

#define OMBRO_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

// The windowing layer is bound once, when the library is loaded.
struct UiLayerBinder {
    UiLayerBinder() { bindUiLayer(); }
} uiLayerBinder;

}  // namespace

OMBRO_EXPORT AEffect* VSTPluginMain(audioMasterCallback host) {
    EqInstance* instance = createInstance(host);
    return instance ? &instance->effect : nullptr;
}

OMBRO_EXPORT int DllMain(void* /*module*/, unsigned /*reason*/, void* /*reserved*/) { return 1; }

OMBRO_EXPORT int KOBAL_dllMain(...) { return 1; }
