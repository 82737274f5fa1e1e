// The graph in a whole host session: the host loads the shared object, opens
// the editor and drives the graph with injected input; what the graph paints
// reaches the window, and its edits reach the host as notices.
#include <cmath>
#include <vector>

#include "host/raster/canvas.h"
#include "host/ui/dialog_items.h"
#include "host/ui/input_injection.h"
#include "host/ui/menus.h"
#include "host/ui/painting.h"
#include "host/ui/window_functions.h"
#include "tests/session/editor_session_fixture.h"

namespace {

using kobal_layer::MouseButton;

constexpr int kGraph = 1023;

class ResponseViewSession : public EditorSessionTest {
protected:
    void SetUp() override {
        EditorSessionTest::SetUp();
        graph = kobal_layer::GetDlgItem(editor, kGraph);
        ASSERT_NE(graph, nullptr);
        RECT client{};
        kobal_layer::GetClientRect(graph, &client);
        width = client.right;
        height = client.bottom;
        ASSERT_GT(width, 100);
        ASSERT_GT(height, 40);
    }
    // The column of a frequency and the row of 0 dB on the graph's axes.
    int columnOf(double hz) const {
        return static_cast<int>(std::log((hz - 20.0) / 23980.0 * 400.0 + 1.0) * width /
                                5.993961427306569);
    }
    int zeroDbRow() const { return height - static_cast<int>(12.0 * height / 24.0); }
    POINT onGraph(int x, int y) const { return kobal_layer::screenPointOf(graph, POINT{x, y}); }

    HWND graph = nullptr;
    int width = 0;
    int height = 0;
};

TEST_F(ResponseViewSession, DraggedHandleIsAutomatedThenItsEditsEnd) {
    const int x = columnOf(1000.0);  // the third default band
    const int y = zeroDbRow();
    const float frequencyBefore = session->parameter(6);
    kobal_layer::pressMouse(MouseButton::left, onGraph(x, y));
    kobal_layer::moveMouse(onGraph(x + 20, y - 10));
    kobal_layer::releaseMouse(MouseButton::left, onGraph(x + 20, y - 10));
    const std::vector<HostCall> calls = gestureCalls();
    const std::vector<std::pair<int32_t, int32_t>> expected = {
        {audioMasterAutomate, 6}, {audioMasterAutomate, 7}, {audioMasterEndEdit, 6}, {audioMasterEndEdit, 7}};
    ASSERT_EQ(opcodesOf(calls), expected);
    EXPECT_EQ(calls[0].opt, session->parameter(6));
    EXPECT_EQ(calls[1].opt, session->parameter(7));
    EXPECT_GT(session->parameter(6), frequencyBefore);
    EXPECT_GT(session->parameter(7), 0.25f);  // louder than 0 dB
}

TEST_F(ResponseViewSession, ContextMenuAddsABandWhereTheUserClicked) {
    kobal_layer::queueMenuChoice(40001);
    kobal_layer::pressMouse(MouseButton::right, onGraph(columnOf(2000.0), height / 4));
    kobal_layer::releaseMouse(MouseButton::right, onGraph(columnOf(2000.0), height / 4));
    EXPECT_EQ(session->parameterCount(), 15);
    const std::vector<HostCall> listChanges = callsWith(audioMasterVendorSpecific);
    ASSERT_EQ(listChanges.size(), 1u);
    expectListChange(listChanges[0], 12, 3);
    EXPECT_GT(session->parameter(13), 0.25f);  // above 0 dB
}

TEST_F(ResponseViewSession, PaintReachesTheWindowWithTheSelectedHandleInRed) {
    kobal_layer::InvalidateRect(graph, nullptr, 1);
    kobal_layer::pumpMessages();
    Canvas* surface = kobal_layer::paintedSurface(graph);
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->width(), width);
    const int x = columnOf(100.0);  // band 1, selected: a red disc
    const int y = zeroDbRow();
    int red = 0;
    for (int dy = -5; dy <= 5; ++dy)
        for (int dx = -5; dx <= 5; ++dx) red += surface->pixel(x + dx, y + dy) == 0xffff2222u;
    EXPECT_GT(red, 40);
}

}  // namespace
