// Projects saved and reloaded through effGetChunk and effSetChunk.
#include <cstring>

#include "tests/session/session_fixture.h"

namespace {

using StateChunkSession = SessionTest;

template <typename T>
void put(std::vector<uint8_t>& bytes, T value) {
    const auto* raw = reinterpret_cast<const uint8_t*>(&value);
    bytes.insert(bytes.end(), raw, raw + sizeof value);
}

template <typename T>
T at(const std::vector<uint8_t>& bytes, size_t offset) {
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

// An older project: 32-byte band records without the flag byte.
std::vector<uint8_t> olderTwoBandChunk() {
    std::vector<uint8_t> bytes;
    put<int32_t>(bytes, 32);
    put<int32_t>(bytes, 2);
    for (double frequency : {250.0, 8000.0}) {
        put<int32_t>(bytes, 8);
        put<int32_t>(bytes, 1);
        put<double>(bytes, frequency);
        put<double>(bytes, 2.0);
        put<double>(bytes, 1.5);
    }
    put<int32_t>(bytes, 0);       // show grid
    put<int32_t>(bytes, 1);       // show tabs
    put<double>(bytes, 0.5);      // output gain
    put<int32_t>(bytes, 1);       // view flags
    put<int32_t>(bytes, 800);     // editor size
    put<int32_t>(bytes, 500);
    return bytes;
}

TEST_F(StateChunkSession, DefaultStateIs168Bytes) {
    std::vector<uint8_t> chunk = session->chunk();
    ASSERT_EQ(chunk.size(), 168u);
    EXPECT_EQ(at<int32_t>(chunk, 0), 33);
    EXPECT_EQ(at<int32_t>(chunk, 4), 4);
    EXPECT_EQ(at<int32_t>(chunk, 8), 0);
    EXPECT_EQ(at<int32_t>(chunk, 12), 1);
    EXPECT_EQ(at<double>(chunk, 16), 100.0);
    EXPECT_EQ(chunk[8 + 32], 1);  // log-scale automation
}

TEST_F(StateChunkSession, OlderLayoutLoadsIntoAFreshInstance) {
    session->setChunk(olderTwoBandChunk());
    EXPECT_EQ(session->parameterCount(), 6);
    EXPECT_EQ(session->parameterName(0), "Freq-Band 1");
    EXPECT_EQ(session->parameterDisplay(3), "8000.0");
    // The older layout has no flag: frequencies map linearly.
    EXPECT_FLOAT_EQ(session->parameter(0), static_cast<float>(250.0 / 24000.0));
    std::vector<uint8_t> saved = session->chunk();
    ASSERT_EQ(saved.size(), 8u + 2 * 33 + 28);
    EXPECT_EQ(saved[8 + 32], 0);
    EXPECT_EQ(at<double>(saved, saved.size() - 20), 0.5);
    EXPECT_EQ(at<int32_t>(saved, saved.size() - 8), 800);
}

TEST_F(StateChunkSession, SavedStateReloadsBitForBitInAnotherInstance) {
    session->setParameter(7, 0.8f);
    session->setParameter(3, 0.123456f);
    session->setParameter(11, 0.9f);
    std::vector<uint8_t> saved = session->chunk();
    std::unique_ptr<EffectSession> other = EffectSession::open(library());
    ASSERT_TRUE(other);
    other->setChunk(saved);
    EXPECT_EQ(other->chunk(), saved);
    for (int p = 0; p < 12; ++p) EXPECT_EQ(other->parameter(p), session->parameter(p)) << p;
}

TEST_F(StateChunkSession, TruncatedAndHostileChunksNeverLoadPastTheirSize) {
    std::vector<uint8_t> before = session->chunk();
    std::vector<uint8_t> hostile;
    put<int32_t>(hostile, 33);
    put<int32_t>(hostile, 0x7FFFFFFF);
    put<int32_t>(hostile, 0);
    put<int32_t>(hostile, 0);
    session->setChunk(hostile);
    EXPECT_EQ(session->parameterCount(), 12);
    std::vector<uint8_t> tiny(12, 0xFF);
    session->setChunk(tiny);
    EXPECT_EQ(session->chunk(), before);
}

}  // namespace
