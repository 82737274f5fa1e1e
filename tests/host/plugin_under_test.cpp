#include "plugin_under_test.h"

PluginLibrary& pluginUnderTest() {
    static PluginLibrary library;
    return library;
}

std::unique_ptr<EffectSession> openTestSession(const SessionOptions& options) {
    return EffectSession::open(pluginUnderTest(), options);
}

std::vector<HostCall> callsWithOpcode(const std::vector<HostCall>& calls, int32_t opcode) {
    std::vector<HostCall> matching;
    for (const HostCall& call : calls)
        if (call.opcode == opcode) matching.push_back(call);
    return matching;
}

std::vector<std::string> requestedExtensionNames(const std::vector<HostCall>& calls) {
    std::vector<std::string> names;
    for (const HostCall& call : calls)
        if (call.isExtensionRequest()) names.push_back(call.text);
    return names;
}

// Low shelf, two peaking bands and a high shelf: the first and last bands
// carry no number because their types mark the ends.
const char* const kDefaultParameterNames[12] = {
    "Freq-Low Shelf", "Gain-Low Shelf", "Q-Low Shelf",
    "Freq-Band 2",    "Gain-Band 2",    "Q-Band 2",
    "Freq-Band 3",    "Gain-Band 3",    "Q-Band 3",
    "Freq-High Shelf", "Gain-High Shelf", "Q-High Shelf",
};
