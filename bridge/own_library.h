// The bridge's own shared object as the dynamic loader sees it.
#pragma once

#include <string>

namespace bridge {

// The folder the bridge was loaded from, symbolic links resolved (a link in
// ~/.vst leads to the real install folder, where the core lies). Empty when
// the loader cannot tell.
std::string ownFolder();

// Adds the bridge to the process's global symbol scope. Hosts open plug-ins
// with RTLD_LOCAL; the core finds the windowing layer by looking
// KOBALAPI_GetFunc up in the global scope, so the bridge must be there before
// the core is loaded. False when the loader refuses.
bool promoteToGlobalScope();

// The start address of the shared object that holds `address`, or null.
const void* objectBaseOf(const void* address);

}  // namespace bridge
