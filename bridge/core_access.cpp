#include "bridge/core_access.h"

#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "bridge/own_library.h"

extern "C" void* KOBALAPI_GetFunc(const char* name);

namespace bridge {
namespace {

using LookupProc = void* (*)(const char*);

constexpr intptr_t kLayerInterfaceVersion = 0x100;

// The lookup the core will bind: the first KOBALAPI_GetFunc of the global scope.
LookupProc processLookup() {
    void* process = dlopen(nullptr, RTLD_LAZY);  // the program itself; never closed
    if (!process) return nullptr;
    return reinterpret_cast<LookupProc>(dlsym(process, "KOBALAPI_GetFunc"));
}

bool isOwn(LookupProc lookup) {
    return objectBaseOf(reinterpret_cast<const void*>(lookup)) ==
           objectBaseOf(reinterpret_cast<const void*>(&KOBALAPI_GetFunc));
}

// VSTPluginMain of the object that holds `lookup`, when that object is a
// plug-in publishing a windowing layer of our interface version: a bridge.
VstPluginMainProc bridgeEntryBeside(LookupProc lookup) {
    if (reinterpret_cast<intptr_t>(lookup(nullptr)) != kLayerInterfaceVersion) return nullptr;
    Dl_info info{};
    if (!dladdr(reinterpret_cast<const void*>(lookup), &info) || !info.dli_fname) return nullptr;
    void* object = dlopen(info.dli_fname, RTLD_NOLOAD | RTLD_LAZY);
    if (!object) return nullptr;
    void* entry = dlsym(object, "VSTPluginMain");
    if (!entry || objectBaseOf(entry) != info.dli_fbase) return nullptr;
    return reinterpret_cast<VstPluginMainProc>(entry);
}

VstPluginMainProc loadCore() {
    std::string path = ownFolder() + "/" + OMBRO_CORE_FILE_NAME;
    void* core = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);  // kept for the process's life
    if (!core) {
        std::fprintf(stderr, "Ombro: cannot load %s: %s\n", path.c_str(), dlerror());
        return nullptr;
    }
    void* entry = dlsym(core, "VSTPluginMain");
    if (!entry) std::fprintf(stderr, "Ombro: %s has no VSTPluginMain\n", path.c_str());
    return reinterpret_cast<VstPluginMainProc>(entry);
}

CoreAccess decideCoreAccess() {
    CoreAccess access;
    promoteToGlobalScope();
    LookupProc lookup = processLookup();
    if (lookup && !isOwn(lookup)) access.otherBridgeMain = bridgeEntryBeside(lookup);
    if (access.otherBridgeMain) return access;
    access.coreMain = loadCore();
    access.editorAvailable = access.coreMain && lookup && isOwn(lookup);
    return access;
}

}  // namespace

const CoreAccess& coreAccess() {
    static const CoreAccess access = decideCoreAccess();
    return access;
}

}  // namespace bridge
