// How the stand-in host's windowing layer presents itself to a plug-in that
// binds it: which functions to withhold and which interface version to answer.
// Set before the plug-in is loaded (binding happens at load time).
#pragma once

#include <cstdint>
#include <set>
#include <string>

struct KobalLayerOptions {
    std::set<std::string> missingFunctions;  // KOBALAPI_GetFunc answers null for these
    intptr_t interfaceVersion = 0x100;       // answered for a null name
};

void setKobalLayerOptions(const KobalLayerOptions& options);
const KobalLayerOptions& kobalLayerOptions();
