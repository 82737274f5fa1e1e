#include "bridge/bridge_effect.h"

#include <atomic>
#include <new>

#include "bridge/audio_thread.h"
#include "bridge/bridge_dispatcher.h"
#include "bridge/core_host_callback.h"
#include "bridge/layer_lock.h"

namespace bridge {
namespace {

// The audio entries go straight to the core: no lock, no allocation, no
// system call of the bridge's own.
void processFloat(AEffect* outer, float** inputs, float** outputs, int32_t frames) {
    markAudioThread();
    BridgeEffect* effect = bridgeOf(outer);
    effect->floatPath.process(effect->core, inputs, outputs, frames);
}

void processDouble(AEffect* outer, double** inputs, double** outputs, int32_t frames) {
    markAudioThread();
    AEffect* core = bridgeOf(outer)->core;
    core->processDoubleReplacing(core, inputs, outputs, frames);
}

// The core takes its own lock for a new value, but its open editor reads the
// band values without it, expecting them to change on its own thread only.
// Automation from a GUI or automation thread therefore waits for the layer
// lock, so it never lands while the editor runs; from the audio thread it
// goes straight through, as the audio thread must not wait.
void setParameter(AEffect* outer, int32_t index, float value) {
    AEffect* core = bridgeOf(outer)->core;
    if (onAudioThread()) {
        core->setParameter(core, index, value);
        return;
    }
    LayerGuard guard(layerLock());
    core->setParameter(core, index, value);
}

float getParameter(AEffect* outer, int32_t index) {
    AEffect* core = bridgeOf(outer)->core;
    return core->getParameter(core, index);
}

// The old accumulating entry, for hosts that still call it.
void processAccumulating(AEffect* outer, float** inputs, float** outputs, int32_t frames) {
    markAudioThread();
    BridgeEffect* effect = bridgeOf(outer);
    effect->floatPath.process(effect->core, inputs, outputs, frames,
                              FloatProcessing::Output::accumulate);
}

void describeLike(AEffect& outer, const AEffect& core, bool editorAvailable) {
    outer.magic = kEffectMagic;
    outer.dispatcher = bridgeDispatcher;
    outer.process = processAccumulating;
    outer.setParameter = setParameter;
    outer.getParameter = getParameter;
    outer.processReplacing = processFloat;
    outer.processDoubleReplacing = processDouble;
    outer.numPrograms = core.numPrograms;
    outer.numParams = core.numParams;
    outer.numInputs = core.numInputs;
    outer.numOutputs = core.numOutputs;
    outer.flags = core.flags;
    if (!editorAvailable) outer.flags &= ~effFlagsHasEditor;
    outer.initialDelay = core.initialDelay;
    outer.ioRatio = 1.0f;
    outer.uniqueID = core.uniqueID;
    outer.version = core.version;
}

}  // namespace

BridgeEffect* bridgeOf(AEffect* outer) { return static_cast<BridgeEffect*>(outer->object); }

AEffect* createBridgeEffect(VstPluginMainProc coreMain, audioMasterCallback host,
                            bool editorAvailable) {
    auto* effect = new (std::nothrow) BridgeEffect;
    if (!effect) return nullptr;
    AEffect* core = nullptr;
    {
        LayerGuard guard(layerLock());
        CreatingHostScope scope(host);
        core = coreMain(coreHostCallback);
    }
    if (!core) {
        delete effect;
        return nullptr;
    }
    effect->core = core;
    effect->host = host;
    effect->editorAvailable = editorAvailable;
    describeLike(effect->outer, *core, editorAvailable);
    effect->outer.object = effect;
    core->user = effect;
    return &effect->outer;
}

void destroyBridgeEffect(BridgeEffect* effect) {
    {
        LayerGuard guard(layerLock());
        effect->editor.reset();
        effect->core->dispatcher(effect->core, effClose, 0, 0, nullptr, 0.0f);
    }
    delete effect;
}

void followParameterCount(BridgeEffect& effect) {
    std::atomic_ref<int32_t> shown(effect.outer.numParams);
    const int32_t count = effect.core->numParams;
    if (shown.load() == count) return;
    shown.store(count);
    callRealHost(effect, audioMasterIOChanged);
    callRealHost(effect, audioMasterUpdateDisplay);
}

intptr_t callRealHost(BridgeEffect& effect, int32_t opcode, int32_t index, intptr_t value,
                      void* ptr, float opt) {
    return effect.host ? effect.host(&effect.outer, opcode, index, value, ptr, opt) : 0;
}

}  // namespace bridge
