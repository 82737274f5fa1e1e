// The AEffect dispatcher: answers the host's VST 2 requests other than
// processing and parameter get/set.
#pragma once

#include "contracts/vst2.h"

intptr_t dispatcher(AEffect* effect, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                    float opt);
