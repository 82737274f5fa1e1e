// The bridge's exported entry point. KOBALAPI_GetFunc, the windowing
// layer's lookup, is the other symbol the bridge exports (host/ui).
#include "bridge/bridge_effect.h"
#include "bridge/core_access.h"
#include "contracts/vst2.h"

// No exception leaves the plug-in: out of memory means no instance.
extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(audioMasterCallback host) {
    try {
        const bridge::CoreAccess& access = bridge::coreAccess();
        if (access.otherBridgeMain) return access.otherBridgeMain(host);
        if (!access.coreMain) return nullptr;
        return bridge::createBridgeEffect(access.coreMain, host, access.editorAvailable);
    } catch (...) {
        return nullptr;
    }
}
