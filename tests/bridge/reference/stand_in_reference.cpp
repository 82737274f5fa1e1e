// The equalizer's answers through the stand-in host, for comparison with the
// bridge in another process (one process cannot hold both windowing layers).
//
//   stand_in_reference [--chunk-in FILE] [--chunk-out FILE] [INDEX=VALUE ...]
//
// Loads ombro.so, applies the chunk, then the parameter values, writes the
// resulting chunk and prints one line per parameter:
//   INDEX <tab> NAME <tab> LABEL <tab> DISPLAY <tab> VALUE
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "host/host_session.h"

namespace {

std::vector<uint8_t> readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void writeFile(const std::string& path, const std::vector<uint8_t>& bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

int main(int argc, char** argv) {
    PluginLibrary library;
    std::unique_ptr<EffectSession> session = EffectSession::open(library);
    if (!session) return 1;
    std::string chunkOut;
    for (int i = 1; i < argc; ++i) {
        std::string argument = argv[i];
        if (argument == "--chunk-in" && i + 1 < argc) {
            session->setChunk(readFile(argv[++i]));
        } else if (argument == "--chunk-out" && i + 1 < argc) {
            chunkOut = argv[++i];
        } else {
            size_t equals = argument.find('=');
            if (equals == std::string::npos) return 2;
            session->setParameter(std::atoi(argument.c_str()),
                                  std::strtof(argument.c_str() + equals + 1, nullptr));
        }
    }
    if (!chunkOut.empty()) writeFile(chunkOut, session->chunk());
    for (int32_t p = 0; p < session->parameterCount(); ++p) {
        std::printf("%d\t%s\t%s\t%s\t%.9g\n", p, session->parameterName(p).c_str(),
                    session->parameterLabel(p).c_str(), session->parameterDisplay(p).c_str(),
                    static_cast<double>(session->parameter(p)));
    }
    return 0;
}
