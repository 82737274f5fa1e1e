// A careless host: opcodes, indices and pointers outside anything the effect
// answers must come back as 0 or empty text, never as a crash.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "plugin_under_test.h"

namespace {

using CarelessHost = SingleInstanceTest;

TEST_F(CarelessHost, OpcodesBeyondTheTableAnswerZero) {
    char text[256] = "";
    for (int32_t opcode : {52, 53, 58, 71, 100, 1000, INT_MAX, -1, -2, INT_MIN}) {
        EXPECT_EQ(session_->dispatch(opcode, 0, 0, text, 0.0f), 0) << opcode;
        EXPECT_EQ(session_->dispatch(opcode, -1, -1, nullptr, 1.0f), 0) << opcode;
    }
}

TEST_F(CarelessHost, NullPointersAndWildIndicesNeverCrash) {
    EXPECT_EQ(session_->dispatch(effEditClose), 0);  // an editor closed without having opened
    EXPECT_EQ(session_->dispatch(effEditClose), 0);
    EXPECT_EQ(session_->dispatch(effEditGetRect, 0, 0, nullptr), 0);
    const int32_t indices[] = {0, -1, 12, 1000000, INT_MAX, INT_MIN};
    for (int32_t opcode = -3; opcode <= 80; ++opcode) {
        if (opcode == effClose) continue;  // ends the instance; the session's own to send
        for (int32_t index : indices) session_->dispatch(opcode, index, 0, nullptr, 0.0f);
    }
    EXPECT_EQ(session_->dispatch(effSetChunk, 0, 100, nullptr), 0);  // a size without data
    session_->closeEditor();  // effEditOpen with no parent may have made one
    EXPECT_TRUE(session_->isOpen());
    EXPECT_EQ(session_->parameterCount(), 12);
}

TEST_F(CarelessHost, ParameterTextsOutOfRangeAreEmpty) {
    for (int32_t opcode : {effGetParamLabel, effGetParamDisplay, effGetParamName}) {
        for (int32_t index : {-1, 12, 13, INT_MAX, INT_MIN}) {
            char text[256];
            std::memset(text, 'x', sizeof text);
            text[255] = '\0';
            EXPECT_EQ(session_->dispatch(opcode, index, 0, text), 0) << opcode << " " << index;
            EXPECT_STREQ(text, "") << opcode << " " << index;
        }
    }
}

TEST_F(CarelessHost, TinyOrEmptyChunksChangeNothing) {
    std::vector<uint8_t> before = session_->chunk();
    uint8_t twelve[12] = {33, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(session_->dispatch(effSetChunk, 0, 12, twelve), 0);
    EXPECT_EQ(session_->dispatch(effSetChunk, 0, 0, nullptr), 0);
    EXPECT_EQ(session_->dispatch(effSetChunk, 0, -5, twelve), 0);
    EXPECT_EQ(session_->chunk(), before);
    EXPECT_EQ(session_->parameterCount(), 12);
}

}  // namespace
