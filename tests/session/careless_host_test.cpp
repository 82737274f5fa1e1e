// A careless host: opcodes, indices and pointers outside anything the effect
// answers come back as 0 or empty text, never as a crash or a changed state.
#include <climits>
#include <cstring>

#include "tests/session/session_fixture.h"

namespace {

using CarelessHost = SessionTest;

TEST_F(CarelessHost, CallsOutsideWhatTheEffectAnswersReturnNothingAndChangeNothing) {
    const std::vector<uint8_t> before = session->chunk();
    for (int32_t opcode = -3; opcode <= 80; ++opcode) {
        if (opcode == effClose || opcode == effEditOpen) continue;  // the session's own to send
        for (int32_t index : {-1, 12, 1000000, INT_MAX, INT_MIN})
            session->dispatch(opcode, index, 0, nullptr, 0.0f);
    }
    for (int32_t opcode : {effGetParamLabel, effGetParamDisplay, effGetParamName})
        for (int32_t index : {-1, 12, INT_MAX, INT_MIN}) {
            char text[256];
            std::memset(text, 'x', sizeof text);
            EXPECT_EQ(session->dispatch(opcode, index, 0, text), 0) << opcode << " " << index;
            EXPECT_STREQ(text, "") << opcode << " " << index;
        }
    uint8_t twelve[12] = {33};
    for (auto [size, data] : {std::pair{12, twelve}, {0, nullptr}, {-5, twelve}, {100, nullptr}})
        EXPECT_EQ(session->dispatch(effSetChunk, 0, size, data), 0) << size;
    EXPECT_EQ(session->chunk(), before);
    EXPECT_EQ(session->parameterCount(), 12);
}

}  // namespace
