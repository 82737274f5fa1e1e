#include "engine/heap_buffer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

constexpr int64_t kPageSize = 4096;
// Capacities leave this much of the last page to the allocator's own header.
constexpr int64_t kAllocatorReserve = 96;
constexpr int64_t kMaxExtra = 4194304;

// Storage to reserve for `newSize` bytes: half as much again, at least one
// granule; page-granular buffers fill whole pages less the allocator's share.
int64_t capacityFor(int64_t newSize, int64_t granularity) {
    int64_t extra = std::max(newSize / 2, granularity);
    if (granularity < kPageSize) return newSize + extra;
    extra = std::clamp(extra / kPageSize * kPageSize, kPageSize, kMaxExtra);
    return (newSize + extra + kAllocatorReserve) / kPageSize * kPageSize - kAllocatorReserve;
}

// Shrinking below this size releases storage; above it only the size drops.
int64_t shrinkThreshold(int64_t capacity, int64_t granularity) {
    return std::max<int64_t>(1, std::min(capacity / 2, capacity - 4 * granularity));
}

}  // namespace

void HeapBuffer::release() {
    std::free(data);
    data = nullptr;
    capacity = 0;
    size = 0;
}

void* HeapBuffer::resize(int32_t newSize, bool allowShrink) {
    newSize = std::max(newSize, 0);
    if (newSize == size) return data;
    bool keepStorage = newSize < size && allowShrink
                           ? newSize >= shrinkThreshold(capacity, granularity)
                           : newSize <= capacity;
    if (keepStorage) {
        size = newSize;
        return data;
    }
    if (newSize == 0) {
        release();
        return nullptr;
    }
    int64_t newCapacity = capacityFor(newSize, granularity);
    if (newCapacity > std::numeric_limits<int32_t>::max()) return data;  // cannot be held
    if (newCapacity <= 0) {
        release();
        return nullptr;
    }
    if (newCapacity != capacity) {
        void* grown = std::realloc(data, static_cast<size_t>(newCapacity));
        if (!grown) {
            grown = std::malloc(static_cast<size_t>(newCapacity));
            if (!grown) return data;
            if (data) std::memcpy(grown, data, static_cast<size_t>(std::min(size, newSize)));
            std::free(data);
        }
        data = grown;
        capacity = static_cast<int32_t>(newCapacity);
    }
    size = newSize;
    return data;
}
