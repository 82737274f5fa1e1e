// The built bridge in the plain host: loaded once per test process from the
// build's install folder and kept, as a host keeps its plug-ins.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "tests/bridge/plain_host.h"

LoadedPlugin& builtBridge();

// A test with one freshly opened bridge instance.
class BridgeInstanceTest : public testing::Test {
protected:
    void SetUp() override {
        hosted_ = HostedEffect::open(builtBridge());
        ASSERT_NE(hosted_, nullptr);
    }
    AEffect* effect() const { return hosted_->effect(); }
    std::unique_ptr<HostedEffect> hosted_;
};

// The default band set has four bands.
constexpr int32_t kDefaultParameterCount = 12;
