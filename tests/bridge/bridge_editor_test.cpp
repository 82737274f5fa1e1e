// The editor in a real X window: a frame of the test's own stands for the
// host's window, the bridge shows the editor inside it, and XTest plays the
// user. The host idles the editor about every 40 ms, as hosts do.
#include <chrono>
#include <map>
#include <thread>

#include "tests/bridge/plain_host.h"
#include "tests/bridge/test_display.h"

namespace {

constexpr int kEditorWidth = 1020;
constexpr int kEditorHeight = 640;

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
    if (!count) return {};
    return {static_cast<int>(sumX / count), static_cast<int>(sumY / count)};
}

void idle(HostedEffect& hosted, int times = 1) {
    for (int i = 0; i < times; ++i) {
        hosted.dispatch(effEditIdle);
        std::this_thread::sleep_for(std::chrono::milliseconds(40));
    }
}

class BridgeEditorTest : public BridgeInstanceTest {
protected:
    void SetUp() override {
        if (testDisplayName().empty()) GTEST_SKIP() << "Xvfb is not installed";
        BridgeInstanceTest::SetUp();
        ASSERT_NE(frame_.display, nullptr);
        ASSERT_EQ(hosted_->dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(frame_.window)), 1);
        idle(*hosted_, 3);
    }
    void TearDown() override { hosted_->dispatch(effEditClose); }
    void drag(Point from, Point to) {
        movePointer(frame_.display, frame_.window, from.x, from.y);
        idle(*hosted_);
        pressButton(frame_.display, true);
        for (int step = 1; step <= 4; ++step) {
            idle(*hosted_);
            movePointer(frame_.display, frame_.window, from.x + (to.x - from.x) * step / 4,
                        from.y + (to.y - from.y) * step / 4);
        }
        idle(*hosted_);
        pressButton(frame_.display, false);
        idle(*hosted_, 3);
    }
    HostFrame frame_{kEditorWidth, kEditorHeight};
};

TEST_F(BridgeEditorTest, DraggedHandleMovesOnScreenAndAutomatesItsParameters) {
    Point handle = selectedHandle(frame_);
    ASSERT_GE(handle.x, 0) << "no selected handle on screen";
    const float frequency = hosted_->parameter(0), gain = hosted_->parameter(1);
    hosted_->clearCalls();
    drag(handle, {handle.x + 80, handle.y - 50});

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
    savePicture(frame_.pixels(), kEditorWidth, kEditorHeight, "bridge_editor_dragged.png");
    Point moved = selectedHandle(frame_);
    EXPECT_NEAR(moved.x, handle.x + 80, 2);
    EXPECT_NEAR(moved.y, handle.y - 50, 2);
}

// A second instance, its first band's gain raised, shows its own picture in
// a frame beside the first; a drag in the first editor edits only the first.
TEST_F(BridgeEditorTest, TwoOpenEditorsShowAndEditTheirOwnBands) {
    HostedEffect second(builtBridge());
    second.setParameter(1, 0.9f);
    HostFrame secondFrame(kEditorWidth, kEditorHeight, kEditorWidth + 20);
    ASSERT_EQ(second.dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(secondFrame.window)), 1);
    idle(second, 3);
    Point handle = selectedHandle(frame_), raised = selectedHandle(secondFrame);
    EXPECT_EQ(handle.x, raised.x);
    EXPECT_LT(raised.y, handle.y - 20);
    drag(handle, {handle.x, handle.y + 30});
    EXPECT_LT(hosted_->parameter(1), 0.25f);
    EXPECT_FLOAT_EQ(second.parameter(1), 0.9f);
    second.dispatch(effEditClose);
}

}  // namespace
