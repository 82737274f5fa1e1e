// Builds state chunks byte by byte for the reader tests: packed little-endian.
#pragma once

#include <cstdint>
#include <cstring>
#include <vector>

struct ChunkBytes {
    std::vector<unsigned char> bytes;

    template <typename T>
    ChunkBytes& put(T value) {
        unsigned char raw[sizeof value];
        std::memcpy(raw, &value, sizeof value);
        bytes.insert(bytes.end(), raw, raw + sizeof value);
        return *this;
    }
    ChunkBytes& band(int32_t type, int32_t enabled, double frequency, double gain,
                     double bandwidth) {
        return put(type).put(enabled).put(frequency).put(gain).put(bandwidth);
    }
    ChunkBytes& padding(int count, unsigned char value = 0xEE) {
        bytes.insert(bytes.end(), count, value);
        return *this;
    }
    template <typename T>
    T at(size_t offset) const {
        T value;
        std::memcpy(&value, bytes.data() + offset, sizeof value);
        return value;
    }
    intptr_t size() const { return static_cast<intptr_t>(bytes.size()); }
};
