// How an effect asks the host for its extension functions when it is made,
// and which missing functions make it refuse.
#include <gtest/gtest.h>

#include "contracts/mura.h"
#include "plugin_under_test.h"

namespace {

std::vector<std::string> expectedRequestOrder() {
    std::vector<std::string> names = {"DB2SLIDER", "SLIDER2DB", "GetTooltipWindow",
                                      "QIT_fft_real_8", "QIT_fft_permute"};
    for (const char* raster : kMuraFunctionNames) names.emplace_back(raster);
    names.emplace_back("get_config_var");
    return names;
}

SessionOptions without(std::initializer_list<const char*> names) {
    SessionOptions options;
    for (const char* name : names) options.withheldExtensions.insert(name);
    return options;
}

TEST(ExtensionRequests, AreMadeOnceEachInOrderWithoutAnEffect) {
    auto session = openTestSession();
    ASSERT_NE(session, nullptr);
    std::vector<HostCall> calls = session->hostCalls();
    EXPECT_EQ(requestedExtensionNames(calls), expectedRequestOrder());
    for (const HostCall& call : calls) {
        if (!call.isExtensionRequest()) continue;
        EXPECT_TRUE(call.effectWasNull) << call.text;
        EXPECT_EQ(call.value, 0) << call.text;
        EXPECT_NE(call.answer, 0) << call.text;
    }
}

TEST(ExtensionRequests, StopRightAfterAMissingFft) {
    for (const char* fft : {"QIT_fft_real_8", "QIT_fft_permute"}) {
        std::vector<HostCall> requests;
        auto session = EffectSession::open(pluginUnderTest(), without({fft}), &requests);
        EXPECT_EQ(session, nullptr) << fft;
        std::vector<std::string> expected = expectedRequestOrder();
        expected.resize(5);  // up to the FFT functions
        EXPECT_EQ(requestedExtensionNames(requests), expected) << fft;
    }
}

class RequiredExtension : public testing::TestWithParam<const char*> {};

TEST_P(RequiredExtension, MissingMeansNoInstanceAndLeavesOthersWorking) {
    auto first = openTestSession();
    ASSERT_NE(first, nullptr);
    std::vector<HostCall> requests;
    auto session = EffectSession::open(pluginUnderTest(), without({GetParam()}), &requests);
    EXPECT_EQ(session, nullptr);
    EXPECT_FALSE(requests.empty());
    first->setParameter(7, 0.5f);
    EXPECT_FLOAT_EQ(first->parameter(7), 0.5f);
    EXPECT_EQ(first->parameterName(7), "Gain-Band 3");
    // The next host with everything gets an instance again.
    EXPECT_NE(openTestSession(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    FaderAndRaster, RequiredExtension,
    testing::Values("DB2SLIDER", "SLIDER2DB", "MURA_Arc", "MURA_CreateBitmap", "MURA_ScaledBlit",
                    "MURA_PutPixel", "MURA_FillConvexPolygon"),
    [](const testing::TestParamInfo<const char*>& info) { return std::string(info.param); });

TEST(ExtensionRequests, OptionalFunctionsMayBeMissing) {
    auto session = openTestSession(
        without({"GetTooltipWindow", "MURA_MeasureText", "MURA_DrawText", "get_config_var"}));
    ASSERT_NE(session, nullptr);
    EXPECT_EQ(session->parameterCount(), 12);
    EXPECT_EQ(session->effectName(), "Ombro");
    StereoBuffer input(64, 0.125);
    StereoBuffer output;
    session->process(input, output);
    EXPECT_EQ(output.left, input.left);
}

}  // namespace
