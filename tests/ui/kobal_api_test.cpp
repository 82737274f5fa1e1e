// The entry point a plug-in binds the layer through, and the small utilities.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "contracts/kobal_function_names.h"
#include "host/ui/host_clock.h"
#include "host/ui/kobal_layer_options.h"
#include "tests/ui/ui_test_support.h"

extern "C" void* KOBALAPI_GetFunc(const char* name);

namespace {

class KobalApi : public UiLayerTest {
protected:
    void TearDown() override {
        setKobalLayerOptions(KobalLayerOptions{});
        UiLayerTest::TearDown();
    }
    template <typename Proc>
    Proc function(const char* name) {
        return reinterpret_cast<Proc>(KOBALAPI_GetFunc(name));
    }
};

TEST_F(KobalApi, ProcessLookupFindsTheEntryPointWhichAnswersVersion256AndEveryInterfaceName) {
    void* self = dlopen(nullptr, RTLD_LAZY);
    auto lookup = reinterpret_cast<KobalGetFuncProc>(dlsym(self, "KOBALAPI_GetFunc"));
    ASSERT_NE(lookup, nullptr);
    EXPECT_EQ(reinterpret_cast<intptr_t>(lookup(nullptr)), 0x100);
    for (const char* name : kKobalFunctionNames) EXPECT_NE(KOBALAPI_GetFunc(name), nullptr) << name;
    EXPECT_EQ(KOBALAPI_GetFunc("CreateWindowEx"), nullptr);
    EXPECT_EQ(KOBALAPI_GetFunc(""), nullptr);
}

TEST_F(KobalApi, NamesAreDistinctTheCalledOnesHaveTheirOwnFunctionsAndOthersAnswerZero) {
    std::set<std::string> names(std::begin(kKobalFunctionNames), std::end(kKobalFunctionNames));
    EXPECT_EQ(names.size(), 315u);
    // Functions the plug-in calls differ from the shared unsupported answer.
    void* unsupported = KOBALAPI_GetFunc("ListView_InsertItem");
    EXPECT_EQ(KOBALAPI_GetFunc("TreeView_Expand"), unsupported);
    for (const char* called : {"lstrcpyn", "SendMessage", "KOBAL_CreateDialog", "BitBlt",
                               "TrackPopupMenu", "TabCtrl_GetCurSel", "KOBAL_GenerateMenuFromList"})
        EXPECT_NE(KOBALAPI_GetFunc(called), unsupported) << called;
    using ThreeArgs = intptr_t (*)(intptr_t, intptr_t, intptr_t);
    EXPECT_EQ(function<ThreeArgs>("MessageBox")(1, 2, 3), 0);
    EXPECT_EQ(function<ThreeArgs>("CreateSolidBrush")(0x123456, 0, 0), 0);
}

TEST_F(KobalApi, OptionsWithholdFunctionsAndChangeTheVersion) {
    KobalLayerOptions options;
    options.missingFunctions = {"TabCtrl_GetCurSel"};
    options.interfaceVersion = 0x101;
    setKobalLayerOptions(options);
    EXPECT_EQ(KOBALAPI_GetFunc("TabCtrl_GetCurSel"), nullptr);
    EXPECT_NE(KOBALAPI_GetFunc("TabCtrl_SetCurSel"), nullptr);
    EXPECT_EQ(reinterpret_cast<intptr_t>(KOBALAPI_GetFunc(nullptr)), 0x101);
}

TEST_F(KobalApi, LstrcpynCopiesAtMostLimitMinusOneTerminatesAndToleratesNulls) {
    auto copy = function<lstrcpynProc>("lstrcpyn");
    char buffer[8];
    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_EQ(copy(buffer, "equalizer", 4), buffer);
    EXPECT_STREQ(buffer, "equ");
    EXPECT_EQ(buffer[4], 'x');  // nothing written past the terminator
    copy(buffer, "ab", 8);
    EXPECT_STREQ(buffer, "ab");
    copy(buffer, "ab", 1);
    EXPECT_STREQ(buffer, "");
    char kept[4] = {'k', 'e', 'e', 'p'};
    copy(kept, "abc", 0);
    copy(kept, "abc", -5);
    EXPECT_EQ(std::string(kept, 4), "keep");
    EXPECT_EQ(copy(nullptr, "abc", 4), nullptr);
    copy(kept, nullptr, 4);
    EXPECT_STREQ(kept, "");
}

TEST_F(KobalApi, TickCountFollowsTheTestClock) {
    auto ticks = function<GetTickCountProc>("GetTickCount");
    kobal_layer::useTestClock(5000);
    EXPECT_EQ(ticks(), 5000u);
    kobal_layer::advanceTestClock(40);
    EXPECT_EQ(ticks(), 5040u);
}

}  // namespace
