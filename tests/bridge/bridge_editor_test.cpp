// The editor in X windows of the test's own standing for a host's, XTest
// playing the user, the editors idled about every 40 ms as hosts do.
#include <chrono>
#include <map>
#include <thread>

#include "tests/bridge/plain_host.h"
#include "tests/bridge/test_display.h"

namespace {

struct Point {
    int x = -1, y = -1;
};

// The centre of the selected band's handle in the frame: the pixels of its colour.
Point selectedHandle(const HostFrame& frame) {
    std::vector<uint32_t> pixels = frame.pixels();
    long sumX = 0, sumY = 0, count = 0;
    for (size_t i = 0; i < pixels.size(); ++i)
        if (pixels[i] == 0xFF2222) {
            sumX += static_cast<long>(i) % frame.width;
            sumY += static_cast<long>(i) / frame.width;
            ++count;
        }
    return count ? Point{static_cast<int>(sumX / count), static_cast<int>(sumY / count)} : Point{};
}

void idle(HostedEffect& hosted, int times = 1) {
    for (int i = 0; i < times; ++i) {
        hosted.dispatch(effEditIdle);
        std::this_thread::sleep_for(std::chrono::milliseconds(40));
    }
}

// A drag with the pointer from `from` to `to` in four steps.
void drag(HostedEffect& hosted, const HostFrame& frame, Point from, Point to) {
    movePointer(frame.display, frame.window, from.x, from.y);
    idle(hosted);
    pressButton(frame.display, Button1, true);
    for (int step = 1; step <= 4; ++step) {
        idle(hosted);
        movePointer(frame.display, frame.window, from.x + (to.x - from.x) * step / 4,
                    from.y + (to.y - from.y) * step / 4);
    }
    idle(hosted);
    pressButton(frame.display, Button1, false);
    idle(hosted, 3);
}

// Two editors side by side, each showing its own bands; the first one's
// selected handle dragged up and to the right.
TEST_F(BridgeInstanceTest, DragInOneOfTwoEditorsMovesItsHandleAndAutomatesOnlyItsParameters) {
    if (testDisplayName().empty()) GTEST_SKIP() << "Xvfb is not installed";
    HostedEffect second(builtBridge());
    second.setParameter(1, 0.9f);
    HostFrame frame(1020, 640), secondFrame(1020, 640, 1040);
    ASSERT_EQ(hosted_->dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(frame.window)), 1);
    ASSERT_EQ(second.dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(secondFrame.window)), 1);
    idle(second, 3);
    idle(*hosted_, 3);
    const Point handle = selectedHandle(frame), raised = selectedHandle(secondFrame);
    ASSERT_GE(handle.x, 0) << "no selected handle on screen";
    EXPECT_EQ(raised.x, handle.x);
    EXPECT_LT(raised.y, handle.y - 20);
    const float frequency = hosted_->parameter(0), gain = hosted_->parameter(1);
    hosted_->clearCalls();
    drag(*hosted_, frame, handle, {handle.x + 80, handle.y - 50});

    // Frequency, then gain, the last notice of each carrying the parameter's value.
    std::vector<int32_t> automated;
    std::map<int32_t, float> lastValues;
    for (const PlainHostCall& call : hosted_->calls(audioMasterAutomate)) {
        if (!lastValues.count(call.index)) automated.push_back(call.index);
        lastValues[call.index] = call.opt;
    }
    EXPECT_EQ(automated, (std::vector<int32_t>{0, 1}));
    for (auto [index, value] : lastValues) EXPECT_FLOAT_EQ(value, hosted_->parameter(index)) << index;
    EXPECT_FALSE(hosted_->calls(audioMasterEndEdit).empty());
    EXPECT_GT(hosted_->parameter(0), frequency);
    EXPECT_GT(hosted_->parameter(1), gain);
    EXPECT_FLOAT_EQ(second.parameter(1), 0.9f);
    Point moved = selectedHandle(frame);
    EXPECT_NEAR(moved.x, handle.x + 80, 2);
    EXPECT_NEAR(moved.y, handle.y - 50, 2);
    hosted_->dispatch(effEditClose);
    second.dispatch(effEditClose);
}

}  // namespace
