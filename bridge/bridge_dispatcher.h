// The bridge's dispatcher: the editor requests are the bridge's own work;
// effClose ends the instance; effSetBlockSize and effMainsChanged also size
// the 32-bit conversion buffers; every other request goes to the core's
// dispatcher unchanged (parameters, texts, chunks, programs, vendor requests,
// canDo). After each request that runs under the layer lock the parameter
// count is brought in step.
#pragma once

#include "contracts/vst2.h"

namespace bridge {

intptr_t bridgeDispatcher(AEffect* outer, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                          float opt);

}  // namespace bridge
