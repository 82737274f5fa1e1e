// Replays the chunk reader's fuzzing corpus: every seed loads without harm,
// and what the plug-in then writes reads back to the same bytes.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "engine/audio_processing.h"
#include "engine/default_bands.h"
#include "engine/state_chunk.h"
#include "tests/engine/test_instance.h"

TEST(ChunkCorpus, EverySeedLoadsAndRoundTrips) {
    int seeds = 0;
    const auto corpus = std::filesystem::path(__FILE__).parent_path() / "../../fuzz/corpus";
    for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
        SCOPED_TRACE(entry.path().filename().string());
        std::ifstream file(entry.path(), std::ios::binary);
        std::vector<unsigned char> seed{std::istreambuf_iterator<char>(file), {}};
        auto instance = makeTestInstance();
        ASSERT_TRUE(loadDefaultBands(instance.get()));
        readStateChunk(instance.get(), seed.data(), static_cast<intptr_t>(seed.size()));
        EXPECT_EQ(instance->effect.numParams, 3 * instance->bandCount());
        double left[64] = {0.5}, right[64] = {-0.25};
        double* channels[2] = {left, right};
        processDoubleReplacing(&instance->effect, channels, channels, 64);

        std::vector<unsigned char> first = writtenChunk(instance.get());
        auto copy = makeTestInstance();
        readStateChunk(copy.get(), first.data(), static_cast<intptr_t>(first.size()));
        EXPECT_EQ(writtenChunk(copy.get()), first);
        ++seeds;
    }
    EXPECT_GE(seeds, 10);
}
