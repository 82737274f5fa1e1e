// The VST 2 plug-in ABI as both sides of the boundary see it: the AEffect
// record, its callback types and the opcode numbers this product uses.
// Written from the publicly documented VST 2 interface; 64-bit layout.
#pragma once

#include <cstdint>

struct AEffect;

using audioMasterCallback = intptr_t (*)(AEffect* effect, int32_t opcode, int32_t index,
                                         intptr_t value, void* ptr, float opt);
using AEffectDispatcherProc = intptr_t (*)(AEffect* effect, int32_t opcode, int32_t index,
                                           intptr_t value, void* ptr, float opt);
using AEffectProcessProc = void (*)(AEffect* effect, float** inputs, float** outputs,
                                    int32_t sampleFrames);
using AEffectProcessDoubleProc = void (*)(AEffect* effect, double** inputs, double** outputs,
                                          int32_t sampleFrames);
using AEffectSetParameterProc = void (*)(AEffect* effect, int32_t index, float value);
using AEffectGetParameterProc = float (*)(AEffect* effect, int32_t index);

// The entry point a host looks up in the shared object.
using VstPluginMainProc = AEffect* (*)(audioMasterCallback host);

constexpr int32_t kEffectMagic = 0x56737450;  // 'VstP'

struct AEffect {
    int32_t magic;
    AEffectDispatcherProc dispatcher;
    AEffectProcessProc process;  // the old accumulating entry
    AEffectSetParameterProc setParameter;
    AEffectGetParameterProc getParameter;
    int32_t numPrograms;
    int32_t numParams;
    int32_t numInputs;
    int32_t numOutputs;
    int32_t flags;
    intptr_t resvd1;
    intptr_t resvd2;
    int32_t initialDelay;
    int32_t realQualities;
    int32_t offQualities;
    float ioRatio;
    void* object;
    void* user;
    int32_t uniqueID;
    int32_t version;
    AEffectProcessProc processReplacing;
    AEffectProcessDoubleProc processDoubleReplacing;
    char future[56];
};

enum VstAEffectFlags : int32_t {
    effFlagsHasEditor = 1,
    effFlagsCanReplacing = 1 << 4,
    effFlagsProgramChunks = 1 << 5,
    effFlagsIsSynth = 1 << 8,
    effFlagsNoSoundInStop = 1 << 9,
    effFlagsCanDoubleReplacing = 1 << 12,
};

// Requests from the host to the effect (the dispatcher's opcode).
enum AEffectOpcodes : int32_t {
    effOpen = 0,
    effClose = 1,
    effSetProgram = 2,
    effGetProgram = 3,
    effSetProgramName = 4,
    effGetProgramName = 5,
    effGetParamLabel = 6,
    effGetParamDisplay = 7,
    effGetParamName = 8,
    effSetSampleRate = 10,
    effSetBlockSize = 11,
    effMainsChanged = 12,
    effEditGetRect = 13,
    effEditOpen = 14,
    effEditClose = 15,
    effEditIdle = 19,
    effIdentify = 22,
    effGetChunk = 23,
    effSetChunk = 24,
    effProcessEvents = 25,
    effCanBeAutomated = 26,
    effString2Parameter = 27,
    effGetProgramNameIndexed = 29,
    effGetPlugCategory = 35,
    effSetBypass = 44,
    effGetEffectName = 45,
    effGetVendorString = 47,
    effGetProductString = 48,
    effGetVendorVersion = 49,
    effVendorSpecific = 50,
    effCanDo = 51,
    effGetTailSize = 52,
    effGetVstVersion = 58,
    effStartProcess = 71,
};

// Requests from the effect to the host (the host callback's opcode).
enum AudioMasterOpcodes : int32_t {
    audioMasterAutomate = 0,
    audioMasterVersion = 1,
    audioMasterCurrentId = 2,
    audioMasterIdle = 3,
    audioMasterIOChanged = 13,
    audioMasterSizeWindow = 15,
    audioMasterGetSampleRate = 16,
    audioMasterGetBlockSize = 17,
    audioMasterGetVendorString = 32,
    audioMasterGetProductString = 33,
    audioMasterGetVendorVersion = 34,
    audioMasterVendorSpecific = 35,
    audioMasterCanDo = 37,
    audioMasterUpdateDisplay = 42,
    audioMasterBeginEdit = 43,
    audioMasterEndEdit = 44,
};

constexpr int32_t kPlugCategEffect = 1;

// The editor's rectangle as effEditGetRect reports it (ptr receives an ERect*).
struct ERect {
    int16_t top;
    int16_t left;
    int16_t bottom;
    int16_t right;
};

// Builds a four-character code, most significant character first.
constexpr int32_t fourCharCode(char a, char b, char c, char d) {
    return static_cast<int32_t>((static_cast<uint32_t>(static_cast<unsigned char>(a)) << 24) |
                                (static_cast<uint32_t>(static_cast<unsigned char>(b)) << 16) |
                                (static_cast<uint32_t>(static_cast<unsigned char>(c)) << 8) |
                                static_cast<uint32_t>(static_cast<unsigned char>(d)));
}
