// ombro-bench: times the plug-in's hot paths in one run; see README.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

#include "bench/benchmark_suites.h"

namespace {

std::string processorName() {
    std::ifstream cpuinfo("/proc/cpuinfo");
    for (std::string line; std::getline(cpuinfo, line);)
        if (line.rfind("model name", 0) == 0) return line.substr(line.find(':') + 2);
    return "unknown processor";
}

}  // namespace

int main(int argc, char** argv) {
    BenchOptions options;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--quick") == 0) {
            options.quick = true;
        } else if (std::strcmp(argv[i], "--paint") == 0) {
            options.paintOnly = true;
        } else {
            std::fprintf(stderr, "usage: %s [--quick] [--paint]\n", argv[0]);
            return 2;
        }
    }
    std::printf("ombro-bench on %s\n\n", processorName().c_str());
    if (!options.paintOnly) {
        runAudioPathSuite(options);
        runInstructionSetSuite(options);
    }
    runEditorPaintSuite(options);
    return 0;
}
