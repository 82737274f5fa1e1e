// The host extension functions (fader curve, FFT, raster library, config
// variables), requested by name through the host callback for each new
// instance, and the one process-wide host callback every notice goes through.
#pragma once

#include <cstdint>

#include "contracts/host_extensions.h"
#include "contracts/mura.h"
#include "contracts/vst2.h"

struct HostExtensions {
    Db2SliderProc db2Slider;
    Slider2DbProc slider2Db;
    void* getTooltipWindow;
    FftReal8Proc fftReal8;
    FftPermuteProc fftPermute;
    MURA_CreateBitmapProc createBitmap;
    MURA_PutPixelProc putPixel;
    MURA_LineIntProc lineInt;
    MURA_LineProc line;
    MURA_CircleProc circle;
    MURA_FillCircleProc fillCircle;
    MURA_FillRectProc fillRect;
    MURA_DrawRectProc drawRect;
    MURA_BorderedRectProc borderedRect;
    MURA_ClearProc clear;
    MURA_BlitProc blit;
    MURA_RotatedBlitProc rotatedBlit;
    MURA_DrawGlyphProc drawGlyph;
    MURA_CreateFontProc createFont;
    MURA_FillTriangleProc fillTriangle;
    MURA_ArcProc arc;
    MURA_FillTrapezoidProc fillTrapezoid;
    MURA_FillConvexPolygonProc fillConvexPolygon;
    MURA_CopyProc copy;
    MURA_ScaledBlitProc scaledBlit;
    MURA_MeasureTextProc measureText;
    MURA_DrawTextProc drawText;
    GetConfigVarProc getConfigVar;
};

extern HostExtensions hostExtensions;
extern int32_t* midiOctaveOffset;  // the host's "midioctoffs", or null
extern audioMasterCallback processHostCallback;

// Requests every extension from `host` (overwriting earlier results). False
// when the host has no FFT; the remaining requests are then not made.
bool importHostExtensions(audioMasterCallback host);
// True when every extension an instance needs is bound.
bool requiredHostExtensionsPresent();

// Calls the process-wide host callback; 0 while there is none.
intptr_t callHost(AEffect* effect, int32_t opcode, int32_t index, intptr_t value, void* ptr,
                  float opt);
