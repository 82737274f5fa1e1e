// The effect's state chunk kept in a file, byte for byte.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Throws CommandFailure when the file cannot be read or does not hold a state
// the effect can take whole (see decodeStateChunk).
std::vector<uint8_t> readStateFile(const std::string& path);
// Throws CommandFailure when the file cannot be written.
void writeStateFile(const std::string& path, const std::vector<uint8_t>& chunk);
