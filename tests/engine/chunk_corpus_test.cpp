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

namespace {

const std::filesystem::path kCorpus =
    std::filesystem::path(__FILE__).parent_path() / ".." / ".." / "fuzz" / "corpus";

std::vector<unsigned char> fileBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<unsigned char> written(EqInstance* instance) {
    void* data = nullptr;
    int32_t size = writeStateChunk(instance, &data);
    auto* bytes = static_cast<unsigned char*>(data);
    return {bytes, bytes + size};
}

}  // namespace

TEST(ChunkCorpus, EverySeedLoadsAndRoundTrips) {
    int seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(kCorpus)) {
        SCOPED_TRACE(entry.path().filename().string());
        std::vector<unsigned char> seed = fileBytes(entry.path());
        auto instance = makeTestInstance();
        ASSERT_TRUE(loadDefaultBands(instance.get()));
        readStateChunk(instance.get(), seed.data(), static_cast<intptr_t>(seed.size()));
        EXPECT_EQ(instance->effect.numParams, 3 * instance->bandCount());

        double left[64] = {0.5}, right[64] = {-0.25};
        double* channels[2] = {left, right};
        processDoubleReplacing(&instance->effect, channels, channels, 64);

        std::vector<unsigned char> first = written(instance.get());
        auto copy = makeTestInstance();
        readStateChunk(copy.get(), first.data(), static_cast<intptr_t>(first.size()));
        EXPECT_EQ(written(copy.get()), first);
        ++seeds;
    }
    EXPECT_GE(seeds, 10);
}
