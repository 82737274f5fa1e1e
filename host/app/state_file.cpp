#include "host/app/state_file.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>

#include "host/app/program_error.h"
#include "host/app/state_chunk.h"

namespace {

CommandFailure fileFailure(const std::string& action, const std::string& path) {
    return CommandFailure("cannot " + action + " state file " + path + ": " +
                          std::strerror(errno));
}

}  // namespace

std::vector<uint8_t> readStateFile(const std::string& path) {
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) throw fileFailure("read", path);
    std::vector<uint8_t> chunk((std::istreambuf_iterator<char>(file)),
                               std::istreambuf_iterator<char>());
    if (file.bad()) throw fileFailure("read", path);
    if (chunk.empty()) throw CommandFailure("state file " + path + " is empty");
    try {
        decodeStateChunk(chunk);
    } catch (const CommandFailure& failure) {
        throw CommandFailure("state file " + path + " is not a valid state: " + failure.what());
    }
    return chunk;
}

void writeStateFile(const std::string& path, const std::vector<uint8_t>& chunk) {
    errno = 0;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) throw fileFailure("write", path);
    file.write(reinterpret_cast<const char*>(chunk.data()),
               static_cast<std::streamsize>(chunk.size()));
    file.flush();
    if (!file) throw fileFailure("write", path);
}
