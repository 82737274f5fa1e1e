// The helpers behind the texts of levels and notes that every display shows.
#include <gtest/gtest.h>

#include "plugin/host_imports.h"
#include "plugin/parameters.h"

TEST(NoteNames, OctavesChangeBetweenBAndCAndFollowTheHostOffset) {
    int32_t up = 1, down = -2;
    struct Case {
        double frequency;
        int32_t* offset;
        const char* text;
    } cases[] = {{440.0, nullptr, "A3"}, {466.16, nullptr, "A#3"}, {493.88, nullptr, "B3"},
                 {523.25, nullptr, "C4"}, {15.0, nullptr, ""},    {0.0, nullptr, ""},
                 {880.0 * 0.98, nullptr, "A4"},  // 35 cents flat rounds to A4
                 {440.0, &up, "A4"},     {440.0, &down, "A1"}};
    for (const Case& c : cases) {
        char text[16];
        midiOctaveOffset = c.offset;
        noteName(text, c.frequency);
        EXPECT_STREQ(text, c.text) << c.frequency;
    }
    midiOctaveOffset = nullptr;
}

TEST(AmplitudeToDecibels, FloorAndUnity) {
    EXPECT_EQ(ampToDb(0.0), -150.0);
    EXPECT_EQ(ampToDb(1e-9), -150.0);
    EXPECT_EQ(ampToDb(1.0), 0.0);
    EXPECT_NEAR(ampToDb(2.0), 6.0206, 1e-4);
}
