// The state chunk: the written layout, every accepted older layout, every
// truncated trailer, the rejection rules and round trips.
#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <tuple>
#include <vector>

#include "engine/default_bands.h"
#include "engine/state_chunk.h"
#include "tests/engine/chunk_bytes.h"
#include "tests/engine/cookbook_reference.h"
#include "tests/engine/test_instance.h"

namespace {

void readChunk(EqInstance* instance, const ChunkBytes& chunk) {
    EXPECT_EQ(readStateChunk(instance, chunk.bytes.data(), chunk.size()), 0);
}

// Settings that no chunk below carries, to see which ones a read replaced.
void setMarkers(EqInstance* instance) {
    instance->showGrid = 70;
    instance->showTabs = 71;
    instance->outputGain = instance->currentOutputGain = 0.5;
    instance->viewFlags = 72;
    instance->editorWidth = 73;
    instance->editorHeight = 74;
}

// Two bands in records of `recordSize` bytes and a complete trailer.
ChunkBytes twoBands(int32_t recordSize) {
    ChunkBytes chunk;
    chunk.put<int32_t>(recordSize).put<int32_t>(2);
    chunk.band(HighShelf, 1, 6000.0, 2.0, 1.0);
    if (recordSize > 32) chunk.put<uint8_t>(0).padding(recordSize - 33);
    chunk.band(Notch, 0, 250.0, 1.0, 0.5);
    if (recordSize > 32) chunk.put<uint8_t>(0xFF).padding(recordSize - 33);
    return chunk.put<int32_t>(0).put<int32_t>(1).put<double>(0.25).put<int32_t>(1)
        .put<int32_t>(800).put<int32_t>(600);
}

}  // namespace

// Records of 33 packed bytes (type, enabled, frequency, gain, bandwidth, log
// flag), then grid, tabs, output gain, view flags, editor width and height.
TEST(StateChunkFormat, DefaultStateIsWrittenInThe168ByteLayout) {
    auto instance = makeTestInstance();
    ASSERT_TRUE(loadDefaultBands(instance.get()));
    ChunkBytes expected;
    expected.put<int32_t>(33).put<int32_t>(4);
    for (auto [type, frequency] : {std::pair{LowShelf, 100.0}, {Band, 300.0}, {Band, 1000.0},
                                   {HighShelf, 5000.0}})
        expected.band(type, 1, frequency, 1.0, 2.0).put<uint8_t>(1);
    expected.put<int32_t>(1).put<int32_t>(1).put<double>(1.0).put<int32_t>(0).put<int32_t>(0)
        .put<int32_t>(0);
    EXPECT_EQ(writtenChunk(instance.get()), expected.bytes);

    designBand(instance->band(0), LowShelf, false, 150.0, 1.0, 2.0);  // gliding from 100 Hz
    instance->outputGain = 0.75;  // the target, not the gain the ramp reached
    ChunkBytes chunk{writtenChunk(instance.get())};
    EXPECT_EQ(chunk.at<double>(16), 150.0);
    EXPECT_EQ(chunk.at<double>(148), 0.75);
}

TEST(StateChunkFormat, RoundTripReproducesEveryValueBitForBit) {
    auto source = makeTestInstance();
    addTestBand(source.get(), LowShelf, 5.0, 0.005, 0.0);
    addTestBand(source.get(), 12, 30000.0, 70.0, 20.0)->enabled = 0;
    addTestBand(source.get(), BandAlt2, 1234.5678, 0.1 + 0.2, 1.0 / 3)->logScaleAutomation = 0;
    source->outputGain = 0.3;
    source->editorWidth = 1024;
    source->editorHeight = 512;
    std::vector<unsigned char> first = writtenChunk(source.get());

    auto copy = makeTestInstance();
    readChunk(copy.get(), ChunkBytes{first});
    ASSERT_EQ(copy->bandCount(), 3);
    for (int32_t i = 0; i < 3; ++i) {
        const EqBand &a = *source->band(i), &b = *copy->band(i);
        EXPECT_EQ(std::tie(a.type, a.enabled, a.logScaleAutomation),
                  std::tie(b.type, b.enabled, b.logScaleAutomation));
        for (double EqBand::*value : {&EqBand::frequency, &EqBand::gain, &EqBand::bandwidth})
            EXPECT_EQ(std::bit_cast<uint64_t>(a.*value), std::bit_cast<uint64_t>(b.*value));
    }
    EXPECT_EQ(copy->currentOutputGain, 0.3);
    EXPECT_EQ(copy->editorHeight, 512);
    EXPECT_EQ(writtenChunk(copy.get()), first);
}

