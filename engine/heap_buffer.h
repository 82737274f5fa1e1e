// The growable byte buffer behind every variable-length array of the plug-in
// (band list, chunk buffer, curve and scratch buffers). Its growth rule is
// fixed so that memory use is predictable: capacities are whole 4 KiB pages
// less 96 bytes, and shrinking only releases memory on a large drop.
#pragma once

#include <cstdint>

struct HeapBuffer {
    void* data = nullptr;  // null while empty
    int32_t capacity = 0;  // bytes allocated
    int32_t size = 0;      // bytes in use
    int32_t granularity = 4096;

    // Sets the size in bytes and returns the data pointer (null for size 0).
    // On allocation failure the old storage and size stay; callers compare
    // `size` with what they asked for.
    void* resize(int32_t newSize, bool allowShrink = true);
    void release();  // frees the storage: pointer null, capacity and size 0

    template <typename T>
    T* as() const { return static_cast<T*>(data); }
    template <typename T>
    int32_t count() const { return size / static_cast<int32_t>(sizeof(T)); }
};
