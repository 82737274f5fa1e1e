#include "plugin/host_imports.h"

#include <cstddef>

HostExtensions hostExtensions = {};
int32_t* midiOctaveOffset = nullptr;
audioMasterCallback processHostCallback = nullptr;

namespace {

void* requestExtension(audioMasterCallback host, const char* name) {
    return reinterpret_cast<void*>(host(nullptr, kHostExtensionOpcode, kHostExtensionIndex, 0,
                                        const_cast<char*>(name), 0.0f));
}

template <typename Proc>
void request(audioMasterCallback host, const char* name, Proc& slot) {
    slot = reinterpret_cast<Proc>(requestExtension(host, name));
}

// The raster functions in the order they are requested.
void requestRasterFunctions(audioMasterCallback host) {
    HostExtensions& x = hostExtensions;
    request(host, "MURA_CreateBitmap", x.createBitmap);
    request(host, "MURA_PutPixel", x.putPixel);
    request(host, "MURA_LineInt", x.lineInt);
    request(host, "MURA_Line", x.line);
    request(host, "MURA_Circle", x.circle);
    request(host, "MURA_FillCircle", x.fillCircle);
    request(host, "MURA_FillRect", x.fillRect);
    request(host, "MURA_DrawRect", x.drawRect);
    request(host, "MURA_BorderedRect", x.borderedRect);
    request(host, "MURA_Clear", x.clear);
    request(host, "MURA_Blit", x.blit);
    request(host, "MURA_RotatedBlit", x.rotatedBlit);
    request(host, "MURA_DrawGlyph", x.drawGlyph);
    request(host, "MURA_CreateFont", x.createFont);
    request(host, "MURA_FillTriangle", x.fillTriangle);
    request(host, "MURA_Arc", x.arc);
    request(host, "MURA_FillTrapezoid", x.fillTrapezoid);
    request(host, "MURA_FillConvexPolygon", x.fillConvexPolygon);
    request(host, "MURA_Copy", x.copy);
    request(host, "MURA_ScaledBlit", x.scaledBlit);
    request(host, "MURA_MeasureText", x.measureText);
    request(host, "MURA_DrawText", x.drawText);
}

// The note names follow the host's octave numbering when it publishes one;
// the pointer is kept only when the variable has the size of an int32.
void bindMidiOctaveOffset() {
    if (!hostExtensions.getConfigVar || midiOctaveOffset) return;
    int size = 0;
    void* variable = hostExtensions.getConfigVar("midioctoffs", &size);
    if (variable && size == 4) midiOctaveOffset = static_cast<int32_t*>(variable);
}

}  // namespace

bool importHostExtensions(audioMasterCallback host) {
    HostExtensions& x = hostExtensions;
    request(host, "DB2SLIDER", x.db2Slider);
    request(host, "SLIDER2DB", x.slider2Db);
    x.getTooltipWindow = requestExtension(host, "GetTooltipWindow");
    request(host, "QIT_fft_real_8", x.fftReal8);
    request(host, "QIT_fft_permute", x.fftPermute);
    if (!x.fftReal8 || !x.fftPermute) return false;
    requestRasterFunctions(host);
    request(host, "get_config_var", x.getConfigVar);
    bindMidiOctaveOffset();
    return true;
}

bool requiredHostExtensionsPresent() {
    const HostExtensions& x = hostExtensions;
    const void* required[] = {
        reinterpret_cast<const void*>(x.db2Slider),
        reinterpret_cast<const void*>(x.slider2Db),
        reinterpret_cast<const void*>(x.borderedRect),
        reinterpret_cast<const void*>(x.fillRect),
        reinterpret_cast<const void*>(x.drawRect),
        reinterpret_cast<const void*>(x.createFont),
        reinterpret_cast<const void*>(x.fillTriangle),
        reinterpret_cast<const void*>(x.lineInt),
        reinterpret_cast<const void*>(x.line),
        reinterpret_cast<const void*>(x.createBitmap),
        reinterpret_cast<const void*>(x.circle),
        reinterpret_cast<const void*>(x.fillCircle),
        reinterpret_cast<const void*>(x.clear),
        reinterpret_cast<const void*>(x.blit),
        reinterpret_cast<const void*>(x.rotatedBlit),
        reinterpret_cast<const void*>(x.drawGlyph),
        reinterpret_cast<const void*>(x.arc),
        reinterpret_cast<const void*>(x.fillTrapezoid),
        reinterpret_cast<const void*>(x.putPixel),
        reinterpret_cast<const void*>(x.fillConvexPolygon),
        reinterpret_cast<const void*>(x.copy),
        reinterpret_cast<const void*>(x.scaledBlit),
    };
    for (const void* function : required) {
        if (!function) return false;
    }
    return true;
}

intptr_t callHost(AEffect* effect, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                  float opt) {
    if (!processHostCallback) return 0;
    return processHostCallback(effect, opcode, index, value, ptr, opt);
}
