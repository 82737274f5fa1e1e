#include "host/raster/mura_functions.h"

#include <cstring>

#include "host/raster/mura_drawing.h"

namespace {

struct MuraFunction {
    const char* name;
    void* address;
};

// The cast to the callers' type keeps every signature in step with the contract.
#define OMBRO_MURA_ENTRY(name) {#name, reinterpret_cast<void*>(static_cast<name##Proc>(&name))}

const MuraFunction kMuraFunctions[] = {
    OMBRO_MURA_ENTRY(MURA_CreateBitmap),  OMBRO_MURA_ENTRY(MURA_PutPixel),
    OMBRO_MURA_ENTRY(MURA_LineInt),       OMBRO_MURA_ENTRY(MURA_Line),
    OMBRO_MURA_ENTRY(MURA_Circle),        OMBRO_MURA_ENTRY(MURA_FillCircle),
    OMBRO_MURA_ENTRY(MURA_FillRect),      OMBRO_MURA_ENTRY(MURA_DrawRect),
    OMBRO_MURA_ENTRY(MURA_BorderedRect),  OMBRO_MURA_ENTRY(MURA_Clear),
    OMBRO_MURA_ENTRY(MURA_Blit),          OMBRO_MURA_ENTRY(MURA_RotatedBlit),
    OMBRO_MURA_ENTRY(MURA_DrawGlyph),     OMBRO_MURA_ENTRY(MURA_CreateFont),
    OMBRO_MURA_ENTRY(MURA_FillTriangle),  OMBRO_MURA_ENTRY(MURA_Arc),
    OMBRO_MURA_ENTRY(MURA_FillTrapezoid), OMBRO_MURA_ENTRY(MURA_FillConvexPolygon),
    OMBRO_MURA_ENTRY(MURA_Copy),          OMBRO_MURA_ENTRY(MURA_ScaledBlit),
    OMBRO_MURA_ENTRY(MURA_MeasureText),   OMBRO_MURA_ENTRY(MURA_DrawText),
};

#undef OMBRO_MURA_ENTRY

}  // namespace

void* findMuraFunction(const char* name) {
    if (name == nullptr) return nullptr;
    for (const MuraFunction& function : kMuraFunctions)
        if (std::strcmp(function.name, name) == 0) return function.address;
    return nullptr;
}
