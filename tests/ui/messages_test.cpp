// Sent and posted messages, the pump and painting.
#include "host/raster/canvas.h"
#include "host/ui/painting.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

class Messages : public UiLayerTest {
protected:
    void SetUp() override {
        UiLayerTest::SetUp();
        window = createRecordingWindow(hostWindow(), RECT{0, 0, 30, 20});
    }
    void setProcedure(WNDPROC procedure) {
        SetWindowLong(window, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    }
    HWND window = nullptr;
};

LRESULT postAgainOnce(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_USER && wParam == 0) PostMessage(window, WM_USER, 1, 0);
    return recordingWindowProcedure(window, message, wParam, lParam);
}

TEST_F(Messages, SentMessagesRunAtOncePostedOnesInOrderAtTheNextPumpBeforeThePaint) {
    char text[8];
    SendMessage(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("title"));
    EXPECT_EQ(SendMessage(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text)), 5);
    EXPECT_STREQ(text, "title");
    setProcedure(postAgainOnce);  // what is posted while pumping comes before the paint
    EXPECT_TRUE(PostMessage(window, WM_USER, 0, 0));
    EXPECT_TRUE(PostMessage(window, WM_TIMER, 2, 0));
    EXPECT_FALSE(PostMessage(nullptr, WM_USER, 0, 0));
    recordedMessages().clear();
    pumpMessages();  // also the first paint of the new window
    std::vector<std::pair<UINT, WPARAM>> received;
    for (const RecordedMessage& message : recordedMessages())
        received.emplace_back(message.message, message.wParam);
    EXPECT_EQ(received, (std::vector<std::pair<UINT, WPARAM>>{
                            {WM_USER, 0}, {WM_TIMER, 2}, {WM_USER, 1}, {WM_PAINT, 0}}));
}

LRESULT paintRedAndAskForTheNextFrame(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    recordedMessages().push_back(RecordedMessage{window, message, wParam, lParam});
    if (message != WM_PAINT) return DefWindowProc(window, message, wParam, lParam);
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    Canvas backBuffer(paint.rcPaint.right, paint.rcPaint.bottom);
    backBuffer.fillRect(0, 0, backBuffer.width(), backBuffer.height(), 0xFFFF0000u);
    BitBlt(dc, 0, 0, backBuffer.width(), backBuffer.height(), backBuffer.deviceContext(), 0, 0, 0);
    InvalidateRect(window, nullptr, 0);
    EndPaint(window, &paint);
    return 0;
}

TEST_F(Messages, PaintingFillsACanvasOfTheClientSizeOncePerPumpOrAtUpdateWindow) {
    setProcedure(paintRedAndAskForTheNextFrame);
    pumpMessages();
    pumpMessages();
    EXPECT_EQ(recordedOf(WM_PAINT).size(), 2u);  // not in a loop
    Canvas* surface = paintedSurface(window);
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->width(), 30);
    EXPECT_EQ(surface->pixel(29, 19), 0xFFFF0000u);
    setProcedure(recordingWindowProcedure);  // the default handling validates
    UpdateWindow(window);
    UpdateWindow(window);
    EXPECT_EQ(recordedOf(WM_PAINT).size(), 3u);
    ShowWindow(window, SW_HIDE);
    InvalidateRect(window, nullptr, 0);
    pumpMessages();  // hidden windows are not painted
    EXPECT_EQ(recordedOf(WM_PAINT).size(), 3u);
}

}  // namespace
