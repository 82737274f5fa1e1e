// The notices the editor sends the host for its own changes, and the shared
// formatting helpers.
#include <gtest/gtest.h>

#include <vector>

#include "engine/default_bands.h"
#include "plugin/host_imports.h"
#include "plugin/host_notices.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"
#include "tests/engine/test_instance.h"

namespace {

struct Notice {
    int32_t opcode, index;
    float opt;
    bool operator==(const Notice&) const = default;
};

std::vector<Notice> notices;
HWND focusedWindow = nullptr;

intptr_t recordingHost(AEffect*, int32_t opcode, int32_t index, intptr_t, void*, float opt) {
    notices.push_back({opcode, index, opt});
    return 0;
}

}  // namespace

// Steps: 'T' touches parameter p, 'R' reports it (ending when `flag`), 'E'
// ends the gesture once the focus left the panel (still on it when `flag`),
// 'C' forgets the notices so far.
TEST(EditNotices, GesturesOpenOnceAndEndBeforeTheNext) {
    struct Step {
        char action;
        int32_t p = 0;
        bool flag = false;
    };
    struct Case {
        const char* what;
        std::vector<Step> steps;
        std::vector<Notice> expected;
        int32_t gestureAfter;
    } cases[] = {
        {"repeated touch", {{'T', 4}, {'T', 4}},
         {{audioMasterBeginEdit, 4, 0}, {audioMasterAutomate, 4, 0.25f}, {audioMasterAutomate, 4, 0.25f}}, 4},
        {"another parameter", {{'T', 4}, {'C'}, {'T', 7}},
         {{audioMasterEndEdit, 4, 0}, {audioMasterBeginEdit, 7, 0}, {audioMasterAutomate, 7, 0.25f}}, 7},
        {"structural change", {{'T', 6}, {'C'}, {'T', -1}},
         {{audioMasterEndEdit, 6, 0}, {audioMasterAutomate, -1, 0}}, -1},
        {"focus moves", {{'T', 1}, {'C'}, {'E', 0, true}, {'E'}}, {{audioMasterEndEdit, 1, 0}}, -1},
        {"reports", {{'T', 2}, {'C'}, {'R', 2}, {'R', 2, true}, {'R', 99}},
         {{audioMasterAutomate, 2, 0.5f}, {audioMasterEndEdit, 2, 0}, {audioMasterAutomate, 99, 0}}, 2},
    };
    processHostCallback = recordingHost;
    kobal::GetFocus = [] { return focusedWindow; };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        auto instance = makeTestInstance();
        ASSERT_TRUE(loadDefaultBands(instance.get()));
        notices.clear();
        for (const Step& step : c.steps) {
            focusedWindow = step.flag ? reinterpret_cast<HWND>(0x1000) : nullptr;
            if (step.action == 'T') touchParameter(instance.get(), step.p);
            if (step.action == 'R') reportParameter(instance.get(), step.p, step.flag);
            if (step.action == 'E') endEditGesture(instance.get(), true);
            if (step.action == 'C') notices.clear();
        }
        EXPECT_EQ(notices, c.expected);
        EXPECT_EQ(instance->gestureParam, c.gestureAfter);
    }
    processHostCallback = nullptr;
}

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
