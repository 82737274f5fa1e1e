#include "plugin/ui_layer.h"

#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace kobal {
#define OMBRO_DEFINE_UI_SLOT(name) name##Proc name = nullptr;
OMBRO_CALLED_UI_FUNCTIONS(OMBRO_DEFINE_UI_SLOT)
#undef OMBRO_DEFINE_UI_SLOT
}  // namespace kobal

namespace {

// Bound in place of every function the host lacks: whatever it is called
// with, it answers 0 (a null handle, false, zero).
intptr_t uiStub() { return 0; }

struct CalledFunction {
    const char* name;
    void** slot;
};

// reinterpret_cast between object and function pointers is what dlsym-style
// binding amounts to; the platform guarantees it.
#define OMBRO_CALLED_ENTRY(name) {#name, reinterpret_cast<void**>(&kobal::name)},
const CalledFunction calledFunctions[] = {OMBRO_CALLED_UI_FUNCTIONS(OMBRO_CALLED_ENTRY)};
#undef OMBRO_CALLED_ENTRY

// Slots of the functions the plug-in binds but never calls.
void* uncalledSlots[kKobalFunctionCount];

void** slotFor(const char* name, int tableIndex) {
    for (const CalledFunction& function : calledFunctions) {
        if (std::strcmp(function.name, name) == 0) return function.slot;
    }
    return &uncalledSlots[tableIndex];
}

struct UiLayerTableStorage {
    UiLayerEntry entries[kKobalFunctionCount];
    UiLayerTableStorage() {
        for (int i = 0; i < kKobalFunctionCount; ++i) {
            entries[i] = {kKobalFunctionNames[i], slotFor(kKobalFunctionNames[i], i)};
        }
    }
};

KobalGetFuncProc findLookupFunction() {
    void* process = dlopen(nullptr, RTLD_LAZY);  // never closed
    if (!process) return nullptr;
    auto lookup = reinterpret_cast<KobalGetFuncProc>(dlsym(process, "KOBALAPI_GetFunc"));
    if (!lookup) return nullptr;
    auto version = reinterpret_cast<intptr_t>(lookup(nullptr));
    return version == kKobalInterfaceVersion ? lookup : nullptr;
}

}  // namespace

const UiLayerEntry* uiLayerTable() {
    static const UiLayerTableStorage table;
    return table.entries;
}

void bindUiLayer() {
    KobalGetFuncProc lookup = findLookupFunction();
    const UiLayerEntry* table = uiLayerTable();
    for (int i = 0; i < kKobalFunctionCount; ++i) {
        void* function = lookup ? lookup(table[i].name) : nullptr;
        if (!function) {
            std::printf("KOBAL API not found: %s\n", table[i].name);
            function = reinterpret_cast<void*>(&uiStub);
        }
        *table[i].slot = function;
    }
}
