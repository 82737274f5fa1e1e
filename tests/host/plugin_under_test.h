// The equalizer as the host tests load it: one library per test process,
// instances opened with the stand-in host's callback.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "host/vst/effect_session.h"
#include "host/vst/plugin_library.h"

PluginLibrary& pluginUnderTest();

// An instance with every extension offered (or as `options` say); null when
// the plug-in refuses.
std::unique_ptr<EffectSession> openTestSession(const SessionOptions& options = {});

// A test with one freshly opened instance.
class SingleInstanceTest : public testing::Test {
protected:
    void SetUp() override {
        session_ = openTestSession();
        ASSERT_NE(session_, nullptr);
    }
    std::unique_ptr<EffectSession> session_;
};

// The recorded calls with the given opcode, in order.
std::vector<HostCall> callsWithOpcode(const std::vector<HostCall>& calls, int32_t opcode);

// The names of the extension requests among `calls`, in order.
std::vector<std::string> requestedExtensionNames(const std::vector<HostCall>& calls);

// The default band set as the test knows it: parameter names in index order.
extern const char* const kDefaultParameterNames[12];
