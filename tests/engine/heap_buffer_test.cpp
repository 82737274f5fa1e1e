// The buffer's growth rule: whole 4 KiB pages less 96 bytes, storage kept on
// small drops, released on large ones.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "engine/heap_buffer.h"

namespace {

struct OwnedBuffer : HeapBuffer {
    ~OwnedBuffer() { release(); }
};

}  // namespace

TEST(HeapBuffer, AnyFirstSizeBelowOnePageReserves4000Bytes) {
    for (int32_t size : {1, 8, 2000, 3999}) {
        OwnedBuffer buffer;
        EXPECT_NE(buffer.resize(size), nullptr);
        EXPECT_EQ(buffer.capacity, 4000) << size;
        EXPECT_EQ(buffer.size, size);
    }
    OwnedBuffer exact;
    exact.resize(4000);
    EXPECT_EQ(exact.capacity, 8096);
}

TEST(HeapBuffer, The501stPointerGrowsTheListTo8096Bytes) {
    OwnedBuffer list;
    for (int pointers = 1; pointers <= 500; ++pointers) {
        list.resize(pointers * 8, false);
        ASSERT_EQ(list.capacity, 4000) << pointers;
    }
    list.resize(501 * 8, false);
    EXPECT_EQ(list.capacity, 8096);
    EXPECT_EQ(list.size, 4008);
}

TEST(HeapBuffer, GrowthKeepsTheContents) {
    OwnedBuffer buffer;
    auto* bytes = static_cast<unsigned char*>(buffer.resize(3000));
    for (int i = 0; i < 3000; ++i) bytes[i] = static_cast<unsigned char>(i * 7);
    bytes = static_cast<unsigned char*>(buffer.resize(100000));
    for (int i = 0; i < 3000; ++i) ASSERT_EQ(bytes[i], static_cast<unsigned char>(i * 7));
}

TEST(HeapBuffer, LargeSizesReserveHalfAgainInWholePages) {
    OwnedBuffer buffer;
    buffer.resize(100000);
    // extra 50000 -> 49152; (100000 + 49152 + 96) down to pages is 36 pages.
    EXPECT_EQ(buffer.capacity, 36 * 4096 - 96);
    OwnedBuffer huge;
    huge.resize(20000000);
    // extra is limited to 4 MiB: (20000000 + 4194304 + 96) down to pages.
    EXPECT_EQ(huge.capacity, 5906 * 4096 - 96);
}

TEST(HeapBuffer, SmallDropsOnlyLowerTheSizeAndDropsBelowHalfReleaseStorage) {
    OwnedBuffer buffer;
    void* data = buffer.resize(100000);
    int32_t capacity = buffer.capacity;  // 147360
    EXPECT_EQ(buffer.resize(capacity / 2), data);
    EXPECT_EQ(buffer.capacity, capacity);
    EXPECT_EQ(buffer.size, capacity / 2);

    OwnedBuffer page;
    page.resize(6000);  // capacity 8096, less than four granules: any drop keeps it
    page.resize(1);
    EXPECT_EQ(page.capacity, 8096);
    EXPECT_EQ(page.size, 1);

    buffer.resize(73679);  // one byte below half of 147360
    // extra 36839 -> 32768; (73679 + 32768 + 96) down to pages is 26 pages.
    EXPECT_EQ(buffer.capacity, 26 * 4096 - 96);
    EXPECT_EQ(buffer.size, 73679);
}

TEST(HeapBuffer, ShrinkingWithoutLeaveKeepsTheStorage) {
    OwnedBuffer buffer;
    void* data = buffer.resize(100000);
    EXPECT_EQ(buffer.resize(8, false), data);
    EXPECT_EQ(buffer.capacity, 36 * 4096 - 96);
    EXPECT_EQ(buffer.resize(0, false), data);
    EXPECT_EQ(buffer.size, 0);
    EXPECT_EQ(buffer.capacity, 36 * 4096 - 96);
}

TEST(HeapBuffer, SizeZeroOrNegativeFreesTheStorage) {
    for (int32_t size : {0, -5}) {
        OwnedBuffer buffer;
        buffer.resize(100);
        EXPECT_EQ(buffer.resize(size), nullptr) << size;
        EXPECT_EQ(buffer.data, nullptr);
        EXPECT_EQ(buffer.capacity, 0);
        EXPECT_EQ(buffer.size, 0);
    }
}

TEST(HeapBuffer, FineGranularityReservesHalfAgain) {
    OwnedBuffer buffer;
    buffer.granularity = 16;
    buffer.resize(10);
    EXPECT_EQ(buffer.capacity, 26);  // 10 + max(5, 16)
    buffer.resize(100);
    EXPECT_EQ(buffer.capacity, 150);  // 100 + 50
}

TEST(HeapBuffer, AnImpossibleSizeLeavesTheBufferAsItWas) {
    OwnedBuffer buffer;
    void* data = buffer.resize(64);
    std::memset(data, 0x5A, 64);
    EXPECT_EQ(buffer.resize(INT_MAX), data);
    EXPECT_EQ(buffer.size, 64);
    EXPECT_EQ(buffer.capacity, 4000);
    EXPECT_EQ(static_cast<unsigned char*>(buffer.data)[63], 0x5A);
}
