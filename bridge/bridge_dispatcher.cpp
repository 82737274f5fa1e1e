#include "bridge/bridge_dispatcher.h"

#include <cstdint>

#include "bridge/bridge_effect.h"
#include "bridge/layer_lock.h"

namespace bridge {
namespace {

// Requests that run under the layer lock. The core expects one UI thread:
// its editor, its vendor requests and its parameter texts share the band
// list and the windowing layer without a lock, while hosts send these from a
// GUI thread and drive the editor from another (effClose takes the lock
// too, see destroyBridgeEffect). Vendor requests that add bands insert their
// tabs; effSetChunk
// replaces the bands the editor draws; the texts, chunk and automation
// queries walk the band list. None of them comes from the audio thread.
bool sharesTheEditorsThread(int32_t opcode) {
    switch (opcode) {
        case effGetParamLabel:
        case effGetParamDisplay:
        case effGetParamName:
        case effGetChunk:
        case effSetChunk:
        case effCanBeAutomated:
        case effVendorSpecific: return true;
        default: return false;
    }
}

ERect rectOf(EditorSize size) {
    return ERect{0, 0, static_cast<int16_t>(size.height), static_cast<int16_t>(size.width)};
}

intptr_t getEditorRect(BridgeEffect& effect, void* ptr) {
    if (!effect.editorAvailable || !ptr) return 0;
    effect.editorRect = rectOf(effect.editorSize);
    *static_cast<ERect**>(ptr) = &effect.editorRect;
    return 1;
}

intptr_t openEditor(BridgeEffect& effect, void* ptr) {
    if (!effect.editorAvailable || !ptr) return 0;
    LayerGuard guard(layerLock());
    effect.editor.reset();
    effect.editor = BridgeEditor::open(effect.core, reinterpret_cast<unsigned long>(ptr),
                                       effect.editorSize);
    return effect.editor ? 1 : 0;
}

void idleEditor(BridgeEffect& effect) {
    LayerGuard guard(layerLock());
    if (!effect.editor) return;
    effect.editor->idle();
    followParameterCount(effect);
}

void closeEditor(BridgeEffect& effect) {
    LayerGuard guard(layerLock());
    effect.editor.reset();
}

// Switching on, the host's block size is known even to hosts that never
// send effSetBlockSize.
void reserveHostBlockSize(BridgeEffect& effect) {
    intptr_t frames = callRealHost(effect, audioMasterGetBlockSize);
    if (frames > 0 && frames <= INT32_MAX) effect.floatPath.reserve(static_cast<int32_t>(frames));
}

intptr_t passToCore(BridgeEffect& effect, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                    float opt) {
    AEffect* core = effect.core;
    if (!sharesTheEditorsThread(opcode)) return core->dispatcher(core, opcode, index, value, ptr, opt);
    LayerGuard guard(layerLock());
    intptr_t answer = core->dispatcher(core, opcode, index, value, ptr, opt);
    followParameterCount(effect);
    return answer;
}

intptr_t dispatch(AEffect* outer, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                  float opt) {
    BridgeEffect* effect = outer ? bridgeOf(outer) : nullptr;
    if (!effect) return 0;
    switch (opcode) {
        case effClose: destroyBridgeEffect(effect); return 0;
        case effEditGetRect: return getEditorRect(*effect, ptr);
        case effEditOpen: return openEditor(*effect, ptr);
        case effEditIdle: idleEditor(*effect); return 0;
        case effEditClose: closeEditor(*effect); return 0;
        case effSetBlockSize: effect->floatPath.reserve(static_cast<int32_t>(value)); break;
        case effMainsChanged:
            if (value) reserveHostBlockSize(*effect);
            break;
        default: break;
    }
    return passToCore(*effect, opcode, index, value, ptr, opt);
}

}  // namespace

// No exception leaves the plug-in: a request that runs out of memory answers 0.
intptr_t bridgeDispatcher(AEffect* outer, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                          float opt) {
    try {
        return dispatch(outer, opcode, index, value, ptr, opt);
    } catch (...) {
        return 0;
    }
}

}  // namespace bridge
