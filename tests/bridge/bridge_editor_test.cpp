// The editor in a real X window: a frame of the test's own stands for the
// host's window, the bridge shows the editor inside it, and XTest plays the
// user. The host idles the editor about every 40 ms, as hosts do.
#include <algorithm>
#include <chrono>
#include <thread>

#include "tests/bridge/bridge_fixture.h"
#include "tests/bridge/test_display.h"

namespace {

constexpr int kFrameWidth = 1020;
constexpr int kFrameHeight = 640;
constexpr uint32_t kSelectedHandleColor = 0xFF2222;
constexpr uint32_t kDialogFace = 0xF0F0F0;
constexpr uint32_t kTabEdge = 0xA0A0A0;
constexpr uint32_t kSelectedTabFace = 0xFFFFFF;
constexpr int kTabHeaderMiddle = 10;  // rows below the headers' top edge

struct Point {
    int x = -1, y = -1;
};

class Picture {
public:
    explicit Picture(const HostFrame& frame) : pixels_(frame.pixels(width_, height_)) {}
    uint32_t at(int x, int y) const {
        if (x < 0 || y < 0 || x >= width_ || y >= height_) return 0;
        return pixels_[static_cast<size_t>(y) * static_cast<size_t>(width_) + static_cast<size_t>(x)];
    }
    int width() const { return width_; }
    int height() const { return height_; }
    const std::vector<uint32_t>& pixels() const { return pixels_; }

    // The centre of the selected band's handle: the pixels of its colour.
    Point selectedHandle() const {
        long sumX = 0, sumY = 0, count = 0;
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                if (at(x, y) == kSelectedHandleColor) sumX += x, sumY += y, ++count;
        if (!count) return {};
        return {static_cast<int>(sumX / count), static_cast<int>(sumY / count)};
    }

    // The middle of each band tab's header, left to right. The headers stand
    // below the graph: the first row under it with a long run of the tab
    // edge colour is their top edge; the edges split the row below into headers.
    std::vector<Point> tabHeaders() const {
        Point handle = selectedHandle();
        int y = handle.y;
        while (y < height_ && at(handle.x, y) != kDialogFace) ++y;
        for (; y < height_; ++y) {
            int run = 0, x = 0;
            for (; x < width_ && run < 40; ++x) run = at(x, y) == kTabEdge ? run + 1 : 0;
            if (run >= 40) return headersBelow(x - run, y);
        }
        return {};
    }

    // The face above the header's number.
    bool isSelectedTab(Point header) const {
        return at(header.x, header.y - kTabHeaderMiddle + 3) == kSelectedTabFace;
    }

private:
    // The headers' top edge runs from `left` along row `top`.
    std::vector<Point> headersBelow(int left, int top) const {
        const int y = top + kTabHeaderMiddle;
        std::vector<int> edges{left};
        int x = left + 1;
        for (; at(x, top) == kTabEdge; ++x)
            if (at(x, y) == kTabEdge && x > edges.back() + 3) edges.push_back(x);
        if (x - 1 > edges.back() + 3) edges.push_back(x - 1);
        std::vector<Point> middles;
        for (size_t i = 0; i + 1 < edges.size(); ++i) middles.push_back({(edges[i] + edges[i + 1]) / 2, y});
        return middles;
    }

