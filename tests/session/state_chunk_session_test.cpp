// Projects saved and reloaded through effGetChunk and effSetChunk.
#include "tests/engine/chunk_bytes.h"
#include "tests/session/session_fixture.h"

namespace {

using StateChunkSession = SessionTest;

// An older project: two bands in 32-byte records without the log-scale flag.
TEST_F(StateChunkSession, OlderLayoutLoadsWithLinearFrequencies) {
    ChunkBytes older;
    older.put<int32_t>(32).put<int32_t>(2);
    for (double frequency : {250.0, 8000.0}) older.band(8, 1, frequency, 2.0, 1.5);  // Band
    older.put<int32_t>(0).put<int32_t>(1).put<double>(0.5).put<int32_t>(1).put<int32_t>(800)
        .put<int32_t>(500);
    session->setChunk(older.bytes);
    EXPECT_EQ(session->parameterCount(), 6);
    EXPECT_EQ(session->parameterName(0), "Freq-Band 1");
    EXPECT_EQ(session->parameterDisplay(3), "8000.0");
    EXPECT_FLOAT_EQ(session->parameter(0), static_cast<float>(250.0 / 24000.0));
    session->setParameter(3, 0.5f);
    EXPECT_EQ(session->parameterDisplay(3), "12000.0");

    ChunkBytes saved{session->chunk()};
    ASSERT_EQ(saved.size(), 8 + 2 * 33 + 28);
    EXPECT_EQ(saved.at<uint8_t>(8 + 32), 0);
    EXPECT_EQ(saved.at<double>(saved.size() - 20), 0.5);
    EXPECT_EQ(saved.at<int32_t>(saved.size() - 8), 800);
}

}  // namespace
