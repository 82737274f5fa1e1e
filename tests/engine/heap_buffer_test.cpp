// The buffer's growth rule: whole 4 KiB pages less 96 bytes, half again on
// growth (at most 4 MiB), storage kept on small drops, released on large ones.
#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "engine/heap_buffer.h"

TEST(HeapBuffer, CapacityFollowsEverySizeInTurnAndContentsStay) {
    struct Step {
        int32_t size;
        bool allowShrink;
        int32_t capacity;  // afterwards
    };
    const std::vector<std::vector<Step>> cases = {
        {{1, true, 4000}, {3999, true, 4000}},
        {{4000, true, 8096}},
        {{3992, false, 4000}, {4000, false, 4000}, {4008, false, 8096}},  // 501st pointer
        // 100000 + 49152 + 96 down to pages; 20000000 + 4 MiB + 96 down to pages
        {{100000, true, 36 * 4096 - 96}, {20000000, true, 5906 * 4096 - 96}},
        // half of 147360 keeps the storage, one byte less shrinks it to 26 pages
        {{100000, true, 147360}, {73680, true, 147360}, {73679, true, 26 * 4096 - 96}},
        {{100000, true, 147360}, {0, false, 147360}},  // without allowShrink: always kept
        {{6000, true, 8096}, {1, true, 8096}},         // under four granules: kept
        {{100, true, 4000}, {0, true, 0}},             // nothing left: released
        {{100, true, 4000}, {-5, true, 0}},
        {{64, true, 4000}, {INT_MAX, true, 4000}},  // impossible: left as it was
    };
    for (const auto& steps : cases) {
        HeapBuffer buffer{};
        for (const Step& step : steps) {
            SCOPED_TRACE(testing::Message() << "resize to " << step.size);
            const bool filled = buffer.size > 0;
            if (filled) static_cast<char*>(buffer.data)[0] = 42;
            const int32_t kept = step.size == INT_MAX ? buffer.size : std::max(step.size, 0);
            void* data = buffer.resize(step.size, step.allowShrink);
            EXPECT_EQ(buffer.capacity, step.capacity);
            EXPECT_EQ(buffer.size, kept);
            EXPECT_EQ(data, step.capacity ? buffer.data : nullptr);
            if (filled && buffer.size > 0) EXPECT_EQ(static_cast<char*>(data)[0], 42);
        }
        buffer.release();
    }
}