    int width_ = 0, height_ = 0;
    std::vector<uint32_t> pixels_;
};

class BridgeEditorTest : public BridgeInstanceTest {
protected:
    void SetUp() override {
        if (testDisplayName().empty()) GTEST_SKIP() << "Xvfb is not installed";
        BridgeInstanceTest::SetUp();
        frame_ = std::make_unique<HostFrame>(kFrameWidth, kFrameHeight);
        ASSERT_NE(frame_->display(), nullptr);
        ASSERT_EQ(hosted_->dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(frame_->window())), 1);
        idle(3);
    }
    void TearDown() override {
        if (hosted_) hosted_->dispatch(effEditClose);
    }
    // As hosts do, about every 40 ms.
    void idle(int times) {
        for (int i = 0; i < times; ++i) {
            hosted_->dispatch(effEditIdle);
            std::this_thread::sleep_for(std::chrono::milliseconds(40));
        }
    }
    void drag(Point from, Point to) {
        frame_->movePointer(from.x, from.y);
        idle(1);
        frame_->pressButton(1, true);
        idle(1);
        constexpr int kSteps = 4;
        for (int step = 1; step <= kSteps; ++step) {
            frame_->movePointer(from.x + (to.x - from.x) * step / kSteps,
                                from.y + (to.y - from.y) * step / kSteps);
            idle(1);
        }
        frame_->pressButton(1, false);
        idle(3);
    }
    void click(Point at) {
        frame_->movePointer(at.x, at.y);
        idle(1);
        frame_->pressButton(1, true);
        idle(1);
        frame_->pressButton(1, false);
        idle(3);
    }
    void save(const Picture& picture, const char* name) {
        savePicture(picture.pixels(), picture.width(), picture.height(),
                    std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + name);
    }
    // The parameters the editor automated, in order of first notice; the
    // last notice of each carries the parameter's value.
    std::vector<int32_t> automatedParameters() {
        std::vector<int32_t> indices;
        std::vector<float> lastValues;
        for (const PlainHostCall& call : hosted_->callsWithOpcode(audioMasterAutomate)) {
            auto found = std::find(indices.begin(), indices.end(), call.index);
            if (found == indices.end()) {
                indices.push_back(call.index);
                lastValues.push_back(call.opt);
            } else {
                lastValues[static_cast<size_t>(found - indices.begin())] = call.opt;
            }
        }
        for (size_t i = 0; i < indices.size(); ++i)
            EXPECT_FLOAT_EQ(lastValues[i], hosted_->parameter(indices[i])) << indices[i];
        return indices;
    }
    std::unique_ptr<HostFrame> frame_;
};

TEST_F(BridgeEditorTest, DraggedHandleMovesOnScreenAndAutomatesItsParameters) {
    Picture before(*frame_);
    Point handle = before.selectedHandle();
    ASSERT_GE(handle.x, 0) << "no selected handle on screen";
    const float frequency = hosted_->parameter(0), gain = hosted_->parameter(1);
    hosted_->clearCalls();

    drag(handle, {handle.x + 80, handle.y - 50});

    EXPECT_EQ(automatedParameters(), (std::vector<int32_t>{0, 1}));
    EXPECT_FALSE(hosted_->callsWithOpcode(audioMasterEndEdit).empty());
    EXPECT_GT(hosted_->parameter(0), frequency);
    EXPECT_GT(hosted_->parameter(1), gain);
    Picture after(*frame_);
    save(after, "bridge_editor_dragged.png");
    Point moved = after.selectedHandle();
    EXPECT_NEAR(moved.x, handle.x + 80, 2);
    EXPECT_NEAR(moved.y, handle.y - 50, 2);
}

TEST_F(BridgeEditorTest, ClickedTabSelectsItsBand) {
    Picture before(*frame_);
    std::vector<Point> tabs = before.tabHeaders();
    ASSERT_EQ(tabs.size(), 4u) << "one tab per default band";
    EXPECT_TRUE(before.isSelectedTab(tabs[0]));
    int handleColumn = before.selectedHandle().x;
    for (int tab : {1, 3}) {
        click(tabs[static_cast<size_t>(tab)]);
        Picture after(*frame_);
        EXPECT_TRUE(after.isSelectedTab(tabs[static_cast<size_t>(tab)])) << tab;
        EXPECT_FALSE(after.isSelectedTab(tabs[0])) << tab;
        EXPECT_GT(after.selectedHandle().x, handleColumn) << "a band of higher frequency";
        handleColumn = after.selectedHandle().x;
    }
}

TEST_F(BridgeEditorTest, ShowsAtItsSizeClosesAndOpensAgain) {
    ASSERT_NE(frame_->pluginWindow(), 0u);
    ERect* rect = nullptr;
    ASSERT_EQ(hosted_->dispatch(effEditGetRect, 0, 0, &rect), 1);
    XWindowAttributes shown{};
    XGetWindowAttributes(frame_->display(), frame_->pluginWindow(), &shown);
    EXPECT_EQ(shown.width, rect->right - rect->left) << "the X window has the editor's size";
    EXPECT_EQ(shown.height, rect->bottom - rect->top);
    hosted_->dispatch(effEditClose);
    XSync(frame_->display(), False);
    EXPECT_EQ(frame_->pluginWindow(), 0u);
    ASSERT_EQ(hosted_->dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(frame_->window())), 1);
    idle(3);
    EXPECT_NE(frame_->pluginWindow(), 0u);
    Picture reopened(*frame_);
    save(reopened, "bridge_editor.png");
    EXPECT_GE(reopened.selectedHandle().x, 0);
}

}  // namespace
