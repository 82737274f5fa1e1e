// One call the plug-in made into the host callback, as the host recorded it,
// so that tests can follow automation, edit gestures and notices in order.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "contracts/host_extensions.h"

struct HostCall {
    bool effectWasNull = false;  // extension requests come without an effect
    int32_t opcode = 0;
    int32_t index = 0;
    intptr_t value = 0;
    float opt = 0.0f;
    // The text in ptr where the opcode carries one: the function name of an
    // extension request, the capability of audioMasterCanDo.
    std::string text;
    // The notice of a changed parameter list (audioMasterVendorSpecific with
    // index kHostExtensionOpcode).
    std::optional<ParamListChange> paramListChange;
    intptr_t answer = 0;  // what the host returned

    bool isExtensionRequest() const {
        return opcode == kHostExtensionOpcode && index == kHostExtensionIndex;
    }
};
