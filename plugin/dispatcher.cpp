#include "plugin/dispatcher.h"

#include <cstring>

#include "contracts/host_extensions.h"
#include "editor/editor_dialog.h"
#include "engine/audio_processing.h"
#include "engine/state_chunk.h"
#include "plugin/eq_instance.h"
#include "plugin/instance.h"
#include "plugin/parameter_texts.h"
#include "plugin/vendor_requests.h"

namespace {

constexpr int32_t kHighestOpcode = effCanDo;
constexpr intptr_t kIdentity = fourCharCode('N', 'v', 'E', 'f');
constexpr intptr_t kMinimumChunkSize = 12;

const char* const kPrivateCapabilities[] = {"hasPellixViewAsConfig", "hasPellixExtensions",
                                            "hasPellixNoScrollUI"};

intptr_t canDo(const char* capability) {
    if (!capability) return 0;
    for (const char* known : kPrivateCapabilities) {
        if (std::strcmp(capability, known) == 0) return kPrivateCanDoAnswer;
    }
    return 0;
}

intptr_t copyName(void* ptr, const char* name) {
    if (ptr) copyHostText(static_cast<char*>(ptr), name, kNameTextLimit);
    return 0;
}

intptr_t setSampleRate(EqInstance* instance, float rate) {
    MutexLock lock(instance->mutex);
    instance->sampleRate = rate;
    resetBandStates(instance);
    return 0;
}

intptr_t mainsChanged(EqInstance* instance, intptr_t on) {
    if (on != 0) return 0;
    MutexLock lock(instance->mutex);
    resetBandStates(instance);
    return 0;
}

using TextWriter = intptr_t (*)(EqInstance*, int32_t, char*);

intptr_t parameterText(EqInstance* instance, int32_t index, void* ptr, TextWriter write) {
    if (!instance || !ptr) return 0;
    return write(instance, index, static_cast<char*>(ptr));
}

intptr_t getChunk(EqInstance* instance, void* ptr) {
    void* data = nullptr;
    int32_t size = writeStateChunk(instance, &data);
    if (ptr) *static_cast<void**>(ptr) = data;
    return size;
}

intptr_t setChunk(EqInstance* instance, intptr_t size, void* ptr) {
    if (size > kMinimumChunkSize && ptr) readStateChunk(instance, ptr, size);
    return 0;
}

// Requests that need a live instance; null answers 0.
intptr_t dispatchToInstance(EqInstance* instance, int32_t opcode, int32_t index, intptr_t value,
                            void* ptr, float opt) {
    switch (opcode) {
        case effClose: destroyInstance(instance); return 0;
        case effGetParamLabel: return parameterText(instance, index, ptr, writeParameterLabel);
        case effGetParamDisplay: return parameterText(instance, index, ptr, writeParameterDisplay);
        case effGetParamName: return parameterText(instance, index, ptr, writeParameterName);
        case effSetSampleRate: return setSampleRate(instance, opt);
        case effMainsChanged: return mainsChanged(instance, value);
        case effEditOpen: return openEditor(instance, static_cast<HWND>(ptr)) ? 1 : 0;
        case effEditClose: closeEditor(instance); return 0;
        case effGetChunk: return getChunk(instance, ptr);
        case effSetChunk: return setChunk(instance, value, ptr);
        case effCanBeAutomated: return index >= 0 && index < instance->effect.numParams ? 1 : 0;
        default: return 0;
    }
}

}  // namespace

intptr_t dispatcher(AEffect* effect, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                    float opt) {
    if (static_cast<uint32_t>(opcode) > static_cast<uint32_t>(kHighestOpcode)) return 0;
    EqInstance* instance = instanceOf(effect);
    switch (opcode) {
        case effGetProgramName:
        case effGetProgramNameIndexed:
            if (ptr) static_cast<char*>(ptr)[0] = '\0';
            return 0;
        case effIdentify: return kIdentity;
        case effGetPlugCategory: return kPlugCategEffect;
        case effGetEffectName: return copyName(ptr, "Ombro");
        case effGetVendorString: return copyName(ptr, "Pellix");
        case effGetProductString: return copyName(ptr, "Ombro");
        case effVendorSpecific: return vendorSpecific(instance, index, value, ptr, opt);
        case effCanDo: return canDo(static_cast<const char*>(ptr));
        default:
            return instance ? dispatchToInstance(instance, opcode, index, value, ptr, opt) : 0;
    }
}
