#include "host/app/effect_report.h"

#include <cstdio>
#include <string>

namespace {

struct FlagName {
    int32_t flag;
    const char* name;
};

constexpr FlagName kFlagNames[] = {
    {effFlagsHasEditor, "editor"},
    {effFlagsCanReplacing, "replacing"},
    {effFlagsProgramChunks, "chunks"},
    {effFlagsIsSynth, "synth"},
    {effFlagsNoSoundInStop, "no-sound-in-stop"},
    {effFlagsCanDoubleReplacing, "double-replacing"},
};

std::string flagNames(int32_t flags) {
    std::string names;
    for (const FlagName& flag : kFlagNames) {
        if (!(flags & flag.flag)) continue;
        if (!names.empty()) names += ", ";
        names += flag.name;
    }
    return names;
}

std::string fourCharText(int32_t code) {
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        char c = static_cast<char>((static_cast<uint32_t>(code) >> shift) & 0xFF);
        text += (c >= 32 && c < 127) ? c : '?';
    }
    return text;
}

}  // namespace

void printIdentity(EffectSession& session) {
    const AEffect& effect = *session.effect();
    std::printf("name:       %s\n", session.effectName().c_str());
    std::printf("vendor:     %s\n", session.vendorName().c_str());
    std::printf("product:    %s\n", session.productName().c_str());
    std::printf("unique ID:  '%s' (0x%08X)\n", fourCharText(effect.uniqueID).c_str(),
                static_cast<unsigned>(effect.uniqueID));
    std::printf("version:    %d\n", effect.version);
    std::printf("flags:      0x%X (%s)\n", static_cast<unsigned>(effect.flags),
                flagNames(effect.flags).c_str());
    std::printf("programs:   %d\n", effect.numPrograms);
    std::printf("channels:   %d in, %d out\n", effect.numInputs, effect.numOutputs);
    std::printf("parameters: %d\n", effect.numParams);
}

void printParameters(EffectSession& session) {
    for (int32_t index = 0; index < session.parameterCount(); ++index) {
        std::string display = session.parameterDisplay(index);
        std::string label = session.parameterLabel(index);
        std::printf("  %3d  %-20s %.6f  %s%s%s\n", index, session.parameterName(index).c_str(),
                    session.parameter(index), display.c_str(), label.empty() ? "" : " ",
                    label.c_str());
    }
}
