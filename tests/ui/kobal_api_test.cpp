// The entry point a plug-in binds the layer through, and the small utilities.
#include <dlfcn.h>

#include <cstring>

#include "contracts/kobal_function_names.h"
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

TEST_F(KobalApi, TheProcessExportsTheEntryPointWhichAnswersVersion256AndEveryName) {
    auto lookup =
        reinterpret_cast<KobalGetFuncProc>(dlsym(dlopen(nullptr, RTLD_LAZY), "KOBALAPI_GetFunc"));
    ASSERT_NE(lookup, nullptr);
    EXPECT_EQ(reinterpret_cast<intptr_t>(lookup(nullptr)), 0x100);
    for (const char* name : kKobalFunctionNames) EXPECT_NE(lookup(name), nullptr) << name;
    EXPECT_EQ(lookup("CreateWindowEx"), nullptr);
    // Functions the plug-in calls differ from the shared answer of the unsupported ones.
    void* unsupported = lookup("ListView_InsertItem");
    EXPECT_EQ(lookup("TreeView_Expand"), unsupported);
    for (const char* called : {"lstrcpyn", "SendMessage", "BitBlt", "TrackPopupMenu"})
        EXPECT_NE(lookup(called), unsupported) << called;
    using ThreeArgs = intptr_t (*)(intptr_t, intptr_t, intptr_t);
    EXPECT_EQ(function<ThreeArgs>("MessageBox")(1, 2, 3), 0);
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

TEST_F(KobalApi, LstrcpynCopiesAtMostLimitMinusOneAndTerminates) {
    auto copy = function<lstrcpynProc>("lstrcpyn");
    struct Case {
        const char* source;
        int limit;
        const char* expected;  // the buffer afterwards, "xxxxxxx" before
    };
    for (const Case& c :
         {Case{"equalizer", 4, "equ\0xxx"}, Case{"ab", 8, "ab\0xxxx"}, Case{"ab", 1, "\0xxxxxx"},
          Case{"abc", 0, "xxxxxxx"}, Case{"abc", -5, "xxxxxxx"}, Case{nullptr, 4, "\0xxxxxx"}}) {
        char buffer[8] = "xxxxxxx";
        copy(buffer, c.source, c.limit);
        EXPECT_EQ(std::memcmp(buffer, c.expected, 7), 0) << c.limit;
    }
    char buffer[4];
    EXPECT_EQ(copy(buffer, "abc", 4), buffer);
    EXPECT_EQ(copy(nullptr, "abc", 4), nullptr);
}

TEST_F(KobalApi, TickCountFollowsTheTestClock) {
    auto ticks = function<GetTickCountProc>("GetTickCount");
    kobal_layer::useTestClock(5000);
    kobal_layer::advanceTestClock(40);
    EXPECT_EQ(ticks(), 5040u);
}

}  // namespace
