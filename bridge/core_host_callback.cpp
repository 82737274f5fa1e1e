#include "bridge/core_host_callback.h"

#include "bridge/bridge_effect.h"
#include "contracts/host_extensions.h"
#include "host/extensions/extension_table.h"

namespace bridge {
namespace {

thread_local audioMasterCallback creatingHost = nullptr;

bool isExtensionRequest(int32_t opcode, int32_t index) {
    return opcode == kHostExtensionOpcode && index == kHostExtensionIndex;
}

bool isParamListChange(int32_t opcode, int32_t index) {
    return opcode == audioMasterVendorSpecific && index == kHostExtensionOpcode;
}

}  // namespace

intptr_t coreHostCallback(AEffect* core, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                          float opt) {
    if (isExtensionRequest(opcode, index))
        return reinterpret_cast<intptr_t>(findHostExtension(static_cast<const char*>(ptr)));
    BridgeEffect* effect = core ? static_cast<BridgeEffect*>(core->user) : nullptr;
    if (!effect) return creatingHost ? creatingHost(nullptr, opcode, index, value, ptr, opt) : 0;
    if (isParamListChange(opcode, index)) {
        followParameterCount(*effect);
        return 1;
    }
    return callRealHost(*effect, opcode, index, value, ptr, opt);
}

CreatingHostScope::CreatingHostScope(audioMasterCallback host) : previous_(creatingHost) {
    creatingHost = host;
}

CreatingHostScope::~CreatingHostScope() { creatingHost = previous_; }

}  // namespace bridge
