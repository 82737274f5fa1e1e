#include "host/vst/host_callback.h"

#include <cstring>
#include <mutex>
#include <unordered_map>

#include "host/extensions/extension_table.h"
#include "host/vst/effect_session.h"
#include "host/vst/host_capabilities.h"

namespace {

constexpr intptr_t kHostVstVersion = 2400;
constexpr intptr_t kHostVendorVersion = 1100;
constexpr size_t kHostStringLimit = 64;  // the VST 2 limit for vendor and product texts
constexpr size_t kLongestNameRead = 256;

std::mutex registryMutex;
std::unordered_map<AEffect*, EffectSession*> sessionsByEffect;
thread_local EffectSession* pendingSession = nullptr;

std::mutex unattributedMutex;
std::vector<HostCall> unattributedCalls;

EffectSession* sessionFor(AEffect* effect) {
    if (effect) {
        std::lock_guard lock(registryMutex);
        auto found = sessionsByEffect.find(effect);
        if (found != sessionsByEffect.end()) return found->second;
    }
    return pendingSession;
}

bool carriesText(int32_t opcode, int32_t index) {
    return opcode == audioMasterCanDo ||
           (opcode == kHostExtensionOpcode && index == kHostExtensionIndex);
}

bool carriesParamListChange(int32_t opcode, int32_t index) {
    return opcode == audioMasterVendorSpecific && index == kHostExtensionOpcode;
}

HostCall describeCall(AEffect* effect, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                      float opt) {
    HostCall call;
    call.effectWasNull = effect == nullptr;
    call.opcode = opcode;
    call.index = index;
    call.value = value;
    call.opt = opt;
    if (ptr && carriesText(opcode, index)) {
        const char* text = static_cast<const char*>(ptr);
        call.text.assign(text, strnlen(text, kLongestNameRead));
    }
    if (ptr && carriesParamListChange(opcode, index)) {
        ParamListChange change;
        std::memcpy(&change, ptr, sizeof change);
        call.paramListChange = change;
    }
    return call;
}

intptr_t copyHostString(void* ptr, const char* text) {
    if (!ptr) return 0;
    char* destination = static_cast<char*>(ptr);
    std::strncpy(destination, text, kHostStringLimit - 1);
    destination[kHostStringLimit - 1] = '\0';
    return 1;
}

intptr_t answerExtensionRequest(const HostCall& call, const SessionOptions& options) {
    if (call.text.empty() || options.withheldExtensions.count(call.text)) return 0;
    return reinterpret_cast<intptr_t>(findHostExtension(call.text.c_str()));
}

intptr_t answer(const HostCall& call, void* ptr, const SessionOptions& options) {
    if (call.isExtensionRequest()) return answerExtensionRequest(call, options);
    switch (call.opcode) {
        case audioMasterVersion: return kHostVstVersion;
        case audioMasterGetSampleRate: return static_cast<intptr_t>(options.sampleRate);
        case audioMasterGetBlockSize: return options.blockSize;
        case audioMasterGetVendorString: return copyHostString(ptr, kHostVendorName);
        case audioMasterGetProductString: return copyHostString(ptr, kHostProductName);
        case audioMasterGetVendorVersion: return kHostVendorVersion;
        case audioMasterCanDo: return hostCanDo(call.text);
        case audioMasterBeginEdit:
        case audioMasterEndEdit: return 1;
        case audioMasterVendorSpecific: return call.paramListChange ? 1 : 0;
        default: return 0;
    }
}

}  // namespace

intptr_t ombroHostCallback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value,
                           void* ptr, float opt) {
    HostCall call = describeCall(effect, opcode, index, value, ptr, opt);
    EffectSession* session = sessionFor(effect);
    if (session) {
        call.answer = answer(call, ptr, session->options());
        session->recordHostCall(call);
    } else {
        call.answer = answer(call, ptr, SessionOptions{});
        std::lock_guard lock(unattributedMutex);
        unattributedCalls.push_back(call);
    }
    return call.answer;
}

void registerSession(AEffect* effect, EffectSession* session) {
    std::lock_guard lock(registryMutex);
    sessionsByEffect[effect] = session;
}

void unregisterSession(AEffect* effect) {
    std::lock_guard lock(registryMutex);
    sessionsByEffect.erase(effect);
}

PendingSessionScope::PendingSessionScope(EffectSession* session) : previous_(pendingSession) {
    pendingSession = session;
}

PendingSessionScope::~PendingSessionScope() { pendingSession = previous_; }

std::vector<HostCall> unattributedHostCalls() {
    std::lock_guard lock(unattributedMutex);
    return unattributedCalls;
}

void clearUnattributedHostCalls() {
    std::lock_guard lock(unattributedMutex);
    unattributedCalls.clear();
}
