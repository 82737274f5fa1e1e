// What a host's loader sees of the shared object: three entry points and no
// dependency beyond the C library, libm, threads and the dynamic loader.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>

namespace {

std::string commandOutput(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return output;
    char buffer[512];
    while (fgets(buffer, sizeof buffer, pipe)) output += buffer;
    pclose(pipe);
    return output;
}

std::set<std::string> words(const std::string& text) {
    std::set<std::string> result;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        if (end > start) result.insert(text.substr(start, end - start));
        start = end + 1;
    }
    return result;
}

TEST(SharedObject, ExportsOnlyItsEntryPoints) {
    std::string symbols = commandOutput(std::string("nm -D --defined-only ") + OMBRO_PLUGIN_PATH +
                                        " | awk '$2 ~ /[A-Z]/ {print $3}'");
    EXPECT_EQ(words(symbols), (std::set<std::string>{"DllMain", "KOBAL_dllMain", "VSTPluginMain"}));
}

TEST(SharedObject, NeedsOnlyTheSystemLibraries) {
    std::string needed = commandOutput(std::string("readelf -d ") + OMBRO_PLUGIN_PATH +
                                       " | sed -n 's/.*Shared library: \\[\\(.*\\)\\]/\\1/p'");
    const std::set<std::string> allowed = {"libc.so.6", "libm.so.6", "libpthread.so.0",
                                           "libdl.so.2", "ld-linux-x86-64.so.2"};
    std::set<std::string> libraries = words(needed);
    EXPECT_FALSE(libraries.empty());
    for (const std::string& library : libraries) {
        bool sanitizerRuntime = library.find("san.so") != std::string::npos;  // test builds only
        EXPECT_TRUE(allowed.count(library) || sanitizerRuntime) << library;
    }
}

}  // namespace