// Records of 32 bytes (older, without the flag) and more (extra bytes skipped)
// load designed for the instance's rate; a trailer cut at any length sets
// what is there and leaves the rest.
TEST(StateChunkFormat, EveryRecordSizeAndTrailerLengthReadsOnlyWhatIsThere) {
    for (int32_t recordSize : {32, 33, 45}) {
        ChunkBytes complete = twoBands(recordSize);
        const size_t trailerAt = 8 + 2 * recordSize;
        for (int length = 0; length <= 28; ++length) {
            SCOPED_TRACE(testing::Message() << recordSize << "-byte records, trailer " << length);
            const bool gain = length >= 16, size = length >= 28;
            // 12 to 15 bytes are an older trailer without the gain: view flags follow the tabs
            const int flagsAt = length >= 20 ? 16 : (length >= 12 && length < 16 ? 8 : -1);
            ChunkBytes chunk;
            chunk.bytes.assign(complete.bytes.begin(), complete.bytes.begin() + trailerAt + length);
            auto instance = makeTestInstance();
            setMarkers(instance.get());
            instance->sampleRate = 48000.0;
            readChunk(instance.get(), chunk);
            ASSERT_EQ(instance->bandCount(), 2);
            const EqBand &shelf = *instance->band(0), &notch = *instance->band(1);
            expectCoefficients(shelf, referenceHighShelf(48000.0, 6000.0, 2.0, 1.0));
            EXPECT_EQ(shelf.glideGain, 2.0);
            EXPECT_EQ(shelf.logScaleAutomation, 0);
            EXPECT_EQ(notch.logScaleAutomation, recordSize > 32 ? 1 : 0);  // bit 0 of 0xFF
            EXPECT_EQ(std::tie(notch.type, notch.enabled, notch.bandwidth), std::tuple(Notch, 0, 0.5));
            EXPECT_EQ(instance->effect.numParams, 6);
            EXPECT_EQ(instance->refreshRequested, 1);
            EXPECT_EQ(instance->showGrid, length >= 4 ? 0 : 70);
            EXPECT_EQ(instance->showTabs, length >= 8 ? 1 : 71);
            EXPECT_EQ(instance->outputGain, gain ? 0.25 : 1.0);
            EXPECT_EQ(instance->currentOutputGain, gain ? 0.25 : 1.0);
            EXPECT_EQ(instance->viewFlags,
                      flagsAt < 0 ? 72 : complete.at<int32_t>(trailerAt + flagsAt));
            EXPECT_EQ(instance->editorWidth, size ? 800 : 73);
            EXPECT_EQ(instance->editorHeight, size ? 600 : 74);
        }
    }
}

// Bad chunks keep the bands; all but the shortest reset the output gain.
TEST(StateChunkFormat, RejectedChunksKeepTheBands) {
    constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
    struct Case {
        const char* why;
        int32_t recordSize, count;
        int payload;
        double gainAfter;
    } cases[] = {
        {"twelve bytes change nothing", 33, 0, 4, 0.5},
        {"record size below 32", 31, 0, 5, 1.0},
        {"negative band count", 33, -1, 40, 1.0},
        {"band count overflowing 32 bits", 33, kMax, 60, 1.0},
        {"record size overflowing 32 bits", kMax, 3, 60, 1.0},
        {"records one byte longer than the chunk", 33, 2, 65, 1.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        auto instance = makeTestInstance();
        ASSERT_TRUE(loadDefaultBands(instance.get()));
        setMarkers(instance.get());
        ChunkBytes chunk;
        chunk.put<int32_t>(c.recordSize).put<int32_t>(c.count).padding(c.payload, 0x40);
        readChunk(instance.get(), chunk);
        EXPECT_EQ(instance->bandCount(), 4);
        EXPECT_EQ(instance->band(0)->frequency, 100.0);
        EXPECT_EQ(instance->outputGain, c.gainAfter);
        EXPECT_EQ(instance->currentOutputGain, c.gainAfter);
        EXPECT_EQ(instance->showGrid, 70);
        EXPECT_EQ(instance->refreshRequested, 0);
    }
    EXPECT_EQ(readStateChunk(makeTestInstance().get(), nullptr, 100), 0);
}
