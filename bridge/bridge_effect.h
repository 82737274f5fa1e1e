// One instance of the bridge: the AEffect the host holds, wrapping one
// instance of the core. The host's calls pass through to the core; the
// core's calls into its host come back through coreHostCallback, which finds
// the bridge instance in the core AEffect's user field (the field a host
// keeps for itself) and passes them on to the real host.
#pragma once

#include <memory>

#include "bridge/bridge_editor.h"
#include "bridge/float_processing.h"
#include "contracts/vst2.h"

namespace bridge {

struct BridgeEffect {
    AEffect outer{};           // what the host holds; object points back here
    AEffect* core = nullptr;   // the core's instance
    audioMasterCallback host = nullptr;
    bool editorAvailable = false;
    FloatProcessing floatPath;
    std::unique_ptr<BridgeEditor> editor;
    EditorSize editorSize = kDefaultEditorSize;
    ERect editorRect{};        // what effEditGetRect hands out
};

BridgeEffect* bridgeOf(AEffect* outer);

// A new instance over a new core instance; null when the core makes none.
AEffect* createBridgeEffect(VstPluginMainProc coreMain, audioMasterCallback host,
                            bool editorAvailable);
// effClose: the editor, the core's instance, then the bridge instance.
void destroyBridgeEffect(BridgeEffect* effect);

// Copies the core's parameter count to the host's AEffect; when it changed,
// tells the host (audioMasterIOChanged, then audioMasterUpdateDisplay).
void followParameterCount(BridgeEffect& effect);

// Sends a call to the real host on behalf of this instance (skipped without a host).
intptr_t callRealHost(BridgeEffect& effect, int32_t opcode, int32_t index = 0,
                      intptr_t value = 0, void* ptr = nullptr, float opt = 0.0f);

}  // namespace bridge
