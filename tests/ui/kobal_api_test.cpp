// The entry point a plug-in binds the layer through, and its string copy.
#include <dlfcn.h>

#include <cstring>

#include "contracts/kobal_function_names.h"
#include "tests/ui/ui_test_support.h"

namespace {

TEST(KobalApi, TheProcessExportsTheEntryPointWhichAnswersVersion256AndEveryName) {
    auto lookup =
        reinterpret_cast<KobalGetFuncProc>(dlsym(dlopen(nullptr, RTLD_LAZY), "KOBALAPI_GetFunc"));
    ASSERT_NE(lookup, nullptr);
    EXPECT_EQ(reinterpret_cast<intptr_t>(lookup(nullptr)), 0x100);
    for (const char* name : kKobalFunctionNames) EXPECT_NE(lookup(name), nullptr) << name;
    EXPECT_EQ(lookup("CreateWindowEx"), nullptr);
    auto copy = reinterpret_cast<lstrcpynProc>(lookup("lstrcpyn"));
    struct Case {
        const char* source;
        int limit;
        const char* expected;  // the buffer afterwards, "xxxxxxx" before
    };
    for (const Case& c :
         {Case{"equalizer", 4, "equ\0xxx"}, Case{"ab", 8, "ab\0xxxx"}, Case{"ab", 1, "\0xxxxxx"},
          Case{"abc", 0, "xxxxxxx"}, Case{"abc", -5, "xxxxxxx"}, Case{nullptr, 4, "\0xxxxxx"}}) {
        char buffer[8] = "xxxxxxx";
        EXPECT_EQ(copy(buffer, c.source, c.limit), buffer);
        EXPECT_EQ(std::memcmp(buffer, c.expected, 7), 0) << c.limit;
    }
    EXPECT_EQ(copy(nullptr, "abc", 4), nullptr);
}

}  // namespace
