// The host callback the bridge gives the core. The core keeps one callback
// for the whole process (the one of its latest VSTPluginMain), so every core
// instance calls this same function:
//  - extension requests (opcode 0xdeadbeef, index 0xdeadf00d) are answered
//    with the stand-in host's functions;
//  - the core's notice of a changed parameter list becomes the standard
//    notices of a changed parameter count;
//  - everything else goes to the real host of the instance named by the
//    call, with the bridge's AEffect in place of the core's. Calls that name
//    no instance (made while one is being created) go to the host whose
//    VSTPluginMain is running on this thread.
#pragma once

#include "contracts/vst2.h"

namespace bridge {

intptr_t coreHostCallback(AEffect* core, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                          float opt);

// While alive, calls that name no instance go to `host`.
class CreatingHostScope {
public:
    explicit CreatingHostScope(audioMasterCallback host);
    ~CreatingHostScope();
    CreatingHostScope(const CreatingHostScope&) = delete;
    CreatingHostScope& operator=(const CreatingHostScope&) = delete;

private:
    audioMasterCallback previous_;
};

}  // namespace bridge
