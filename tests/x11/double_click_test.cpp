// Telling double clicks from single ones by time and place, as Win32 does.
#include "host/x11/double_click.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace {

struct Press {
    uint32_t timeMs;
    POINT point;
};

struct PressCase {
    const char* name;
    std::vector<Press> presses;
    std::vector<bool> doubleClicks;  // what each press completes
};

void PrintTo(const PressCase& value, std::ostream* out) { *out << value.name; }

class DoubleClicks : public ::testing::TestWithParam<PressCase> {};

TEST_P(DoubleClicks, SecondPressCloseInTimeAndPlaceCompletesADoubleClick) {
    x11_front::DoubleClickDetector detector;
    std::vector<bool> seen;
    for (const Press& press : GetParam().presses)
        seen.push_back(detector.isDoubleClick(press.timeMs, press.point));
    EXPECT_EQ(seen, GetParam().doubleClicks);
}

INSTANTIATE_TEST_SUITE_P(
    Presses, DoubleClicks,
    ::testing::Values(
        PressCase{"quick", {{1000, {10, 10}}, {1200, {10, 10}}}, {false, true}},
        PressCase{"atTheTimeLimit", {{1000, {10, 10}}, {1500, {10, 10}}}, {false, true}},
        PressCase{"tooSlow", {{1000, {10, 10}}, {1501, {10, 10}}}, {false, false}},
        PressCase{"slightlyMoved", {{1000, {10, 10}}, {1100, {12, 8}}}, {false, true}},
        PressCase{"tooFarAcross", {{1000, {10, 10}}, {1100, {13, 10}}}, {false, false}},
        PressCase{"tooFarDown", {{1000, {10, 10}}, {1100, {10, 13}}}, {false, false}},
        PressCase{"thirdPressStartsOver",
                  {{1000, {5, 5}}, {1100, {5, 5}}, {1200, {5, 5}}, {1300, {5, 5}}},
                  {false, true, false, true}},
        PressCase{"slowPressBeginsANewPair",
                  {{1000, {5, 5}}, {2000, {5, 5}}, {2100, {5, 5}}},
                  {false, false, true}},
        PressCase{
            "acrossTheClockWrap", {{0xFFFFFF00u, {5, 5}}, {0x00000010u, {5, 5}}}, {false, true}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(DoubleClickDetector, AnotherButtonBetweenThePressesBreaksThePair) {
    x11_front::DoubleClickDetector detector;
    EXPECT_FALSE(detector.isDoubleClick(1000, {5, 5}));
    detector.forget();
    EXPECT_FALSE(detector.isDoubleClick(1100, {5, 5}));
}

}  // namespace
