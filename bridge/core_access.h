// How this process reaches the equalizer, decided once, on the first
// VSTPluginMain (loading the bridge has no side effect):
//  1. the bridge joins the global symbol scope;
//  2. the process's KOBALAPI_GetFunc is looked up as the core will look it
//     up. The first copy in the global scope wins:
//     - this bridge's own: the core is loaded from the bridge's folder and
//       binds this bridge's windowing layer; editors can open;
//     - another copy of the bridge (loaded from another folder) with the
//       right interface version: instances are made by that copy, whose core
//       binds its layer;
//     - anything else: the core is loaded all the same and processes audio,
//       but its editor would not use this bridge's layer, so none is offered.
#pragma once

#include "contracts/vst2.h"

namespace bridge {

struct CoreAccess {
    VstPluginMainProc coreMain = nullptr;         // the core's entry; null when not loaded
    VstPluginMainProc otherBridgeMain = nullptr;  // the bridge that owns the process's layer
    bool editorAvailable = false;                 // the core bound this bridge's layer
};

const CoreAccess& coreAccess();

}  // namespace bridge
