// The state chunk through the dispatcher: its bytes, built here from the
// documented layout, and round trips between instances.
#include <gtest/gtest.h>

#include <cstring>

#include "plugin_under_test.h"

namespace {

constexpr int32_t kLowShelf = 0, kHighShelf = 1, kPeaking = 8;

struct BandRecord {
    int32_t type;
    double frequency;
    double gain;
    double bandwidth;
};

// A chunk in the current layout (33-byte band records, enabled, log-scale
// automation on), packed little-endian, with the default trailer or none.
class ChunkBytes {
public:
    ChunkBytes(std::initializer_list<BandRecord> bands, bool withTrailer = true) {
        i32(33).i32(static_cast<int32_t>(bands.size()));
        for (const BandRecord& band : bands)
            i32(band.type).i32(1).f64(band.frequency).f64(band.gain).f64(band.bandwidth).u8(1);
        if (withTrailer) i32(1).i32(1).f64(1.0).i32(0).i32(0).i32(0);
    }
    const std::vector<uint8_t>& bytes() const { return bytes_; }

private:
    ChunkBytes& i32(int32_t value) { return raw(&value, 4); }
    ChunkBytes& f64(double value) { return raw(&value, 8); }
    ChunkBytes& u8(uint8_t value) { return raw(&value, 1); }
    ChunkBytes& raw(const void* data, size_t size) {
        const uint8_t* begin = static_cast<const uint8_t*>(data);
        bytes_.insert(bytes_.end(), begin, begin + size);
        return *this;
    }
    std::vector<uint8_t> bytes_;
};

std::vector<uint8_t> defaultChunk() {
    return ChunkBytes({{kLowShelf, 100.0, 1.0, 2.0},
                       {kPeaking, 300.0, 1.0, 2.0},
                       {kPeaking, 1000.0, 1.0, 2.0},
                       {kHighShelf, 5000.0, 1.0, 2.0}})
        .bytes();
}

using StateChunk = SingleInstanceTest;

TEST_F(StateChunk, FreshInstanceSavesTheDefaultBandsByteForByte) {
    std::vector<uint8_t> chunk = session_->chunk();
    EXPECT_EQ(chunk.size(), 168u);
    EXPECT_EQ(chunk, defaultChunk());
}

TEST_F(StateChunk, LoadedBandsBecomeTheParameterList) {
    std::vector<uint8_t> fiveBands = ChunkBytes({{kLowShelf, 80.0, 2.0, 1.0},
                                                 {kPeaking, 250.0, 0.5, 1.5},
                                                 {kPeaking, 1000.0, 1.0, 2.0},
                                                 {kPeaking, 3000.0, 1.0, 2.0},
                                                 {kPeaking, 8000.0, 4.0, 0.5}})
                                         .bytes();
    session_->setChunk(fiveBands);
    EXPECT_EQ(session_->parameterCount(), 15);
    EXPECT_EQ(session_->parameterName(12), "Freq-Band 5");
    EXPECT_EQ(session_->parameterDisplay(0), "80.0");
    EXPECT_EQ(session_->parameterDisplay(13), "12.0");
    EXPECT_EQ(session_->parameterDisplay(14), "0.50");
    EXPECT_EQ(session_->chunk(), fiveBands);
}

TEST_F(StateChunk, ChunkWithoutTrailerLoadsItsBandsAndKeepsTheSettings) {
    BandRecord band{kPeaking, 440.0, 1.0, 1.0};
    session_->setChunk(ChunkBytes({band}, false).bytes());
    EXPECT_EQ(session_->parameterCount(), 3);
    EXPECT_EQ(session_->parameterDisplay(0), "440.0");
    EXPECT_EQ(session_->chunk(), ChunkBytes({band}).bytes());
}

}  // namespace
