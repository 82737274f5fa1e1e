// What a host's loader sees of the shared object: three entry points and no
// dependency beyond the C library, libm, threads and the dynamic loader.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>

namespace {

// The lines `command` prints about the plug-in, piped through `filter`.
std::set<std::string> linesAbout(const char* command, const char* filter) {
    std::set<std::string> lines;
    std::string pipeline = std::string(command) + " " + OMBRO_PLUGIN_PATH + " | " + filter;
    FILE* pipe = popen(pipeline.c_str(), "r");
    char buffer[512];
    while (pipe && fgets(buffer, sizeof buffer, pipe)) {
        std::string line(buffer);
        if (line.ends_with('\n')) line.pop_back();
        if (!line.empty()) lines.insert(line);
    }
    if (pipe) pclose(pipe);
    return lines;
}

TEST(SharedObject, ExportsOnlyItsEntryPoints) {
    EXPECT_EQ(linesAbout("nm -D --defined-only", "awk '$2 ~ /[A-Z]/ {print $3}'"),
              (std::set<std::string>{"DllMain", "KOBAL_dllMain", "VSTPluginMain"}));
}

TEST(SharedObject, NeedsOnlyTheSystemLibraries) {
    std::set<std::string> libraries =
        linesAbout("readelf -d", "sed -n 's/.*Shared library: \\[\\(.*\\)\\]/\\1/p'");
    const std::set<std::string> allowed = {"libc.so.6", "libm.so.6", "libpthread.so.0",
                                           "libdl.so.2", "ld-linux-x86-64.so.2"};
    EXPECT_FALSE(libraries.empty());
    for (const std::string& library : libraries)  // sanitizer runtimes in test builds only
        EXPECT_TRUE(allowed.count(library) || library.find("san.so") != std::string::npos)
            << library;
}

}  // namespace
